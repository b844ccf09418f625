#include "desktop/FirstRunScreens.h"

#include <QGuiApplication>
#include <QScreen>

#include "desktop/QtConvert.h"

namespace vantrellion {

int DisplayHeightTwips() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry().height() * TwipsPerPixel : 0;
}

int DesktopFirstRunScreens::ScreenHeightTwips() {
    return DisplayHeightTwips();
}

}  // namespace vantrellion
