// The developer menu "Dev" and the hidden Edit entry. The developer menu exists only in a
// development build (clsExeOrIDE); it lists the string resources, recomputes every row total,
// and steps through the program's message boxes so that their wording can be checked by eye.
#pragma once

#include <string>
#include <vector>

#include "core/SharedState.h"

namespace vantrellion {

// The name of the resource listing in the program's directory.
inline constexpr const char* ResourceListFileName = "nfoResourceList.txt";

// The lines of the string resource listing: a head line, "0001 text" for every id from 1 to
// 30000 whose text loads and whose line is longer than 5 characters, and a closing line; both
// frame lines carry the date and time.
std::vector<std::string> ResourceListingLines(System& s);
// Writes the listing to the day's log file (appended) and to nfoResourceList.txt in
// programDirectory (replaced), with the timer off meanwhile.
void mnuDevPrintResourceFile(System& s, const std::string& programDirectory);
// RefreshRowTotal for pair indexes 0 to 95. An index beyond the pairs of this build is an
// out-of-range subscript, which ends the command with the error.
void mnuDevTestRoutine(System& s);

// The boxes each step command shows, in order.
std::vector<MessageBoxRequest> CautionMessageBoxes();
std::vector<MessageBoxRequest> ErrorMessageBoxes();
std::vector<MessageBoxRequest> ErrorMsgBoxes();
std::vector<MessageBoxRequest> InfoMessageBoxes();
std::vector<MessageBoxRequest> InfoMsgBoxes();

void mnuDevStepCautionMessageBox(System& s);
void mnuDevStepErrorMessageBox(System& s);
void mnuDevStepErrorMsgBox(System& s);
void mnuDevStepInfoMessageBox(System& s);
void mnuDevStepInfoMsgBox(System& s);

// The Edit menu has no function yet: "Edit has not been coded yet!".
MessageBoxRequest EditNotCodedBox();
void mnuEdit_Click(System& s);

}  // namespace vantrellion
