#include "desktop/frmSplash.h"

#include <QEvent>
#include <QFrame>
#include <QGridLayout>
#include <QIcon>
#include <QPixmap>

#include "desktop/resources/clsLoadCustomResource.h"

namespace vantrellion {

QString VersionText() {
    return QString("Version %1.%2.%3")
        .arg(VANTRELLION_VERSION_MAJOR)
        .arg(VANTRELLION_VERSION_MINOR)
        .arg(VANTRELLION_VERSION_PATCH);
}

// A splash window of the normal layer: kept above everything, it would hide the boxes and
// screens of the start-up, which are modal and so leave the user nothing to click.
frmSplash::frmSplash(QWidget* parent) : QDialog(parent, Qt::SplashScreen) {
    setObjectName("frmSplash");
    setWindowIcon(LoadIconResource(250));
    setAttribute(Qt::WA_DeleteOnClose, false);

    auto* frame = new QFrame(this);
    frame->setObjectName("Frame1");
    frame->setFrameShape(QFrame::Box);
    auto* outer = new QGridLayout(this);
    outer->addWidget(frame);
    auto* grid = new QGridLayout(frame);

    imgLogo = new QLabel(frame);
    imgLogo->setObjectName("imgLogo");
    imgLogo->setPixmap(LoadIconResource(101).pixmap(64, 64));
    auto label = [&](const char* name, const QString& text) {
        auto* l = new QLabel(text, frame);
        l->setObjectName(name);
        return l;
    };
    lblCompanyProduct = label("lblCompanyProduct", "Vantrellion");
    lblProductName = label("lblProductName", "Vantrellion");
    QFont big = lblProductName->font();
    big.setPointSize(20);
    big.setBold(true);
    lblProductName->setFont(big);
    lblPlatform = label("lblPlatform", "Linux");
    lblVersion = label("lblVersion", VersionText());
    lblCompany = label("lblCompany", "The Vantrellion developers");
    lblWarning = label("lblWarning",
                       "                        Warning...         NOT FOR LIFE SUPPORT SYSTEMS");
    QFont warn = lblWarning->font();
    warn.setBold(true);
    lblWarning->setFont(warn);

    grid->addWidget(imgLogo, 0, 0, 3, 1);
    grid->addWidget(lblCompanyProduct, 0, 1);
    grid->addWidget(lblProductName, 1, 1);
    grid->addWidget(lblPlatform, 2, 1);
    grid->addWidget(lblVersion, 3, 1);
    grid->addWidget(lblCompany, 4, 1);
    grid->addWidget(lblWarning, 5, 0, 1, 2);

    // A click on the frame, the logo or any label closes the window like a click on it.
    frame->installEventFilter(this);
    for (QLabel* l : findChildren<QLabel*>())
        l->installEventFilter(this);
}

bool frmSplash::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        close();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

}  // namespace vantrellion
