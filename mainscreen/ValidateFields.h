// The validation of the schedule fields, run when a field is about to lose the focus. Nothing
// reaches the relay records or the time arrays but through these.
//
// Each validator takes the field's index and its text. It may change the text (upper-cased,
// cut to length); it then writes the new text to the field as well, so that the field's change
// event runs at that point. The answer is true when the focus may leave the field. False means
// the entry was refused: its message has been shown, the records are as before, and the caller
// keeps the focus in the field with the whole text selected.
//
// An accepted change ends with FileChanged set and the restart file written.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// Stores any text: a name is not checked.
bool ValidateDisplayName(System& s, int i, std::string& text);
// "Days", "ALL Days", "All Days", "ALL", "All", " ", "" or a number (digits 1 to 7 stand for
// Sunday to Saturday).
bool ValidateDaysOfWeek(System& s, int i, std::string& text);
// Upper-cases the code and cuts it to two characters, then checks it against the codes of the
// evaluation or a number of cyclic minutes; refreshes the row's total.
bool ValidateDayHrEvenOdd(System& s, int i, std::string& text);
// Time of a pair k: cut to 8 characters, read as a time of day, checked against the other
// side of the pair, stored exactly as typed; warns of an overlap when WarnOverLapTime is set.
bool ValidateStartTime(System& s, int k, std::string& text);
bool ValidateEndTime(System& s, int k, std::string& text);

// Whether a set pair of k's row overlaps another set pair of the row. The times are compared
// as texts, character by character, so "8:00" counts as later than "10:00": the answer only
// decides whether to warn.
bool CheckTimePairOverlap(System& s, int k);

}  // namespace vantrellion
