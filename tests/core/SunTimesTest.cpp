#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "core/ScheduleText.h"
#include "core/SunTimes.h"
#include "support/ZoneScope.h"

namespace vantrellion::test {
namespace {

int Seconds(const std::string& hms) {
    return std::stoi(hms.substr(0, 2)) * 3600 + std::stoi(hms.substr(3, 2)) * 60 +
           std::stoi(hms.substr(6, 2));
}

// Every place and date of the committed table, worked out independently of this code: the
// phase must agree and each time lie within a minute, in the place's own zone.
TEST(SunTimes, AgreeWithTheReferenceTableWithinAMinute) {
    std::ifstream table(VANTRELLION_TEST_DATA "/SunReferenceTimes.csv");
    ASSERT_TRUE(table) << "reference table missing";
    std::string line;
    int rows = 0, polar = 0;
    while (std::getline(table, line)) {
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> f;
        std::stringstream fields(line);
        for (std::string v; std::getline(fields, v, ',');)
            f.push_back(v);
        ASSERT_EQ(f.size(), 7u) << line;
        const ZoneScope zone(f[3]);
        const GeoLocation place{std::stod(f[1]), std::stod(f[2])};
        const SunDay sun = SunTimesFor(std::stoi(f[4].substr(0, 4)), std::stoi(f[4].substr(5, 2)),
                                       std::stoi(f[4].substr(8, 2)), place);
        ++rows;
        if (f[5] == "polar day" || f[5] == "polar night") {
            ++polar;
            EXPECT_EQ(sun.Phase, f[5] == "polar day" ? SunPhase::PolarDay : SunPhase::PolarNight)
                << line;
            continue;
        }
        ASSERT_EQ(sun.Phase, SunPhase::RisesAndSets) << line;
        EXPECT_NEAR(sun.Sunrise, Seconds(f[5]), 60) << line;
        EXPECT_NEAR(sun.Sunset, Seconds(f[6]), 60) << line;
    }
    EXPECT_GE(rows, 40);
    EXPECT_GE(polar, 4);
}

// An offset stays on the event's day: past midnight it holds at 00:00:00 or 23:59:59. A day
// without the event gives no time at all, whatever the offset.
TEST(SunTimes, OffsetsAcrossMidnightClipAndPolarDaysGiveNoTime) {
    const SunDay berlinSummer{SunPhase::RisesAndSets, 4 * 3600 + 43 * 60, 21 * 3600 + 33 * 60};
    const auto at = [&](const char* text) {
        return SunTimeOnDay(*ParseSunTime(text), berlinSummer);
    };
    EXPECT_EQ(at("SS+1:00"), 22 * 3600 + 33 * 60);
    EXPECT_EQ(at("SS+2:26"), 86400 - 60);
    EXPECT_EQ(at("SS+3:00"), 86399);
    EXPECT_EQ(at("SR-4:43"), 0);
    EXPECT_EQ(at("SR-5:00"), 0);
    EXPECT_EQ(at("sr+0:00"), 4 * 3600 + 43 * 60);
    for (SunPhase phase : {SunPhase::PolarDay, SunPhase::PolarNight})
        for (const char* text : {"SR", "SS-1:00", "SS+23:59"})
            EXPECT_FALSE(SunTimeOnDay(*ParseSunTime(text), SunDay{phase, 0, 0}).has_value());

    // Both sides clipped to 23:59:59 make a pair that never switches, as equal times do.
    const TimeField start("SS+3:00"), end("SS+4:00");
    EXPECT_EQ(start.SecondsOn(&berlinSummer), end.SecondsOn(&berlinSummer));
    EXPECT_FALSE(start.SecondsOn(nullptr).has_value());
}

}  // namespace
}  // namespace vantrellion::test
