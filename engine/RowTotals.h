// The scheduled on-time of a row: a figure derived from the schedule, not a measurement.
#pragma once

#include <cstdint>

#include "core/SharedState.h"

namespace vantrellion {

// k may be any pair index of the relay. Sets TotalTime and the caption of lblTotalTime.
void RefreshRowTotal(System& s, int k);

int32_t PairSeconds(System& s, int k);
int32_t PairSecondsHalf(System& s, int k);
int32_t PairSecondsTopOfHour(System& s, int k);
int32_t PairSecondsMiddleOfHour(System& s, int k);
int32_t PairSecondsBottomOfHour(System& s, int k);
int32_t PairSecondsCyclic(System& s, int16_t minutes, int k);

}  // namespace vantrellion
