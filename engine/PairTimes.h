// The times of a pair on the day being evaluated. A clock time is the same every day; a sun
// time is worked out from the machine's location, once per day per relay, and kept.
#pragma once

#include <optional>

#include "core/SharedState.h"

namespace vantrellion {

// The sun of relay i on `today` at the machine's location, worked out at the first call for
// that day (or after the location changed). Null without a location.
const SunDay* RelaySunOfDay(System& s, int i, const DateTime& today);

// The time of day of a field of relay i on `today`: nothing for a sun time without a location
// or on a day on which the sun does not rise or set. A set clock time that cannot be read ends
// the program, as at every evaluation.
std::optional<int> ResolveTimeField(System& s, int i, const TimeField& field,
                                    const DateTime& today);

// Whether both times of pair k of relay i are known on `today`. When they are not and `tell`
// is set, the log says why, once per day per relay.
bool PairTimesKnown(System& s, int i, int k, const DateTime& today, bool tell);

// A time of pair k once PairTimesKnown has found both known for the day: the sun of the day
// is the one kept for the relay.
int KnownStart(System& s, int k);
int KnownEnd(System& s, int k);

}  // namespace vantrellion
