#include <gtest/gtest.h>

#include "core/Timeline.h"

namespace vantrellion {
namespace {

TEST(Timeline, LocalSecondsRoundTripAcrossMonthYearAndLeapDays) {
    struct Case {
        DateTime d;
        LocalSeconds expected;
    };
    const Case cases[] = {
        {{1970, 1, 1, 0, 0, 0, 5}, 0},
        {{2026, 11, 14, 9, 15, 2, 7}, 1794647702},
        {{2024, 2, 29, 23, 59, 59, 5}, 1709251199},
        {{2000, 3, 1, 0, 0, 0, 4}, 951868800},
        {{1969, 12, 31, 23, 59, 59, 4}, -1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ToLocalSeconds(c.d), c.expected) << c.d.Year << "-" << c.d.Month;
        const DateTime back = FromLocalSeconds(c.expected);
        EXPECT_EQ(back.Year, c.d.Year);
        EXPECT_EQ(back.Month, c.d.Month);
        EXPECT_EQ(back.Day, c.d.Day);
        EXPECT_EQ(back.SecondsOfDay(), c.d.SecondsOfDay());
        EXPECT_EQ(back.Weekday, c.d.Weekday) << c.d.Year << "-" << c.d.Month << "-" << c.d.Day;
    }
}

}  // namespace
}  // namespace vantrellion
