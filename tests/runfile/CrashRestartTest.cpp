#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstring>

#include "engine/Tick.h"
#include "runfile/CrashRestart.h"
#include "runfile/RunFileSave.h"
#include "runfile/RunFileTestSupport.h"
#include "support/ChildProcess.h"

namespace vantrellion {
namespace {

using test::TestSystem;

// Title and text of each box shown, a line each.
std::string Said(const test::FakeMessages& messages) {
    std::string out;
    for (const MessageBoxRequest& box : messages.shown)
        out += box.Title + ": " + box.Prompt + "\n";
    return out;
}

// The program's side of a run: each instance is a fresh System sharing one machine directory,
// as successive starts of the program on one machine do.
class CrashRestart : public ::testing::Test {
  protected:
    void Start(TestSystem& t) {
        t.s.platform.machineDirectory = dir.Path();
        t.s.modRelay.LogFilePath = dir.Path();
        t.s.frmRelay.CheckTimeAllowed = True;
    }
    bool RestartFileExists() { return dir.Exists(RestartFileName); }
    std::string LogFile() { return dir.Read("Vantrellion_2026_11_16.Log"); }

    test::TempDir dir;
};

TEST_F(CrashRestart, AKillAfterAChangeBringsTheChangeBack) {
    const auto change = [](TestSystem& t) {
        t.s.modRelay.LoggingOnOff = True;
        RelayRecord& fan = t.s.frmRelay.Relay[2];
        fan.DisplayName = "Greenhouse fan";
        fan.Count = 321;
        fan.HardStop = True;
        t.SetPair(2, 3, "06:15", "18:45");
    };
    // The running program: a change, its restart file, and then it is killed.
    const int ended = test::RunInChild([&] {
        TestSystem t;
        Start(t);
        change(t);
        SaveRestartFile(t.s);
        if (!t.messages.shown.empty()) return 1;
        ::kill(::getpid(), SIGKILL);
        return 2;
    });
    ASSERT_EQ(ended, 128 + SIGKILL);

    // The next start.
    TestSystem t, want;
    Start(t);
    t.clock.SetTime(3, 41, 17);
    ASSERT_TRUE(TryCrashRestart(t.s));
    change(want);
    test::ExpectSameSchedule(t.s, want.s);
    EXPECT_EQ(t.s.modRelay.DataFileName, "");
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(LogFile(),
              "03:41:17 11/16/2026 ReStart ****** System Crashed & Restarted ******\r\n");
    // A start neither writes nor deletes the file: a second crash before any change restores
    // the same schedule again.
    EXPECT_TRUE(RestartFileExists());
}

// Saving the restart file keeps AutoRestarted, where a plain save clears it. A clean exit's
// removal, done twice, is silent the second time, and the next start is a normal one.
TEST_F(CrashRestart, SavingKeepsAutoRestartedAndAfterRemovalTheStartIsNormal) {
    TestSystem t;
    Start(t);
    t.s.modRelay.LoggingOnOff = True;
    t.s.frmRelay.Relay[0].DisplayName = "changed";
    t.s.frmRelay.AutoRestarted = True;
    t.timer.enabled = false;
    SaveRestartFile(t.s);
    EXPECT_EQ(t.s.frmRelay.AutoRestarted, True);
    EXPECT_TRUE(t.timer.enabled);
    ASSERT_TRUE(RestartFileExists());
    RemoveRestartFile(t.s, dir.Path(), RestartFileName);
    RemoveRestartFile(t.s, dir.Path(), RestartFileName);
    EXPECT_FALSE(RestartFileExists());
    EXPECT_EQ(t.s.frmRelay.RestartDisabled, False);

    EXPECT_FALSE(TryCrashRestart(t.s));
    EXPECT_EQ(t.s.frmRelay.Relay[0].DisplayName, "changed");
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(LogFile(), "");
}

TEST_F(CrashRestart, AnUnreadableRestartFileShowsTheLoadMessageAndKeepsWhatWasRead) {
    const struct {
        std::string bytes, said, name;
    } cases[] = {
        {"FV.2001.05.01|.b0.r7.t5\r\n 1 \r\nHalf a relay\r\n",
         "Error Reading Run File: Input past end of file\n", "Half a relay"},
        {"not a run file\r\n", "Select a Current File: File Load Version Error\n", "Relay 1"},
    };
    for (const auto& c : cases) {
        dir.Write(RestartFileName, c.bytes);
        TestSystem t;
        Start(t);
        EXPECT_FALSE(TryCrashRestart(t.s));
        EXPECT_EQ(Said(t.messages), c.said);
        EXPECT_EQ(t.s.frmRelay.Relay[0].DisplayName, c.name);
        EXPECT_EQ(LogFile(), "");
    }
}

// A restart file with texts that field entry would refuse (written by hand, or damaged) starts
// the program at every start: the fields are named once per start and run as blank, and the
// ticks go on and log.
TEST_F(CrashRestart, FieldsThatEntryWouldRefuseAreLoadedBlankAtEveryStart) {
    {
        TestSystem writer;
        Start(writer);
        writer.s.modRelay.LoggingOnOff = True;
        writer.s.frmRelay.Relay[4].DisplayName = "Pump";
        writer.SetPair(4, 0, "07:00", "09:00");
        writer.SetPair(4, 1, "10:00", "11:00");
        writer.s.frmRelay.StartTime[PairIndex(4, 0)] = "8:00 xm";
        writer.s.frmRelay.Relay[5].DayHrEvenOdd = "999999";
        writer.SetPair(5, 0, "10:00", "11:00");
        SaveRestartFile(writer.s);
    }
    for (int start = 0; start < 2; ++start) {
        TestSystem t;
        Start(t);
        ASSERT_TRUE(TryCrashRestart(t.s));
        ASSERT_EQ(t.messages.shown.size(), 1u);
        const std::string said = t.messages.shown[0].Prompt;
        EXPECT_NE(said.find(dir.File(RestartFileName)), std::string::npos);
        EXPECT_NE(said.find("Relay 5 \"Pump\", Start Time 1: \"8:00 xm\""), std::string::npos);
        EXPECT_NE(said.find("Relay 6 \"Relay 6\", Even/Odd: \"999999\""), std::string::npos);
        EXPECT_EQ(t.s.frmRelay.StartTime[PairIndex(4, 0)], "");
        EXPECT_EQ(t.s.frmRelay.Relay[5].DayHrEvenOdd, "");
        for (int minute = 30; minute < 33; ++minute) {
            t.clock.SetTime(10, minute, 0);
            CheckTimeTick(t.s);
        }
        EXPECT_EQ(t.s.frmRelay.Relay[4].OldState, 1);  // the rest of its schedule runs
        EXPECT_EQ(t.s.frmRelay.Relay[5].OldState, 1);  // a plain pair now
        EXPECT_NE(LogFile().find("10:32:00 "), std::string::npos) << LogFile();
    }
}

TEST_F(CrashRestart, TheMachineDirectoryIsCreatedOnFirstNeed) {
    TestSystem t;
    t.s.platform.machineDirectory = dir.Path() + "share/vantrellion/";
    SaveRestartFile(t.s);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_TRUE(dir.Exists(std::string("share/vantrellion/") + RestartFileName));
}

// A failed write shows its own message and then the restart file's, once: nothing more is
// tried or shown until New or Open clears RestartDisabled.
TEST_F(CrashRestart, AFailedWriteWarnsOnceUntilNewOrOpen) {
    dir.Write("blocked", "");
    ASSERT_EQ(::mkdir(dir.File("full").c_str(), 0700), 0);
    ASSERT_EQ(::symlink("/dev/full", (dir.File("full/") + RestartFileName).c_str()), 0);
    const std::string disabled =
        "\nUnable to Create Restart File!: Restart Capability will be Disabled\n";
    const struct {
        std::string directory, said;
    } cases[] = {
        // A path that runs through a plain file, so that not even root can create it.
        {dir.Path() + "blocked/vantrellion/",
         "Open File Error: " + std::string(std::strerror(ENOTDIR)) + disabled},
        // The restart file itself is the full device.
        {dir.File("full/"),
         "Error Writing Data File: " + std::string(std::strerror(ENOSPC)) + disabled},
    };
    for (const auto& c : cases) {
        TestSystem t;
        Start(t);
        t.s.platform.machineDirectory = c.directory;
        t.s.frmRelay.Relay[0].DisplayName = "still here";
        for (int round = 0; round < 2; ++round) {
            SaveRestartFile(t.s);
            EXPECT_EQ(Said(t.messages), c.said);
            EXPECT_EQ(t.messages.shown.back().BoxIcon, Icon::Exclamation);
            EXPECT_EQ(t.messages.shown.back().ButtonSet, Buttons::OK);
            EXPECT_EQ(t.s.frmRelay.RestartDisabled, True);
            EXPECT_TRUE(t.timer.enabled);

            t.messages.shown.clear();
            const int changes = t.timer.changes;
            for (int n = 0; n < 5; ++n)
                SaveRestartFile(t.s);
            EXPECT_TRUE(t.messages.shown.empty());
            EXPECT_EQ(t.timer.changes, changes);
            EXPECT_EQ(t.s.frmRelay.Relay[0].DisplayName, "still here");
            t.s.frmRelay.RestartDisabled = False;  // as New or Open do
        }
        // Once the directory can be written, the next chance succeeds.
        t.s.platform.machineDirectory = dir.Path();
        SaveRestartFile(t.s);
        EXPECT_TRUE(t.messages.shown.empty());
        EXPECT_EQ(t.s.frmRelay.RestartDisabled, False);
    }
    EXPECT_TRUE(RestartFileExists());
}

}  // namespace
}  // namespace vantrellion
