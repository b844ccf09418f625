// Opening the configuration screens and the log directory chooser: each wrapper creates the
// window, shows it modally with no owner and returns when it has closed. The screens of the
// start-up check and of the File menu are these wrappers behind the core's interface.
#pragma once

#include <QWidget>

#include "configuration/screens/ConfigurationCommands.h"
#include "desktop/ColorChooser.h"

namespace vantrellion {

// A null chooser means Qt's colour dialog.
void ShowConfigurationForm(System& s, ColorChooser* chooser = nullptr);
void ShowConfigBoardsForm(System& s, ColorChooser* chooser = nullptr);
void ShowConfigColorsForm(System& s, ColorChooser* chooser = nullptr);
void ShowLogFilePathForm(System& s);

// The height and width of the primary display, in twips.
int DisplayHeightTwips();
int DisplayWidthTwips();

// The configuration screens on this display, for the start-up check and the File menu.
class DesktopConfigurationScreens : public ConfigurationScreens {
  public:
    explicit DesktopConfigurationScreens(System& s, ColorChooser* chooser = nullptr,
                                         QWidget* mainScreen = nullptr)
        : s_(s), chooser_(chooser), mainScreen_(mainScreen) {}
    int ScreenHeightTwips() override;
    int ScreenWidthTwips() override;
    void ShowConfiguration() override { ShowConfigurationForm(s_, chooser_); }
    void ShowConfigBoards() override { ShowConfigBoardsForm(s_, chooser_); }
    void ShowConfigColors() override { ShowConfigColorsForm(s_, chooser_); }
    void RepaintMainScreen() override;

  private:
    System& s_;
    ColorChooser* chooser_;
    QWidget* mainScreen_;
};

}  // namespace vantrellion
