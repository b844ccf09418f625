#include "desktop/ShowConfigForms.h"

#include <QGuiApplication>
#include <QScreen>

#include "desktop/FormPosition.h"
#include "desktop/QtConvert.h"
#include "desktop/frmConfigBoards.h"
#include "desktop/frmConfigColors.h"
#include "desktop/frmConfiguration.h"
#include "desktop/frmLogFilePath.h"

namespace vantrellion {

void ShowConfigurationForm(System& s, ColorChooser* chooser) {
    frmConfiguration form(s, chooser);
    RestoreFormPosition(s, form);
    form.exec();
    SaveFormPosition(s, form);
}

void ShowConfigBoardsForm(System& s, ColorChooser* chooser) {
    frmConfigBoards form(s, chooser);
    RestoreFormPosition(s, form);
    form.exec();
    SaveFormPosition(s, form);
}

void ShowConfigColorsForm(System& s, ColorChooser* chooser) {
    frmConfigColors form(s, chooser);
    RestoreFormPosition(s, form);
    form.exec();
    SaveFormPosition(s, form);
}

void ShowLogFilePathForm(System& s) {
    frmLogFilePath form(s);
    RestoreFormPosition(s, form);
    form.exec();
    SaveFormPosition(s, form);
}

int DisplayHeightTwips() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry().height() * TwipsPerPixel : 0;
}

int DisplayWidthTwips() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->geometry().width() * TwipsPerPixel : 0;
}

int DesktopConfigurationScreens::ScreenHeightTwips() {
    return DisplayHeightTwips();
}

int DesktopConfigurationScreens::ScreenWidthTwips() {
    return DisplayWidthTwips();
}

void DesktopConfigurationScreens::RepaintMainScreen() {
    if (mainScreen_) mainScreen_->repaint();
}

}  // namespace vantrellion
