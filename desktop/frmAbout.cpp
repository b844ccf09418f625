#include "desktop/frmAbout.h"

#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QProcess>
#include <QStandardPaths>

#include "desktop/frmSplash.h"
#include "desktop/resources/clsLoadCustomResource.h"

namespace vantrellion {

namespace {

constexpr int kWindowIcon = 200;
constexpr const char* kCopyright = "Copyright (C) 2026 The Vantrellion developers";

}  // namespace

QStringList SystemInformationTools() {
    return {"hardinfo2", "hardinfo", "kinfocenter", "gnome-system-monitor"};
}

void LoadRichTextResource(QTextEdit* view, int resId, const QString& resType) {
    const QString file = LoadRTFResource(resId, resType);
    QFile in(file);
    // An empty file name shows nothing, and is not reported.
    if (!file.isEmpty() && in.open(QIODevice::ReadOnly))
        view->setHtml(QString::fromUtf8(in.readAll()));
    in.close();
    view->setReadOnly(true);
    if (!file.isEmpty()) QFile::remove(file);
}

frmAbout::frmAbout(System& s, QWidget* parent) : QDialog(parent), s_(s) {
    setObjectName("frmAbout");
    lblTitle = new QLabel(this);
    lblTitle->setObjectName("lblTitle");
    QFont big = lblTitle->font();
    big.setPointSize(big.pointSize() + 6);
    big.setBold(true);
    lblTitle->setFont(big);
    lblVersion = new QLabel(this);
    lblVersion->setObjectName("lblVersion");
    lblCopyright = new QLabel(this);
    lblCopyright->setObjectName("lblCopyright");
    rtbAboutDescription = new QTextBrowser(this);
    rtbAboutDescription->setObjectName("rtbAboutDescription");
    rtbAboutWarning = new QTextBrowser(this);
    rtbAboutWarning->setObjectName("rtbAboutWarning");
    cmdOk = new QPushButton("OK", this);
    cmdOk->setObjectName("cmdOk");
    cmdOk->setDefault(true);
    cmdSysInfo = new QPushButton("&System Info...", this);
    cmdSysInfo->setObjectName("cmdSysInfo");
    cmdSysInfo->setAutoDefault(false);

    auto* icon = new QLabel(this);
    icon->setObjectName("picIcon");
    icon->setPixmap(LoadIconResource(kWindowIcon).pixmap(48, 48));

    auto* grid = new QGridLayout(this);
    grid->addWidget(icon, 0, 0, 3, 1, Qt::AlignTop);
    grid->addWidget(lblTitle, 0, 1);
    grid->addWidget(lblVersion, 1, 1);
    grid->addWidget(lblCopyright, 2, 1);
    grid->addWidget(rtbAboutDescription, 3, 0, 1, 2);
    grid->addWidget(rtbAboutWarning, 4, 0, 1, 2);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdOk);
    buttons->addWidget(cmdSysInfo);
    grid->addLayout(buttons, 5, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(3, 3);
    grid->setRowStretch(4, 2);
    resize(520, 420);

    connect(cmdOk, &QPushButton::clicked, this, [this] { close(); });
    connect(cmdSysInfo, &QPushButton::clicked, this, [this] { cmdSysInfo_Click(); });
}

void frmAbout::showEvent(QShowEvent* event) {
    if (!loaded_) {
        loaded_ = true;
        Form_Load();
    }
    QDialog::showEvent(event);
}

void frmAbout::Form_Load() {
    setWindowIcon(LoadIconResource(kWindowIcon));
    setWindowTitle(QString("About ") + AppTitle);
    lblVersion->setText(VersionText());
    lblTitle->setText(AppTitle);
    lblCopyright->setText(kCopyright);
    LoadRichTextResource(rtbAboutDescription, 101, "rtfAboutDescription");
    LoadRichTextResource(rtbAboutWarning, 102, "rtfAboutWarning");
}

void frmAbout::cmdSysInfo_Click() {
    for (const QString& tool : SystemInformationTools()) {
        const QString path = QStandardPaths::findExecutable(tool);
        if (!path.isEmpty() && QProcess::startDetached(path, {})) return;
    }
    s_.Message({"System Information Is Unavailable At This Time"});
}

}  // namespace vantrellion
