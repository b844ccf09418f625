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
void CheckPairCyclic(System& s, int i, int k, int now, int32_t tick);

// True when the even/odd code is a number ("## Cyclic Minutes").
bool IsNumericCode(const std::string& code);
// The code as a 16-bit integer, rounded to the nearest whole with ties to even; overflow of
// 16 bits ends the program.
int16_t NumericCodeValue(const std::string& code);

}  // namespace vantrellion
