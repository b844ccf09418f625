// The configuration check at start-up: it compares the stored version with this build's, loads
// a usable configuration, and otherwise asks the user to configure now, opening the
// configuration screens until a full save has stamped the current version or the user cancels.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// The configuration screens as the start-up check opens them, each modal: the call returns
// when the screen has closed.
class FirstRunScreens {
  public:
    virtual ~FirstRunScreens() = default;
    // The height of the display, in twips.
    virtual int ScreenHeightTwips() = 0;
    virtual void ShowConfiguration() = 0;  // frmConfiguration, boards and colours together
    virtual void ShowConfigBoards() = 0;   // frmConfigBoards
    virtual void ShowConfigColors() = 0;   // frmConfigColors
};

// Below this height the two smaller screens are shown one after the other.
inline constexpr int FirstRunSmallScreenTwips = 9000;

// True when the configuration is usable and loaded; false when the user cancelled, and the
// program is to end.
bool CheckConfigurationAtStart(System& s, FirstRunScreens& screens);

// A freshly configured program starts logging and in emulation mode: sets LoggingOnOff and
// RunNoBoards true and stores both.
void ForceFirstRunSwitches(System& s);

}  // namespace vantrellion
