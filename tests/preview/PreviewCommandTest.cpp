// The command line: refusals with their messages and exit status, and a run that reads names
// and colours from the store and writes every output asked for.
#include <gtest/gtest.h>

#include <sstream>

#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"
#include "preview/PreviewCommand.h"
#include "preview/PreviewReport.h"
#include "runfile/RunFileSave.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

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

TEST(PreviewCommand, RefusesBadArgumentsAndUnreadableFiles) {
    CommandFixture f;
    const std::string good = f.SaveSchedule();
    f.dir.Write("damaged.run", "FV.1999.01.01\r\n");
    struct Case {
        std::vector<std::string> args;
        int status;
        std::string message;  // the first line of the error output
    };
    const std::vector<Case> cases = {
        {{}, PreviewExitUsage, "vantrellion-preview: no Run File given"},
        {{good, "--from", "2026-11-31 00:00:00"},
         PreviewExitUsage,
         "vantrellion-preview: bad date \"2026-11-31 00:00:00\" for --from: give "
         "\"YYYY-MM-DD HH:MM:SS\""},
        {{good, "--from", "tomorrow"},
         PreviewExitUsage,
         "vantrellion-preview: bad date \"tomorrow\" for --from: give \"YYYY-MM-DD HH:MM:SS\""},
        {{good, "--days"}, PreviewExitUsage, "vantrellion-preview: option --days needs a value"},
        {{good, "--days", "0"},
         PreviewExitUsage,
         "vantrellion-preview: bad number of days \"0\": give 1 to 3660"},
        {{good, "--days", "7x"},
         PreviewExitUsage,
         "vantrellion-preview: bad number of days \"7x\": give 1 to 3660"},
        {{good, "--weeks", "2"}, PreviewExitUsage, "vantrellion-preview: unknown option --weeks"},
        {{good, good},
         PreviewExitUsage,
         "vantrellion-preview: only one Run File can be previewed, \"" + good + "\" is a second"},
        {{f.dir.File("missing.run")},
         PreviewExitFileError,
         "vantrellion-preview: cannot read \"" + f.dir.File("missing.run") + "\": no such file"},
        {{f.dir.Path()},
         PreviewExitFileError,
         "vantrellion-preview: cannot read \"" + f.dir.Path() + "\": no such file"},
        {{f.dir.File("damaged.run")},
         PreviewExitFileError,
         "vantrellion-preview: Select a Current File: File Load Version Error"},
    };
    for (const Case& c : cases) {
        const Outcome o = f.Run(c.args);
        EXPECT_EQ(o.status, c.status) << c.message;
        EXPECT_EQ(o.err.substr(0, o.err.find('\n')), c.message);
        EXPECT_EQ(o.out, "") << c.message;
    }
    // A usage error shows how to call the program; so does --help, on the output.
    EXPECT_NE(f.Run({}).err.find("usage: vantrellion-preview RUNFILE"), std::string::npos);
    const Outcome help = f.Run({"--help"});
    EXPECT_EQ(help.status, PreviewExitOk);
    EXPECT_EQ(help.out.rfind("usage: vantrellion-preview RUNFILE", 0), 0u);
    EXPECT_EQ(f.Run({"--version"}).out,
              std::string("vantrellion-preview ") + ProgramVersionText + "\n");
    EXPECT_EQ(f.pictures.size(), 0u);
}

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
    // From now (07:30) for two days: the first day's hour is whole, the third day's is not
    // reached.
    EXPECT_NE(o.out.find("Preview from 2026-11-23 07:30:00 to 2026-11-25 07:30:00"),
              std::string::npos)
        << o.out;
    EXPECT_NE(o.out.find("2026-11-23   0:59:59"), std::string::npos) << o.out;
    EXPECT_NE(o.out.find("2026-11-25   0:00:00"), std::string::npos) << o.out;
    EXPECT_NE(o.out.find("  1  Pump\n  2  Valve\n  3  Relay 3\n"), std::string::npos) << o.out;
    const std::string written = f.dir.Read("out.csv");
    EXPECT_NE(written.find("2026-11-23 08:00:01,1,Pump,on\n2026-11-23 09:00:00,1,Pump,off\n"),
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

}  // namespace
}  // namespace vantrellion::test
