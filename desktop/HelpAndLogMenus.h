// The commands of the Help menus, of "View Log File" and "Remove Log File(s)", and of every
// "Print Window" and "Print Screen" entry outside the log viewer.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

class frmRelay;
class ConfigScreenWindow;

// The main screen: the Help menu, the two log entries of the Tool menu and the two print
// entries of the File menu, the latter with the tick suspended around them.
void WireHelpAndLogMenus(System& s, frmRelay& w);

// A configuration screen: its print entries and its Help menu.
void WireConfigScreenHelpAndPrint(System& s, ConfigScreenWindow& w);

// "Time Window (Show)" / "(Remove)": opens the floating clock beside the main screen, or
// closes it, and refreshes the menus, which sets the caption.
void mnuHelpTimeWin_Click(System& s, frmRelay& w);

}  // namespace vantrellion
