// Building and refilling the relay rows of the main screen from the records.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// Each frame in its group colour.
void ApplyRelayGroupColors(System& s);
// Every row to its blank look.
void ResetRowVisuals(System& s);
// The stop picture (icon 110) in every row, then the built-in relay icons 121 + i.
void LoadStopPictures(System& s);
void LoadRelayIcons(System& s);
// The records and time arrays to the fields; RowsShown is false meanwhile.
void FillRowsFromRecords(System& s);
// Enables or disables the four controls that a Hard Stop holds; enabled again, the code field
// has its own background back (WindowBackground).
void EnableStoppedRowControls(System& s, int i, bool enabled);

}  // namespace vantrellion
