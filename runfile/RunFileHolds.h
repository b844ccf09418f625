// The days off and the pauses in a Run File: a section after the relay blocks, behind a mark
// line of its own. A reader that knows only the relay blocks stops before it, so a file with
// the section still gives that reader the same schedule; a file without it holds no days off
// and no pauses. The section is written only when there is something in it, so a schedule
// without days off or pauses is written exactly as before. Its lines, in the file's forms:
//   the mark "SX.2026.06.01|.holds"
//   the number of days off, then per day off five lines: the first date "2026-12-25", the
//     last date, the every-year flag, the relays as a port text "1 - 3 - - - - -" (one group
//     of eight per board, groups joined by a blank) and the note
//   the number of pause lines, then per relay of the file's boards the end of its pause,
//     "2026-06-22 18:00:00", or an empty line when it is not paused
#pragma once

#include <string>

#include "core/SharedState.h"
#include "runfile/RunFileFields.h"

namespace vantrellion {

inline constexpr const char* HoldsSectionMark = "SX.2026.06.01|.holds";

// The section's lines, each with its CR LF; "" when there are no days off and no pauses.
std::string HoldsSectionLines(const ScheduleHolds& holds);

// Reads the section from the line after the relay blocks into holds. A first line that is not
// this build's mark is a section of another kind and is left unread (false). A section that
// does not read whole throws FieldReadError.
bool ReadHoldsSection(FieldReader& in, ScheduleHolds& holds);

}  // namespace vantrellion
