// Days off and pauses through the real tick: the chosen relays stay off, Manual and Hard Stop
// still act, a pause ends by itself or early with its log lines, and both survive a crash.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "core/DateTimeText.h"
#include "core/ResetRelayRecords.h"
#include "engine/Tick.h"
#include "mainscreen/DaysOffEditor.h"
#include "mainscreen/PauseSchedule.h"
#include "runfile/CrashRestart.h"
#include "support/Fakes.h"
#include "support/TempDir.h"
#include "support/ZoneScope.h"

namespace vantrellion::test {
namespace {

LocalSeconds At(const char* text) {
    return *ParseDateTimeText(text);
}

// The relay port after one tick at `when`.
int PortAt(TestSystem& t, LocalSeconds when) {
    t.clock.now = FromLocalSeconds(when);
    t.clock.tick += 1000;
    CheckTimeTick(t.s);
    return t.ports.bytes[0x300];
}

void Prepare(TestSystem& t, const TempDir& dir) {
    t.frm().CheckTimeAllowed = True;
    t.s.platform.machineDirectory = dir.Path();
    t.mod().LogFilePath = dir.Path();
    t.mod().LoggingOnOff = True;
    t.mod().Location = GeoLocation{52.52, 13.405};  // Berlin
}

std::string LogText(const TempDir& dir) {
    std::string all;
    for (const auto& e : std::filesystem::directory_iterator(dir.Path()))
        if (e.path().extension() == ".Log") all += TempDir::ReadFile(e.path());
    return all;
}

TEST(DaysOffAndPause, DaysOffHoldChosenRelaysOffWhileManualAndHardStopStillAct) {
    TempDir dir;
    TestSystem t;
    Prepare(t, dir);
    for (int i = 0; i < 5; ++i)
        t.SetPair(i, 0, "08:00", "20:00");
    t.relay(2).Manual = True;
    t.relay(3).HardStop = True;
    t.relay(4).Invert = True;  // inverted: on outside its pair, so on all of a plain day off
    DaysOffEditor e(t.s);
    EXPECT_FALSE(e.Add({"2026-08-01", "", false, 0, ""}));
    EXPECT_FALSE(e.Add({"2026-02-30", "", false, 1, ""}));
    EXPECT_FALSE(e.Add({"2026-08-03", "2026-08-01", false, 1, ""}));
    EXPECT_EQ(t.messages.shown.size(), 3u);
    ASSERT_TRUE(e.Add({"2026-08-01", "2026-08-03", false, 0b11101, "Ferien"}));
    ASSERT_TRUE(e.Add({"2025-12-31", "2026-01-01", true, 0b1, ""}));  // over the new year
    EXPECT_EQ(e.EntryText(1), "12-31 to 01-01 every year: relays 1");
    e.Apply();
    EXPECT_EQ(t.frm().FileChanged, True);

    // Relay 1 (not chosen) follows its schedule; 2 is held on by Manual; 3 by Hard Stop off.
    EXPECT_EQ(PortAt(t, At("2026-08-02 12:00")), 0b00110);
    EXPECT_EQ(t.display.totalCaption[0], "Day off");
    EXPECT_EQ(t.display.totalCaption[2], ">Manual<");
    EXPECT_EQ(t.display.totalCaption[3], "> STOP <");
    EXPECT_EQ(PortAt(t, At("2026-08-04 12:00")), 0b00111);
    EXPECT_EQ(PortAt(t, At("2026-07-31 21:00")), 0b10100);
    EXPECT_EQ(PortAt(t, At("2030-01-01 12:00")), 0b00110);
    EXPECT_EQ(PortAt(t, At("2029-12-31 21:00")), 0b10100);
    EXPECT_EQ(PortAt(t, At("2030-12-30 12:00")), 0b00111);
}

TEST(DaysOffAndPause, PauseForHoursOrUntilEndsByItselfOrEarlyWithLogLines) {
    TempDir dir;
    TestSystem t;
    Prepare(t, dir);
    t.SetPair(0, 0, "08:00", "20:00");
    t.SetPair(1, 0, "08:00", "20:00");
    EXPECT_EQ(PortAt(t, At("2026-06-22 09:00")), 0b11);
    PauseSchedulePresenter p(t.s);
    EXPECT_FALSE(p.Apply({0, true, "2", ""}));
    EXPECT_FALSE(p.Apply({1, true, "0", ""}));
    EXPECT_FALSE(p.Apply({1, false, "", "2026-06-22 08:00"}));
    EXPECT_EQ(t.messages.shown.size(), 3u);
    ASSERT_TRUE(p.Apply({0b01, true, "1.5", ""}));
    ASSERT_TRUE(p.Apply({0b10, false, "", "2026-06-23 09:30"}));
    EXPECT_EQ(t.display.totalCaption[0], "Paused until 10:30");
    EXPECT_EQ(t.display.totalCaption[1], "Paused until 06-23 09:30");
    EXPECT_EQ(PortAt(t, At("2026-06-22 09:00:01")), 0);
    t.relay(0).Manual = True;  // Manual still acts on a paused relay
    EXPECT_EQ(PortAt(t, At("2026-06-22 09:00:02")), 0b01);
    t.relay(0).Manual = False;
    EXPECT_EQ(PortAt(t, At("2026-06-22 10:29:59")), 0);
    EXPECT_EQ(PortAt(t, At("2026-06-22 10:30:00")), 0b01);  // ends by itself
    EXPECT_EQ(t.frm().Holds.PausedUntil[0], 0);
    mnuStateEndPause(t.s);
    EXPECT_EQ(PortAt(t, At("2026-06-22 10:30:01")), 0b11);
    mnuStateEndPause(t.s);
    EXPECT_EQ(t.messages.shown.back().Prompt, "No relay is paused.");

    const std::string log = LogText(dir);
    const std::vector<std::string> lines = {
        "Pause Relay 1 paused until 2026-06-22 10:30:00 \"Relay 1\"",
        "Pause Relay 2 paused until 2026-06-23 09:30:00 \"Relay 2\"",
        "Resume Relay 1 follows its schedule again \"Relay 1\"",
        "Resume Relay 2 pause ended early \"Relay 2\""};
    size_t at = 0;
    for (const std::string& line : lines) {
        at = log.find(line, at);
        EXPECT_NE(at, std::string::npos) << line << "\n" << log;
    }
}

// Relay 3 runs from sunrise to sunset (04:43 to 21:33 in Berlin that week: 17 of the hourly
// samples at half past), and shares relay 1's day off.
TEST(DaysOffAndPause, AWeekThroughTheEngineWithADayOffAndAPauseAcrossARestart) {
    const ZoneScope zone("Europe/Berlin");
    TempDir dir;
    auto t = std::make_unique<TestSystem>();
    Prepare(*t, dir);
    t->SetPair(0, 0, "08:00", "20:00");
    t->SetPair(1, 0, "08:00", "20:00");
    t->SetPair(2, 0, "SR", "SS");
    DaysOffEditor e(t->s);
    ASSERT_TRUE(e.Add({"2026-06-23", "", false, 0b101, ""}));
    e.Apply();

    std::array<std::array<int, 7>, 3> hoursOn{};
    for (int d = 0; d < 7; ++d) {
        const LocalSeconds day = At("2026-06-22") + d * 86400;
        if (d == 3) {  // a crash at midnight: a new program takes the restart file
            t = std::make_unique<TestSystem>();
            Prepare(*t, dir);
            ResetRelayRecords(t->s);
            ASSERT_TRUE(TryCrashRestart(t->s));
        }
        for (int h = 0; h < 24; ++h) {
            if (d == 2 && h == 9) {
                t->clock.now = FromLocalSeconds(day + 9 * 3600);
                ASSERT_TRUE(PauseSchedulePresenter(t->s).Apply({0b10, true, "48", ""}));
            }
            const int port = PortAt(*t, day + h * 3600 + 1800);
            for (int r = 0; r < 3; ++r)
                hoursOn[r][d] += port >> r & 1;
        }
    }
    EXPECT_EQ(hoursOn[0], (std::array<int, 7>{12, 0, 12, 12, 12, 12, 12}));
    EXPECT_EQ(hoursOn[1], (std::array<int, 7>{12, 12, 1, 0, 11, 12, 12}));
    EXPECT_EQ(hoursOn[2], (std::array<int, 7>{17, 0, 17, 17, 17, 17, 17}));
}

}  // namespace
}  // namespace vantrellion::test
