#include "desktop/frmTime.h"

#include <QResizeEvent>

#include "desktop/QtConvert.h"
#include "desktop/resources/clsLoadCustomResource.h"

namespace vantrellion {

namespace {
constexpr int kWindowIcon = 255;
}

frmTime::frmTime(QWidget* owner) : QWidget(owner, Qt::Tool) {
    setObjectName("frmTime");
    setWindowTitle("Time");
    lblTime = new QLabel(this);
    lblTime->setObjectName("lblTime");
    lblTime->setAlignment(Qt::AlignCenter);
    resize(Px(2490), Px(990));
}

void frmTime::Form_Load() {
    setWindowIcon(LoadIconResource(kWindowIcon));  // a missing icon is simply not shown
}

void frmTime::showEvent(QShowEvent* event) {
    if (!loaded_) {
        loaded_ = true;
        Form_Load();
    }
    QWidget::showEvent(event);
}

void frmTime::resizeEvent(QResizeEvent* event) {
    lblTime->setGeometry(0, 0, event->size().width(), event->size().height());
    update();
}

}  // namespace vantrellion
