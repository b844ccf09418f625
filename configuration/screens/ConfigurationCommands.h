// The configuration commands of the main screen's File menu: open the configuration screens
// (and bring a changed board set-up to the ports), and remove the stored configuration.
#pragma once

#include "configuration/CheckConfigurationAtStart.h"

namespace vantrellion {

// The configuration screens as the File menu opens them: the start-up check's screens, and the
// display's width besides, since the menu's test of a small display takes both.
class ConfigurationScreens : public FirstRunScreens {
  public:
    virtual int ScreenWidthTwips() = 0;  // the width of the display, in twips
    // Repaints the main screen once the screens have closed.
    virtual void RepaintMainScreen() {}
};

// From the File menu the two smaller screens are shown only on a display both less than 9000
// twips high and less than 12000 wide (800 by 600 dots is just too big). The start-up check
// asks for the height alone.
inline constexpr int MenuSmallScreenWidthTwips = 12000;
bool FileMenuUsesSmallScreens(int heightTwips, int widthTwips);

// mnuFileConfiguration: stops the tick and shows the screens. Afterwards a board whose four
// addresses differ from before gets PortInitBoard (an old value of 0 always counts as changed),
// the main screen takes the configured colours, the title and menus are refreshed and the tick
// resumes.
void mnuFileConfiguration(System& s, ConfigurationScreens& screens);

// The colours of the configuration on the main screen: name and total time backgrounds of
// every row, and the group colour of every frame.
void ApplyConfigurationColors(System& s);

// mnuFileConfigurationRemove: stops the tick and asks. OK deletes the configuration and the
// window positions from the store and resumes the tick; the running program keeps its shared
// state. Cancel leaves the tick stopped.
void mnuFileConfigurationRemove(System& s);

}  // namespace vantrellion
