// The mouse commands of a relay row: the stop picture, the total, Manual, Invert, the counter
// and the row's icon, with the tool tips and status hints of their mouse moves. A command
// changes the record and the row's controls; the next tick turns that into port and light
// changes. Each ends with the restart file written.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// Mouse buttons of the press event, by their classic numbers.
inline constexpr int LeftButton = 1;
inline constexpr int RightButton = 2;
inline constexpr int MiddleButton = 4;

// The filter of the icon dialog, and its flags (explorer-style dialog).
inline constexpr const char* IconDialogFilter =
    "Icons (*.ico)|*.ico|Pictures (*.jpg)|*.jpg|"
    "Pictures (*.bmp)|*.bmp|Pictures (*.gif)|*.gif|"
    "All File (*.*)|*.*";
inline constexpr int IconDialogFlags = 0x80000;

// Stops the relay of row i, or releases the stop: a stop beats every other setting and holds
// the code field, Manual, Invert and the counter disabled.
void imgHardStop_Click(System& s, int i);
// The "> STOP <" text is the second way to release a stop; otherwise the click does nothing.
void lblTotalTime_Click(System& s, int i);
void lblManual_Click(System& s, int i);
// Ignored on a row with a numeric (cyclic) even/odd code.
void lblInvert_Click(System& s, int i);
// Left button switches the counter on or off, right button zeroes the count, any other does
// nothing; the restart file is written for every button.
void lblCounter_MouseDown(System& s, int i, int Button);
// Lets the user choose a picture for the row; the only command that marks the schedule as
// changed.
void imgIDIcon_Click(System& s, int i);

// Mouse moved over a row's label or image: answers the tool tip the control is to carry
// (fetched on the first move); a label also shows its caption in the status bar.
std::string RowControl_MouseMove(System& s, Control c, const std::string& caption,
                                 const std::string& toolTip);

// Clearing the total: the caption blanked, the background back to ColorTTimeBkgrnd, then the
// row's total computed again.
void ClearRowTotal(System& s, int i);

}  // namespace vantrellion
