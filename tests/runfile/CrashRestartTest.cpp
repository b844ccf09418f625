#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstring>

#include "runfile/CrashRestart.h"
#include "runfile/RunFileSave.h"
#include "runfile/RunFileTestSupport.h"
#include "support/ChildProcess.h"

namespace vantrellion {
namespace {

using test::TempDir;
using test::TestSystem;

// The program's side of a run: each instance is a fresh System sharing one machine directory,
// as successive starts of the program on one machine do.
class CrashRestart : public ::testing::Test {
  protected:
    void Start(TestSystem& t) {
        t.s.platform.machineDirectory = dir.Path();
        t.s.modRelay.LogFilePath = dir.Path();
    }
    bool RestartFileExists() { return dir.Exists(RestartFileName); }
    std::string LogFile() { return dir.Read("Vantrellion_2026_11_16.Log"); }

    TempDir dir;
};

TEST_F(CrashRestart, AKillAfterAChangeBringsTheChangeBack) {
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // The running program: a change, its restart file, then it goes on running.
        ::close(ready[0]);
        TestSystem t;
        Start(t);
        t.s.modRelay.LoggingOnOff = True;
        t.s.frmRelay.Relay[2].DisplayName = "Greenhouse fan";
        t.s.frmRelay.Relay[2].Count = 321;
        t.s.frmRelay.Relay[2].HardStop = True;
        t.SetPair(2, 3, "06:15", "18:45");
        SaveRestartFile(t.s);
        const char done = t.messages.shown.empty() ? 'y' : 'n';
        if (::write(ready[1], &done, 1) != 1) ::_exit(2);
        for (;;)
            ::pause();
    }
    ::close(ready[1]);
    char done = 0;
    ASSERT_EQ(::read(ready[0], &done, 1), 1);
    ::close(ready[0]);
    EXPECT_EQ(done, 'y');
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);

    // The next start.
    TestSystem t;
    Start(t);
    t.clock.SetTime(3, 41, 17);
    ASSERT_TRUE(TryCrashRestart(t.s));
    const RelayRecord& fan = t.s.frmRelay.Relay[2];
    EXPECT_EQ(fan.DisplayName, "Greenhouse fan");
    EXPECT_EQ(fan.Count, 321);
    EXPECT_EQ(fan.HardStop, True);
    EXPECT_EQ(t.s.frmRelay.StartTime[PairIndex(2, 3)], "06:15");
    EXPECT_EQ(t.s.frmRelay.EndTime[PairIndex(2, 3)], "18:45");
    EXPECT_EQ(t.s.modRelay.LoggingOnOff, True);
    EXPECT_EQ(t.s.modRelay.DataFileName, "");
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(LogFile(),
              "03:41:17 11/16/2026 ReStart ****** System Crashed & Restarted ******\r\n");
    // A start neither writes nor deletes the file: a second crash before any change restores
    // the same schedule again.
    EXPECT_TRUE(RestartFileExists());
}

TEST_F(CrashRestart, ACleanExitRemovesTheFileAndTheNextStartIsNormal) {
    {
        TestSystem t;
        Start(t);
        t.s.frmRelay.Relay[0].DisplayName = "changed";
        SaveRestartFile(t.s);
        ASSERT_TRUE(RestartFileExists());
        RemoveRestartFile(t.s, dir.Path(), RestartFileName);
        EXPECT_FALSE(RestartFileExists());
        // Removing again, with nothing there, stays silent; removal does not disable the file.
        RemoveRestartFile(t.s, dir.Path(), RestartFileName);
        EXPECT_TRUE(t.messages.shown.empty());
        EXPECT_EQ(t.s.frmRelay.RestartDisabled, False);
    }
    TestSystem t;
    Start(t);
    t.s.modRelay.LoggingOnOff = True;
    EXPECT_FALSE(TryCrashRestart(t.s));
    EXPECT_EQ(t.s.frmRelay.Relay[0].DisplayName, "Relay 1");
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(LogFile(), "");
}

TEST_F(CrashRestart, AnUnreadableRestartFileShowsTheLoadMessageAndKeepsWhatWasRead) {
    dir.Write(RestartFileName, "FV.2001.05.01|.b0.r7.t5\r\n 1 \r\nHalf a relay\r\n");
    TestSystem t;
    Start(t);
    EXPECT_FALSE(TryCrashRestart(t.s));
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_EQ(t.messages.shown[0].Title, "Error Reading Run File");
    EXPECT_EQ(t.s.frmRelay.Relay[0].DisplayName, "Half a relay");
    EXPECT_EQ(LogFile(), "");

    dir.Write(RestartFileName, "not a run file\r\n");
    TestSystem u;
    Start(u);
    EXPECT_FALSE(TryCrashRestart(u.s));
    ASSERT_EQ(u.messages.shown.size(), 1u);
    EXPECT_EQ(u.messages.shown[0].Prompt, "File Load Version Error");
}

TEST_F(CrashRestart, SavingKeepsAutoRestartedWhereAPlainSaveClearsIt) {
    TestSystem t;
    Start(t);
    t.s.frmRelay.CheckTimeAllowed = True;
    for (Flag before : {True, False}) {
        t.s.frmRelay.AutoRestarted = before;
        t.timer.enabled = false;
        SaveRestartFile(t.s);
        EXPECT_EQ(t.s.frmRelay.AutoRestarted, before);
        EXPECT_TRUE(t.timer.enabled);
    }
    t.s.frmRelay.AutoRestarted = True;
    ASSERT_TRUE(SaveRunFile(t.s, dir.Path(), "mine.run"));
    EXPECT_EQ(t.s.frmRelay.AutoRestarted, False);
}

TEST_F(CrashRestart, TheMachineDirectoryIsCreatedOnFirstNeed) {
    TestSystem t;
    t.s.platform.machineDirectory = dir.Path() + "share/vantrellion/";
    SaveRestartFile(t.s);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_TRUE(dir.Exists(std::string("share/vantrellion/") + RestartFileName));
}

// A machine directory that cannot be written: a path that runs through a plain file, so that
// not even root can create it.
TEST_F(CrashRestart, AnUnwritableDirectoryWarnsOnceUntilNewOrOpen) {
    dir.Write("blocked", "");
    TestSystem t;
    t.s.platform.machineDirectory = dir.Path() + "blocked/vantrellion/";
    t.s.frmRelay.CheckTimeAllowed = True;
    const auto expectTwoMessages = [&] {
        ASSERT_EQ(t.messages.shown.size(), 2u);
        EXPECT_EQ(t.messages.shown[0].Title, "Open File Error");
        EXPECT_EQ(t.messages.shown[0].Prompt, std::strerror(ENOTDIR));
        EXPECT_EQ(t.messages.shown[1].Title, "Unable to Create Restart File!");
        EXPECT_EQ(t.messages.shown[1].Prompt, "Restart Capability will be Disabled");
        EXPECT_EQ(t.messages.shown[1].BoxIcon, Icon::Exclamation);
        EXPECT_EQ(t.messages.shown[1].ButtonSet, Buttons::OK);
    };

    t.s.frmRelay.Relay[0].DisplayName = "still here";
    SaveRestartFile(t.s);
    expectTwoMessages();
    EXPECT_EQ(t.s.frmRelay.RestartDisabled, True);
    EXPECT_TRUE(t.timer.enabled);

    // However many changes follow, nothing more is tried or shown.
    t.messages.shown.clear();
    const int changes = t.timer.changes;
    for (int n = 0; n < 5; ++n)
        SaveRestartFile(t.s);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(t.timer.changes, changes);
    EXPECT_EQ(t.s.frmRelay.Relay[0].DisplayName, "still here");

    // New or Open clears the flag: the next failure shows both messages once more.
    t.s.frmRelay.RestartDisabled = False;
    SaveRestartFile(t.s);
    expectTwoMessages();

    // Once the directory can be written, the next chance succeeds.
    t.messages.shown.clear();
    t.s.platform.machineDirectory = dir.Path();
    t.s.frmRelay.RestartDisabled = False;
    SaveRestartFile(t.s);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(t.s.frmRelay.RestartDisabled, False);
    EXPECT_TRUE(RestartFileExists());
}

TEST_F(CrashRestart, AFullDiskDisablesTheRestartFileWithTheWriteMessage) {
    // The restart file itself is the full device.
    ASSERT_EQ(::symlink("/dev/full", dir.File(RestartFileName).c_str()), 0);
    TestSystem t;
    Start(t);
    SaveRestartFile(t.s);
    ASSERT_EQ(t.messages.shown.size(), 2u);
    EXPECT_EQ(t.messages.shown[0].Title, "Error Writing Data File");
    EXPECT_EQ(t.messages.shown[0].Prompt, std::strerror(ENOSPC));
    EXPECT_EQ(t.messages.shown[1].Prompt, "Restart Capability will be Disabled");
    EXPECT_EQ(t.s.frmRelay.RestartDisabled, True);
}

}  // namespace
}  // namespace vantrellion
