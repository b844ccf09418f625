// Time-pair evaluation: once per tick, what every relay should be.
#pragma once

#include <cstdint>

#include "core/SharedState.h"

namespace vantrellion {

// Sets NewState of every driven relay and PairActive of every pair it visits.
void CheckTimePairs(System& s);

bool DaysOfWeekMatch(System& s, int r, int weekday);
bool TimeInPair(System& s, int k, int now);

void CheckPairPlain(System& s, int i, int k, int now);
void CheckPairEvenOddDay(System& s, int i, int k, int now);
void CheckPairEvenOddHour(System& s, int i, int k, int now);
void CheckPairEvenOddMinute(System& s, int i, int k, int now);
void CheckPairEvenOddSecond(System& s, int i, int k, int now);
void CheckPairWeekend(System& s, int i, int k, int firstPair, int now, int weekday);
void CheckPairTopOfHour(System& s, int i, int k, int now);
void CheckPairMiddleOfHour(System& s, int i, int k, int now);
void CheckPairBottomOfHour(System& s, int i, int k, int now);
void CheckPairCyclic(System& s, int i, int k, int now, int64_t tick);

}  // namespace vantrellion
