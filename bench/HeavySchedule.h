// The heavy schedule of the measurements: every relay with all six pairs set, a different
// even/odd code each, every day of the week, and the check timer allowed.
#pragma once

#include <string>

#include "support/Fakes.h"

namespace vantrellion::test {

inline void FillHeavySchedule(TestSystem& t) {
    static const char* kCodes[] = {"EO", "OD", "EH", "OM", "TH", "MH", "BH", "5"};
    for (int i = 0; i < 8; ++i) {
        t.relay(i).DayHrEvenOdd = kCodes[i];
        t.relay(i).DaysOfWeek = "1234567";
        for (int p = 0; p < 6; ++p) {
            const int h = 2 + p * 3;
            t.SetPair(i, p, std::to_string(h) + ":10:00", std::to_string(h + 2) + ":50:30");
        }
    }
    t.frm().CheckTimeAllowed = True;
}

}  // namespace vantrellion::test
