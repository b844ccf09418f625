// The life of a configuration screen: its load, the moves between the controls and the shared
// state, the defaults and the Reset menu, the changed flag, Save, Cancel and the question on
// closing. Each operation runs on every one of the three screens; where a screen lacks the
// controls, it does nothing there.
#pragma once

#include <functional>
#include <string>

#include "configuration/CheckConfigurationAtStart.h"
#include "configuration/screens/ConfigScreen.h"

namespace vantrellion {

// The load of a screen after its window is built: reads ConfigVersion into FileVersion, then
// fills the controls from the shared state, or from the defaults when nothing is configured.
// Setting a check box runs its click, which is what enables Save on a first run. The changed
// flag ends cleared; the Save and Cancel commands stay as the clicks left them.
void ConfigForm_Load(System& s, ConfigScreen& f);

// The controls from the shared state, and back. ToShared converts each numeric text as a
// hexadecimal 16-bit number; a text that is not one leaves its shared value alone and shows
// that value again.
void FormValuesFromShared(System& s, ConfigScreen& f);
void FormValuesToShared(System& s, ConfigScreen& f);

// The defaults, into the controls only. Those that set a check box run its click.
void FormDefaultAddresses(ConfigScreen& f, int board);
void FormDefaultNames(ConfigScreen& f, int board);
void FormDefaultColors(ConfigScreen& f);
// The default colours straight into the shared state, for a first run without colour buttons.
void SharedDefaultColors(System& s);
void FormDefaultBoardLogging(System& s, ConfigScreen& f, int board);
void FormDefaultResetOnExit(System& s, ConfigScreen& f, int board);
void FormDefaultLogPath(System& s, ConfigScreen& f);
void FormDefaultWarnOverlap(System& s, ConfigScreen& f);

// mnuResetAll: every default of the screen but the log path, for board 0.
void mnuResetAll_Click(System& s, ConfigScreen& f);

// Sets a check box as the program does: a new value runs the box's click.
void SetCheckBox(System& s, ConfigScreen& f, ConfigCheck check, int board, int16_t value);
// The click of a check box: a box that differs from the shared value is stored (the warn box
// as -1 when ticked) and marks the screen changed.
void CheckBoxClick(System& s, ConfigScreen& f, ConfigCheck check, int board);

// Sets the changed flag and enables cmdSave, cmdCancel, mnuFileSave and mnuFileCancel.
void FormMarkChanged(ConfigScreen& f);

// cmdSave and mnuFileSave: the controls to the shared state, the whole store written, the
// screen unchanged again with Save and Cancel disabled. The screen stays open.
void cmdSave_Click(System& s, ConfigScreen& f);

// cmdCancel: the whole start-up check again, which reloads the store (and on an unconfigured
// store asks once more and may open a further screen). The changed flag is cleared; the
// caller then closes the screen.
void cmdCancel_Click(System& s, ConfigScreen& f, FirstRunScreens& screens);

// "Save File?" with Yes, No (the default) and Cancel, titled "Save?". The argument is not used.
Answer FormAskFileSaveCancel(System& s, ConfigScreen& f, const std::string& argument);

// Closing by any route. With the changed flag set, asks: Yes stores the shared state as it
// stands (without the controls), and then whatever alsoSave stores (the board connections,
// which live apart from the shared state); No reloads the store, Cancel keeps the screen. True
// when the close is to be stopped.
bool ConfigForm_QueryUnload(System& s, ConfigScreen& f, const std::function<void()>& alsoSave = {});

// The title of a screen, and whether a menu item of it is shown.
std::string ConfigScreenTitle(ConfigScreenKind kind);
bool ConfigMenuVisible(ConfigScreenKind kind, const std::string& menuName);

}  // namespace vantrellion
