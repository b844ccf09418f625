// Sun times through the real tick over simulated days, one full tick a second: each day's
// on-intervals per relay, read from the output port, and the log lines of the days.
#include <gtest/gtest.h>

#include <fstream>
#include <vector>

#include "core/DateTimeText.h"
#include "core/SunTimes.h"
#include "core/Timeline.h"
#include "engine/Tick.h"
#include "logging/LogFileName.h"
#include "support/Fakes.h"
#include "support/TempDir.h"
#include "support/ZoneScope.h"

namespace vantrellion::test {
namespace {

const GeoLocation Berlin{52.52, 13.405};

using Interval = OnRun;
using DayIntervals = std::array<std::vector<Interval>, 8>;

// Runs the days from `first` on and gives per day and relay the runs of on seconds.
std::vector<DayIntervals> RunDays(TestSystem& t, LocalSeconds first, int days) {
    std::vector<DayIntervals> out(days);
    t.frm().CheckTimeAllowed = True;
    for (int d = 0; d < days; ++d) {
        t.clock.now = FromLocalSeconds(first + d * 86400LL);
        out[d] = RunDayOnRuns(t);
    }
    return out;
}

LocalSeconds Day(int y, int m, int d) {
    return ToLocalSeconds(DateTime{y, m, d, 0, 0, 0, 0});
}

// A week across the change to summer time in Berlin. Relay 0 is on for an hour from sunset,
// relay 1 from half an hour before sunrise to 08:00 on even days only, relay 2 from 22:00 to
// sunset + 6:00, which lies past midnight and so ends at 23:59:59.
TEST(SunWeek, SunPairsFollowTheSunDayByDayWithTheDayRulesAndTheClipping) {
    const ZoneScope zone("Europe/Berlin");
    TestSystem t;
    t.mod().Location = Berlin;
    t.SetPair(0, 0, "SS", "SS+1:00");
    t.SetPair(1, 0, "sr-0:30", "08:00");
    t.relay(1).DayHrEvenOdd = "ED";
    t.SetPair(2, 0, "22:00", "SS+6:00");
    const LocalSeconds first = Day(2026, 3, 26);
    const auto week = RunDays(t, first, 7);

    int lastSunset = 0;
    for (int d = 0; d < 7; ++d) {
        const DateTime date = FromLocalSeconds(first + d * 86400LL);
        const SunDay sun = SunTimesFor(date.Year, date.Month, date.Day, Berlin);
        SCOPED_TRACE(DateText(first + d * 86400LL));
        using V = std::vector<Interval>;  // on strictly between the start and the end
        EXPECT_EQ(week[d][0], (V{{sun.Sunset + 1, sun.Sunset + 3599}}));
        EXPECT_EQ(week[d][1], (date.Day % 2 ? V{} : V{{sun.Sunrise - 1799, 8 * 3600 - 1}}));
        EXPECT_EQ(week[d][2], (V{{22 * 3600 + 1, 86398}}));
        // Each day's own sun: a minute or two later every evening, an hour later from the
        // Sunday of the change to summer time.
        const int step = sun.Sunset - lastSunset - (date.Day == 29 ? 3600 : 0);
        EXPECT_TRUE(d == 0 || (step > 0 && step < 180)) << step;
        lastSunset = sun.Sunset;
    }
    // The reference sunset of the Sunday of the change is 19:35:19.
    EXPECT_NEAR(week[3][0][0].first, 19 * 3600 + 35 * 60 + 19, 61);
}

// Without a location, and on a polar day, a sun pair stays off; the log says why once a day
// per relay, while the clock pairs of the row go on.
TEST(SunWeek, WithoutALocationOrASunsetThePairStaysOffAndTheLogSaysSoOnceADay) {
    const ZoneScope zone("Europe/Oslo");
    TempDir dir;
    TestSystem t;
    t.mod().LogFilePath = dir.Path();
    t.mod().LoggingOnOff = True;
    t.SetPair(0, 0, "SS", "SS+1:00");
    t.SetPair(0, 1, "12:00", "12:00:03");
    const auto days = RunDays(t, Day(2026, 6, 20), 2);
    t.mod().Location = GeoLocation{69.6492, 18.9553};  // Tromsø: the sun does not set
    const auto polar = RunDays(t, Day(2026, 6, 22), 1);

    for (const auto& day : {days[0], days[1], polar[0]})
        EXPECT_EQ(day[0], (std::vector<Interval>{{12 * 3600 + 1, 12 * 3600 + 2}}));
    const auto logLines = [&](const char* shortDate) {
        std::ifstream log(dir.Path() + LogFileNameForDate(shortDate));
        std::vector<std::string> lines;
        for (std::string line; std::getline(log, line);)
            if (line.find(" Sun ") != std::string::npos) lines.push_back(line);
        return lines;
    };
    for (const char* date : {"06/20/2026", "06/21/2026"}) {
        const auto lines = logLines(date);
        ASSERT_EQ(lines.size(), 1u) << date;
        EXPECT_NE(lines[0].find("Relay 1 time pair 1 (SS to SS+1:00) does not switch today: no "
                                "location is set"),
                  std::string::npos)
            << lines[0];
    }
    const auto lines = logLines("06/22/2026");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find("the sun does not set (polar day)"), std::string::npos) << lines[0];
}

}  // namespace
}  // namespace vantrellion::test
