#include "desktop/frmHelpGeneral.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "desktop/PrinterChoice.h"
#include "desktop/UserManual.h"
#include "desktop/frmAbout.h"
#include "desktop/modShowSubForms.h"
#include "desktop/resources/clsLoadCustomResource.h"

namespace vantrellion {

namespace {
constexpr int kWindowIcon = 215;
}

frmHelpGeneral::frmHelpGeneral(System& s, QWidget* parent) : QDialog(parent), s_(s) {
    setObjectName("frmHelpGeneral");
    setWindowTitle("Help");
    menuBar = new QMenuBar(this);
    QMenu* file = menuBar->addMenu("&File");
    file->setObjectName("mnuFile");
    file->addAction("User's &Manual")->setObjectName("mnuFileManual");
    file->addAction("Print This Help")->setObjectName("mnuFilePrintDoc");
    file->addAction("Exit")->setObjectName("mnuFileExit");
    QMenu* help = menuBar->addMenu("&Help");
    help->setObjectName("mnuHelp");
    help->addAction("About")->setObjectName("mnuHelpAbout");

    rtbHelp = new QTextEdit(this);
    rtbHelp->setObjectName("rtbHelp");
    cmdManual = new QPushButton("User's &Manual", this);
    cmdManual->setObjectName("cmdManual");
    cmdExit = new QPushButton("Exit", this);
    cmdExit->setObjectName("cmdExit");

    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(menuBar);
    layout->addWidget(rtbHelp, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdManual);
    buttons->addStretch(1);
    buttons->addWidget(cmdExit);
    layout->addLayout(buttons);
    resize(640, 560);

    connect(cmdManual, &QPushButton::clicked, this, [this] { OpenUserManual(s_); });
    connect(Menu("mnuFileManual"), &QAction::triggered, this, [this] { OpenUserManual(s_); });
    connect(cmdExit, &QPushButton::clicked, this, [this] { close(); });
    connect(Menu("mnuFileExit"), &QAction::triggered, this, [this] { close(); });
    connect(Menu("mnuHelpAbout"), &QAction::triggered, this, [this] { ShowAboutForm(s_); });
    connect(Menu("mnuFilePrintDoc"), &QAction::triggered, this,
            [this] { mnuFilePrintDoc_Click(); });
}

QAction* frmHelpGeneral::Menu(const QString& name) const {
    return findChild<QAction*>(name);
}

void frmHelpGeneral::showEvent(QShowEvent* event) {
    if (!loaded_) {
        loaded_ = true;
        Form_Load();
    }
    QDialog::showEvent(event);
}

void frmHelpGeneral::Form_Load() {
    setWindowIcon(LoadIconResource(kWindowIcon));
    LoadRichTextResource(rtbHelp, 103, "rtfHelp");
}

void frmHelpGeneral::mnuFilePrintDoc_Click() {
    PrintDocument(s_, this, rtbHelp->textCursor().hasSelection(), [this](QPrinter& printer) {
        rtbHelp->print(&printer);
        return true;
    });
}

}  // namespace vantrellion
