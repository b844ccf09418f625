// Relays held off their schedule by a day off or a pause.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// Ends every pause whose time has come: the relay follows its schedule again from now, and the
// log gets the pause's end line. A cyclic relay starts again with an off half-cycle.
void EndPassedPauses(System& s, LocalSeconds now);

// Sets Held of every driven relay from the days off and pauses as they stand at `now`.
void MarkHeldRelays(System& s, LocalSeconds now);

// Pauses the relays whose bits are set in `records` until `until`, each with its start line in
// the log, and marks them held at once. A relay already paused gets the new time.
void StartPause(System& s, uint32_t records, LocalSeconds until);

// Ends the pause of the relays whose bits are set in `records` before its time, each with its
// end line in the log. Returns how many were paused.
int EndPauseEarly(System& s, uint32_t records);

// The caption of a paused row: "Paused until 18:00" on the day the pause ends, else
// "Paused until 06-22 18:00" (a pause lasts at most a year).
std::string PausedCaption(LocalSeconds until, LocalSeconds now);

}  // namespace vantrellion
