#include "desktop/frmHelpConfiguration.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "desktop/UserManual.h"
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
    QMenu* file = menuBar->addMenu("&File");
    file->setObjectName("mnuFile");
    file->addAction("User's &Manual")->setObjectName("mnuFileManual");
    file->addAction("Exit")->setObjectName("mnuFileExit");
    QMenu* help = menuBar->addMenu("&Help");
    help->setObjectName("mnuHelp");
    help->addAction("About")->setObjectName("mnuHelpAbout");

    Label1 = new QLabel(
        "Please refer to the on-line documentation for help configuring Vantrellion.", this);
    Label1->setObjectName("Label1");
    Label1->setWordWrap(true);
    // The documentation that the label points to: the manual's chapter on configuration.
    cmdManual = new QPushButton("User's &Manual", this);
    cmdManual->setObjectName("cmdManual");
    cmdExit = new QPushButton("Exit", this);
    cmdExit->setObjectName("cmdExit");

    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(menuBar);
    layout->addWidget(Label1, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdManual);
    buttons->addStretch(1);
    buttons->addWidget(cmdExit);
    layout->addLayout(buttons);
    resize(420, 160);

    connect(cmdManual, &QPushButton::clicked, this, [this] { OpenUserManual(s_); });
    connect(Menu("mnuFileManual"), &QAction::triggered, this, [this] { OpenUserManual(s_); });
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
