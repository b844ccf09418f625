// The command line: a run that reads names and colours from the store and writes every output
// asked for.
#include <gtest/gtest.h>

#include <sstream>

#include "configuration/KeyValueStore.h"
#include "configuration/MachineLocation.h"
#include "configuration/clsConfiguration.h"
#include "preview/PreviewCommand.h"
#include "preview/PreviewReport.h"
#include "runfile/RunFileSave.h"
#include "support/Fakes.h"
#include "support/TempDir.h"
#include "support/ZoneScope.h"

namespace vantrellion::test {
namespace {

struct Outcome {
    int status;
    std::string out, err;
};

struct CommandFixture {
    TempDir dir;
    std::vector<std::string> pictures;  // "png:<path>" and "svg:<path>" as asked for
    PreviewEnvironment env;

    CommandFixture() {
        env.MachineDirectory = dir.File("machine/");
        env.Now = ToLocalSeconds({2026, 11, 23, 7, 30, 0, 2});
        env.TickNow = 5000;
        env.WritePng = [this](const Timeline& t, const std::string& path) {
            pictures.push_back("png:" + path + ":" + std::to_string(t.Lanes.size()));
            return path.find("/no/") == std::string::npos;
        };
        env.WriteSvg = [this](const Timeline& t, const std::string& path) {
            pictures.push_back("svg:" + path + ":" + std::to_string(t.Lanes.size()));
            return true;
        };
    }
    Outcome Run(const std::vector<std::string>& args) {
        std::ostringstream out, err;
        const int status = RunPreviewCommand(args, env, out, err);
        return {status, out.str(), err.str()};
    }
    // A schedule saved by the program itself: relay 1 "Pump" 08:00 to 09:00, relay 2
    // without a display name of its own.
    std::string SaveSchedule() {
        TestSystem t;
        t.relay(0).DisplayName = "Pump";
        t.relay(1).DisplayName = "";
        t.SetPair(0, 0, "08:00", "09:00");
        EXPECT_TRUE(SaveRunFile(t.s, dir.Path(), "pump.run"));
        return dir.File("pump.run");
    }
};

TEST(PreviewCommand, PrintsOnTimesAndWritesEveryOutputWithNamesFromTheStore) {
    CommandFixture f;
    const std::string runFile = f.SaveSchedule();
    {
        // A stored configuration naming relay 2, whose display name the schedule leaves blank.
        TestSystem t;
        KeyValueStore store(f.env.MachineDirectory + "store.db");
        t.s.platform.store = &store;
        t.s.modRelay.Board[0].RelayName[1] = "Valve";
        ConfigurationSaveToReg(t.s);
    }
    const std::string csv = f.dir.File("out.csv");
    const Outcome o = f.Run({runFile, "--days", "2", "--csv", csv, "--png", f.dir.File("w.png"),
                             "--svg", f.dir.File("w.svg")});
    EXPECT_EQ(o.status, PreviewExitOk) << o.err;
    EXPECT_EQ(o.err, "");
    EXPECT_EQ(f.Run({"--version"}).out,
              std::string("vantrellion-preview ") + ProgramVersionText + "\n");
    // From now (07:30) for two days: the first day's hour is whole, the third day's is not
    // reached.
    EXPECT_NE(o.out.find("Preview from 2026-11-23 07:30:00 to 2026-11-25 07:30:00"),
              std::string::npos)
        << o.out;
    EXPECT_NE(o.out.find("2026-11-23   0:59:59"), std::string::npos) << o.out;
    EXPECT_NE(o.out.find("2026-11-25   0:00:00"), std::string::npos) << o.out;
    EXPECT_NE(o.out.find("  R1  Pump\n  R2  Valve\n  R3  Relay 3\n"), std::string::npos) << o.out;
    const std::string written = f.dir.Read("out.csv");
    EXPECT_NE(written.find("2026-11-23 08:00:01,R1,Pump,on\r\n2026-11-23 09:00:00,R1,Pump,off\r\n"),
              std::string::npos)
        << written;
    EXPECT_EQ(f.pictures, (std::vector<std::string>{"png:" + f.dir.File("w.png") + ":8",
                                                    "svg:" + f.dir.File("w.svg") + ":8"}));

    // An output that cannot be written fails the run, after the table is printed.
    const Outcome bad = f.Run(
        {runFile, "--days", "1", "--csv", f.dir.File("no/x.csv"), "--png", f.dir.File("no/x.png")});
    EXPECT_EQ(bad.status, PreviewExitFileError);
    EXPECT_NE(bad.out.find("On-time per day"), std::string::npos);
    EXPECT_EQ(bad.err, "vantrellion-preview: cannot write the switch times to \"" +
                           f.dir.File("no/x.csv") +
                           "\"\nvantrellion-preview: cannot write the picture to \"" +
                           f.dir.File("no/x.png") + "\"\n");
}

TEST(PreviewCommand, SaysWhatIsWrongWithAFileAddsExtensionsAndRefusesOneFileTwice) {
    CommandFixture f;
    const std::string runFile = f.SaveSchedule();
    // Line 6, relay 1's Manual flag, made no number: version, Logging, name, days, code, Manual.
    std::string damaged = f.dir.Read("pump.run");
    size_t line6 = 0;
    for (int n = 0; n < 5; ++n)
        line6 = damaged.find("\r\n", line6) + 2;
    damaged.replace(line6, damaged.find("\r\n", line6) - line6, "x");
    f.dir.Write("damaged.run", damaged);
    f.dir.Write("notes.txt", "shopping list\r\n");
    const std::pair<std::string, std::string> bad[] = {
        {f.dir.File("none.run"), "\"" + f.dir.File("none.run") + "\" does not exist"},
        {f.dir.File("notes.txt"), "\"" + f.dir.File("notes.txt") +
                                      "\" is not a Run File: its first line is \"shopping list\", "
                                      "where a Run File begins with its version, such as "
                                      "\"FV.2001.05.01\""},
        {f.dir.File("damaged.run"), "\"" + f.dir.File("damaged.run") +
                                        "\" is damaged at line 6, which holds relay 1's Manual "
                                        "flag: it should be a number"},
    };
    for (const auto& [file, said] : bad) {
        const Outcome o = f.Run({file});
        EXPECT_EQ(o.status, PreviewExitFileError) << file;
        EXPECT_EQ(o.err, "vantrellion-preview: " + said + "\n");
    }

    // Names without an extension get the type's; a start typed as a date alone is midnight.
    f.pictures.clear();
    Outcome o = f.Run({runFile, "--from", "2026-11-23", "--days", "1", "--csv", f.dir.File("week"),
                       "--png", f.dir.File("week"), "--svg", f.dir.File("week.old")});
    EXPECT_EQ(o.status, PreviewExitOk) << o.err;
    EXPECT_NE(o.out.find("Preview from 2026-11-23 00:00:00"), std::string::npos);
    EXPECT_NE(f.dir.Read("week.csv").find(",R1,Pump,on\r\n"), std::string::npos);
    EXPECT_EQ(f.pictures, (std::vector<std::string>{"png:" + f.dir.File("week.png") + ":8",
                                                    "svg:" + f.dir.File("week.old") + ":8"}));
    // Two outputs naming one file, once its extension is added, are refused.
    o = f.Run({runFile, "--csv", f.dir.File("a.png"), "--png", f.dir.File("a")});
    EXPECT_EQ(o.status, PreviewExitUsage);
    EXPECT_EQ(
        o.err.substr(0, o.err.find('\n')),
        "vantrellion-preview: --csv and --png name the same file \"" + f.dir.File("a.png") + "\"");
}

// Sun times day by day: relay 1 on at sunset and off an hour later in Berlin, at the location
// given on the command line or else the store's; a polar day is told as the reason it is off.
TEST(PreviewCommand, ComputesSunTimesForEachDayAtTheGivenOrStoredLocation) {
    const ZoneScope zone("Europe/Berlin");
    CommandFixture f;
    {
        TestSystem t;
        t.SetPair(0, 0, "SS", "SS+1:00");
        ASSERT_TRUE(SaveRunFile(t.s, f.dir.Path(), "sun.run"));
    }
    const std::string runFile = f.dir.File("sun.run");
    // The first "on" and the next "off" of R1 in the CSV, as seconds of the day.
    const auto onOff = [&](const std::string& csv) {
        const std::string text = f.dir.Read(csv);
        const size_t on = text.find(",R1,Relay 1,on");
        const size_t off = text.find(",R1,Relay 1,off", on);
        EXPECT_NE(off, std::string::npos) << text;
        const auto secs = [&](size_t end) {
            const std::string hms = text.substr(end - 8, 8);
            return std::stoi(hms.substr(0, 2)) * 3600 + std::stoi(hms.substr(3, 2)) * 60 +
                   std::stoi(hms.substr(6, 2));
        };
        return std::pair{secs(on), secs(off)};
    };
    const struct {
        const char* from;
        int sunset;
    } days[] = {{"2026-06-21 00:00:00", 21 * 3600 + 33 * 60}, {"2026-12-21", 15 * 3600 + 54 * 60}};
    for (const auto& d : days) {
        const Outcome o = f.Run({runFile, "--location", "52.52,13.405", "--from", d.from, "--days",
                                 "1", "--csv", f.dir.File("sun.csv")});
        ASSERT_EQ(o.status, PreviewExitOk) << o.err;
        const auto [on, off] = onOff("sun.csv");
        EXPECT_NEAR(on, d.sunset, 60) << d.from;
        EXPECT_EQ(off - on, 3599);  // on after SS, off from SS+1:00
    }

    // No location anywhere: the pair is off, and the table says why. The store's location
    // then serves, and a polar day on the command line is told.
    Outcome o = f.Run({runFile, "--from", "2026-06-21", "--days", "2"});
    EXPECT_NE(o.out.find("time pair 1 (SS to SS+1:00) does not switch on 2 days from "
                         "2026-06-21 to 2026-06-22: no location is set"),
              std::string::npos)
        << o.out;
    {
        TestSystem t;
        KeyValueStore store(f.env.MachineDirectory + "store.db");
        t.s.platform.store = &store;
        ConfigurationSaveToReg(t.s);
        ASSERT_TRUE(SaveMachineLocation(t.s, {" 52.52", "13.405"}));
    }
    o = f.Run({runFile, "--from", "2026-06-21", "--days", "1", "--csv", f.dir.File("store.csv")});
    EXPECT_NEAR(onOff("store.csv").first, 21 * 3600 + 33 * 60, 60) << o.out;
    o = f.Run({runFile, "--from", "2026-06-21", "--days", "1", "--location", "69.65,18.96"});
    EXPECT_NE(o.out.find("does not switch on 2026-06-21: the sun does not set (polar day)"),
              std::string::npos)
        << o.out;
    for (const char* bad : {"52.52", "91,0", "0,181", "x,1", "52.52;13.4"})
        EXPECT_EQ(f.Run({runFile, "--location", bad}).status, PreviewExitUsage) << bad;
}

}  // namespace
}  // namespace vantrellion::test
