#include "desktop/QtFormWindow.h"

#include <QApplication>
#include <QFrame>
#include <QGuiApplication>
#include <QLayout>
#include <QScreen>
#include <cmath>

#include "desktop/QtConvert.h"

namespace vantrellion {

int PxRound(double twips) {
    return static_cast<int>(std::lround(twips / TwipsPerPixel));
}

bool QtFormControl::Tag(std::string& tag) const {
    if (!w_) return false;
    const QVariant v = w_->property("Tag");
    if (!v.isValid()) return false;
    tag = S(v.toString());
    return true;
}

bool QtFormControl::Read(Geometry g, int32_t& value) const {
    if (!w_) return false;
    const QRect r = w_->geometry();
    switch (g) {
        case Geometry::Left:
            value = r.x() * TwipsPerPixel;
            break;
        case Geometry::Top:
            value = r.y() * TwipsPerPixel;
            break;
        case Geometry::Width:
            value = r.width() * TwipsPerPixel;
            break;
        case Geometry::Height:
            value = r.height() * TwipsPerPixel;
            break;
    }
    return true;
}

bool QtFormControl::Write(Geometry g, double value) {
    if (!w_ || !std::isfinite(value)) return false;
    QRect r = w_->geometry();
    const int px = PxRound(value);
    switch (g) {
        case Geometry::Left:
            r.moveLeft(px);
            break;
        case Geometry::Top:
            r.moveTop(px);
            break;
        case Geometry::Width:
            r.setWidth(px);
            break;
        case Geometry::Height:
            r.setHeight(px);
            break;
    }
    // The row controls have a fixed size, so that a new caption lays out nothing; scaling
    // moves that fixed size along with the control.
    if (w_->minimumSize() == w_->maximumSize()) w_->setFixedSize(r.size());
    w_->setGeometry(r);
    return true;
}

QtFormWindow::QtFormWindow(QWidget& window, QWidget* client) : w_(window), client_(client) {
    // A window that has never been sized takes the size it would show with, as its design.
    if (!w_.isVisible() && !w_.testAttribute(Qt::WA_Resized)) w_.adjustSize();
}

QtFormWindow::~QtFormWindow() = default;

std::string QtFormWindow::Name() const {
    return S(w_.objectName());
}

float QtFormWindow::Left() const {
    return static_cast<float>(w_.x() * TwipsPerPixel);
}
float QtFormWindow::Top() const {
    return static_cast<float>(w_.y() * TwipsPerPixel);
}
float QtFormWindow::Width() const {
    return static_cast<float>(w_.width() * TwipsPerPixel);
}
float QtFormWindow::Height() const {
    return static_cast<float>(w_.height() * TwipsPerPixel);
}

void QtFormWindow::SetLeft(float v) {
    w_.move(PxRound(v), w_.y());
}
void QtFormWindow::SetTop(float v) {
    w_.move(w_.x(), PxRound(v));
}
void QtFormWindow::SetWidth(float v) {
    w_.resize(PxRound(v), w_.height());
}
void QtFormWindow::SetHeight(float v) {
    w_.resize(w_.width(), PxRound(v));
}

WindowState QtFormWindow::State() const {
    const Qt::WindowStates s = w_.windowState();
    if (s & Qt::WindowMinimized) return WindowState::Minimized;
    if (s & (Qt::WindowMaximized | Qt::WindowFullScreen)) return WindowState::Maximized;
    return WindowState::Normal;
}

bool QtFormWindow::Sizable() const {
    return w_.minimumSize() != w_.maximumSize() &&
           !w_.windowFlags().testFlag(Qt::MSWindowsFixedSizeDialogHint);
}

namespace {
QRect ScreenGeometry(const QWidget& w) {
    const QScreen* screen = w.screen();
    if (!screen) screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry() : QRect();
}
}  // namespace

float QtFormWindow::ScreenWidth() const {
    return static_cast<float>(ScreenGeometry(w_).width() * TwipsPerPixel);
}
float QtFormWindow::ScreenHeight() const {
    return static_cast<float>(ScreenGeometry(w_).height() * TwipsPerPixel);
}

bool QtFormWindow::CanPlace() const {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

bool QtFormWindow::OwnerPlace(float& left, float& top, float& width, float& height) const {
    const QWidget* owner = w_.parentWidget() ? w_.parentWidget()->window() : nullptr;
    if (!owner) return false;
    left = static_cast<float>(owner->x() * TwipsPerPixel);
    top = static_cast<float>(owner->y() * TwipsPerPixel);
    width = static_cast<float>(owner->width() * TwipsPerPixel);
    height = static_cast<float>(owner->height() * TwipsPerPixel);
    return true;
}

QSize QtFormWindow::ClientSize() const {
    // The window's layout places the client (menu bar and status bar around it): bring it up
    // to date first, as a window that has not been shown yet has not laid it out, and the bars
    // may not yet have taken the sizes of their own contents.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    if (QLayout* l = w_.layout()) l->activate();
    return client_ ? client_->size() : w_.contentsRect().size();
}

double QtFormWindow::ScaleWidth() const {
    return ClientSize().width() * TwipsPerPixel;
}
double QtFormWindow::ScaleHeight() const {
    return ClientSize().height() * TwipsPerPixel;
}

void QtFormWindow::Collect(QWidget* parent) {
    // Widgets that a layout places are not the resize's to move.
    if (parent->layout()) return;
    for (QObject* o : parent->children()) {
        auto* w = qobject_cast<QWidget*>(o);
        if (!w || w->isWindow()) continue;
        controls_.push_back(std::make_unique<QtFormControl>(w));
        const QMetaObject* type = w->metaObject();
        if (type == &QFrame::staticMetaObject || type == &QWidget::staticMetaObject) Collect(w);
    }
}

std::vector<FormControl*> QtFormWindow::Controls() {
    if (controls_.empty()) Collect(client_ ? client_.data() : &w_);
    std::vector<FormControl*> list;
    list.reserve(controls_.size());
    for (auto& c : controls_)
        list.push_back(c.get());
    return list;
}

void QtFormWindow::SetBusyPointer(bool busy) {
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

}  // namespace vantrellion
