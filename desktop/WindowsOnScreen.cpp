#include "desktop/WindowsOnScreen.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QWindow>

#include "core/ScreenFit.h"

namespace vantrellion {

namespace {

bool IsFramedWindowType(Qt::WindowType type) {
    switch (type) {
        case Qt::Window:
        case Qt::Dialog:
        case Qt::Sheet:
        case Qt::Drawer:
        case Qt::Tool:
        case Qt::SplashScreen:
            return true;
        default:
            return false;
    }
}

FrameMargins ToFrame(const QMargins& m) {
    return {m.left(), m.top(), m.right(), m.bottom()};
}

// The window manager's frame of a window: its own once it has been shown; before that, that of
// another window of the program that has one (the frames of one window manager are alike);
// with none yet, a title bar of the style's height and thin borders.
FrameMargins FrameOf(const QWidget& w) {
    if (w.windowType() == Qt::SplashScreen || w.windowFlags().testFlag(Qt::FramelessWindowHint))
        return {};
    if (const QWindow* own = w.windowHandle(); own && !own->frameMargins().isNull())
        return ToFrame(own->frameMargins());
    for (const QWidget* other : QApplication::topLevelWidgets()) {
        if (other == &w || !other->isVisible() || !IsFramedWindowType(other->windowType()))
            continue;
        if (const QWindow* h = other->windowHandle(); h && !h->frameMargins().isNull())
            return ToFrame(h->frameMargins());
    }
    const int border = 4;
    return {border, w.style()->pixelMetric(QStyle::PM_TitleBarHeight) + border, border, border};
}

QScreen* ScreenOf(const QWidget& w) {
    if (QScreen* s = QGuiApplication::screenAt(w.geometry().center())) return s;
    if (QScreen* s = w.screen()) return s;
    return QGuiApplication::primaryScreen();
}

// The smallest inner size the window's layout or its own limit allows.
QSize SmallestSize(const QWidget& w) {
    QSize least = w.minimumSize();
    const QSize hint = w.minimumSizeHint();
    if (least.width() <= 0 && hint.width() > 0) least.setWidth(hint.width());
    if (least.height() <= 0 && hint.height() > 0) least.setHeight(hint.height());
    return least;
}

}  // namespace

void FitWindowToScreen(QWidget& w) {
    if (!w.isWindow() || !IsFramedWindowType(w.windowType())) return;
    const QScreen* screen = ScreenOf(w);
    if (!screen) return;
    const QRect area = screen->availableGeometry();
    const QSize least = SmallestSize(w);
    const FrameMargins frame = FrameOf(w);
    ScreenRect now{w.x(), w.y(), w.width(), w.height()};
    // A dialog that nobody has placed opens centred over its owner, or over the screen, as Qt
    // would place it; placed here, it is placed once, within the area.
    const bool centre = !w.testAttribute(Qt::WA_Moved) && qobject_cast<QDialog*>(&w);
    if (centre) {
        const QWidget* owner = w.parentWidget() ? w.parentWidget()->window() : nullptr;
        const QPoint middle = owner ? owner->frameGeometry().center() : area.center();
        now.Left = middle.x() - (frame.Left + now.Width + frame.Right) / 2;
        now.Top = middle.y() - (frame.Top + now.Height + frame.Bottom) / 2;
    }
    const ScreenRect fitted =
        FitWindowToArea(now, frame, {area.x(), area.y(), area.width(), area.height()},
                        least.width(), least.height());
    if (fitted.Width != w.width() || fitted.Height != w.height())
        w.resize(fitted.Width, fitted.Height);
    // Any other window that nobody has placed is left for the window manager to place, now that
    // it fits.
    if (centre || (w.testAttribute(Qt::WA_Moved) && (fitted.Left != w.x() || fitted.Top != w.y())))
        w.move(fitted.Left, fitted.Top);
}

WindowsOnScreen::WindowsOnScreen() {
    qApp->installEventFilter(this);
}

WindowsOnScreen::~WindowsOnScreen() {
    if (qApp) qApp->removeEventFilter(this);
}

bool WindowsOnScreen::eventFilter(QObject* watched, QEvent* event) {
    // The program's own showing of a window; one that the window system shows again (restored
    // from an icon) stays where the user had it.
    if (event->type() == QEvent::Show && !event->spontaneous() && watched->isWidgetType()) {
        auto* w = static_cast<QWidget*>(watched);
        if (w->isWindow()) FitWindowToScreen(*w);
    }
    return false;
}

}  // namespace vantrellion
