#include "desktop/frmHelpConfiguration.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "desktop/modShowSubForms.h"
#include "desktop/resources/clsLoadCustomResource.h"

namespace vantrellion {

namespace {
constexpr int kWindowIcon = 210;
}

frmHelpConfiguration::frmHelpConfiguration(System& s, QWidget* parent) : QDialog(parent), s_(s) {
    setObjectName("frmHelpConfiguration");
    setWindowTitle("Configuration Help");
    menuBar = new QMenuBar(this);
    QMenu* file = menuBar->addMenu("File");
    file->setObjectName("mnuFile");
    file->addAction("Exit")->setObjectName("mnuFileExit");
    QMenu* help = menuBar->addMenu("Help");
    help->setObjectName("mnuHelp");
    help->addAction("About")->setObjectName("mnuHelpAbout");

    Label1 = new QLabel(
        "Please refer to the on-line documentation for help configuring Vantrellion.", this);
    Label1->setObjectName("Label1");
    Label1->setWordWrap(true);
    cmdExit = new QPushButton("Exit", this);
    cmdExit->setObjectName("cmdExit");

    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(menuBar);
    layout->addWidget(Label1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdExit);
    layout->addLayout(buttons);
    resize(380, 160);

    connect(cmdExit, &QPushButton::clicked, this, [this] { close(); });
    connect(Menu("mnuFileExit"), &QAction::triggered, this, [this] { close(); });
    connect(Menu("mnuHelpAbout"), &QAction::triggered, this, [this] { ShowAboutForm(s_); });
}

QAction* frmHelpConfiguration::Menu(const QString& name) const {
    return findChild<QAction*>(name);
}

void frmHelpConfiguration::showEvent(QShowEvent* event) {
    if (!loaded_) {
        loaded_ = true;
        Form_Load();
    }
    QDialog::showEvent(event);
}

void frmHelpConfiguration::Form_Load() {
    setWindowIcon(LoadIconResource(kWindowIcon));
}

}  // namespace vantrellion
