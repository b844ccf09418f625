// New, Open, Save and Save As, with the dialogs answered from a script.
#include <gtest/gtest.h>

#include "mainscreen/FileCommands.h"
#include "runfile/CrashRestart.h"
#include "runfile/RunFileSave.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

class FileCommandsTest : public ::testing::Test {
  protected:
    TestSystem t;
    TempDir dir;
    void SetUp() override {
        t.s.platform.machineDirectory = dir.Path();
        t.frm().CheckTimeAllowed = True;
        t.frm().RowsShown = True;
    }
    // A file of the oldest version: no logging line, no Count or HardStop in the blocks.
    std::string OldVersionFile() {
        std::string out = "FV20000424\r\n";
        for (int i = 0; i < 8; ++i) {
            out += "Old " + std::to_string(i) + "\r\nAll Days\r\nEO\r\n 0 \r\n 0 \r\n 0 \r\n\r\n";
            for (int p = 0; p < 6; ++p)
                out += p == 0 ? "08:00\r\n09:00\r\n" : "\r\n\r\n";
        }
        return out;
    }
    bool RestartFileExists() { return dir.Exists(RestartFileName); }
};

// Cancel (or Escape) on "Save File?" stops New, Open and a recent file, and keeps the schedule
// with its changes.
TEST_F(FileCommandsTest, CancelOnSaveFileKeepsTheSchedule) {
    for (int command = 0; command < 3; ++command) {
        TestSystem u;
        u.s.platform.machineDirectory = dir.Path();
        u.frm().CheckTimeAllowed = True;
        u.SetPair(0, 0, "08:00", "09:00");
        u.mod().DataFileName = "x.run";
        u.frm().FileChanged = True;
        u.messages.answers = {Answer::Cancel};
        if (command == 0) mnuFileNew(u.s);
        if (command == 1) mnuFileOpen(u.s);
        if (command == 2) {
            EXPECT_FALSE(mnuMRUFiles(u.s, dir.File("other.run")));
        }
        ASSERT_EQ(u.messages.shown.size(), 1u);
        EXPECT_EQ(u.messages.shown[0].Prompt, "Save File?");
        EXPECT_EQ(u.messages.shown[0].DefaultButton, 2);
        EXPECT_EQ(u.frm().StartTime[0], "08:00");
        EXPECT_EQ(u.mod().DataFileName, "x.run");
        EXPECT_EQ(u.frm().FileChanged, True);
        EXPECT_TRUE(u.dialogs.opened.empty());
        EXPECT_TRUE(u.timer.enabled);
    }
}

TEST_F(FileCommandsTest, OpenCancelledLeavesScheduleAndResumesTheTick) {
    t.SetPair(0, 0, "08:00", "09:00");
    t.dialogs.answers = {std::nullopt};
    mnuFileOpen(t.s);
    ASSERT_EQ(t.dialogs.opened.size(), 1u);
    const FileDialogRequest& d = t.dialogs.opened[0];
    EXPECT_EQ(d.Title, "Select Time-Schedule");
    EXPECT_EQ(d.Filter, "Run File (*.run)|*.run|All files (*)|*");
    EXPECT_EQ(d.Flags, 0x81000);
    EXPECT_EQ(t.frm().StartTime[0], "08:00");
    EXPECT_TRUE(t.timer.enabled);
}

TEST_F(FileCommandsTest, OpenOfOldVersionThenSaveWritesCurrentVersion) {
    dir.Write("old.run", OldVersionFile());
    t.relay(0).Count = 7;
    t.dialogs.answers = {dir.File("old.run")};
    mnuFileOpen(t.s);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(t.mod().DataFilePath, dir.Path());
    EXPECT_EQ(t.mod().DataFileName, "old.run");
    EXPECT_EQ(t.relay(3).DisplayName, "Old 3");
    EXPECT_EQ(t.frm().StartTime[PairIndex(3, 0)], "08:00");
    EXPECT_EQ(t.relay(0).Count, 0);
    EXPECT_EQ(t.screen.title, dir.Path() + "old.run");
    EXPECT_TRUE((t.screen.enabled[{Control::mnuFileSave, 0}]));
    EXPECT_TRUE(t.timer.enabled);
    EXPECT_TRUE(RestartFileExists());

    t.frm().FileChanged = True;  // a plain Save leaves the flag: exit asks again
    mnuFileSave(t.s);
    EXPECT_EQ(dir.Read("old.run").substr(0, 25), "FV.2001.05.01|.b0.r7.t5\r\n");
    EXPECT_EQ(t.frm().FileChanged, True);
}

TEST_F(FileCommandsTest, OpenOfDamagedFileGivesANewSchedule) {
    dir.Write("bad.run", "this is no schedule\r\n");
    t.SetPair(2, 0, "08:00", "09:00");
    t.dialogs.answers = {dir.File("bad.run")};
    mnuFileOpen(t.s);
    ASSERT_FALSE(t.messages.shown.empty());
    EXPECT_EQ(t.messages.shown.back().Prompt,
              "New, error encountered loading selected Run-Schedule");
    EXPECT_EQ(t.messages.shown.back().Title, "Vantrellion");
    EXPECT_EQ(t.frm().StartTime[PairIndex(2, 0)], "");
    EXPECT_EQ(t.mod().DataFileName, "");
    EXPECT_EQ(t.screen.title, "New");
    EXPECT_TRUE(t.timer.enabled);
}

TEST_F(FileCommandsTest, SaveAsChoosesTheNameAndCancelChangesNothing) {
    t.frm().FileChanged = True;
    t.dialogs.answers = {std::nullopt};
    mnuFileSaveAs(t.s);
    ASSERT_EQ(t.dialogs.saved.size(), 1u);
    EXPECT_EQ(t.dialogs.saved[0].Title, "Save Time-Schedule as");
    EXPECT_EQ(t.dialogs.saved[0].Filter, "Run File (*.run)|*.run|Text File (*.txt)|*.txt");
    EXPECT_EQ(t.dialogs.saved[0].Flags, 2);
    EXPECT_EQ(t.frm().FileChanged, True);

    t.frm().AutoRestarted = True;
    t.dialogs.answers = {dir.File("new.txt")};
    mnuFileSaveAs(t.s);
    EXPECT_TRUE(dir.Exists("new.txt"));
    EXPECT_EQ(t.mod().DataFileName, "new.txt");
    EXPECT_EQ(t.frm().FileChanged, 0);
    EXPECT_EQ(t.frm().AutoRestarted, 0);
    EXPECT_EQ(t.screen.title, dir.Path() + "new.txt");

    // A name typed without an extension is saved as a Run File.
    t.dialogs.answers = {dir.File("week")};
    mnuFileSaveAs(t.s);
    EXPECT_TRUE(dir.Exists("week.run"));
    EXPECT_EQ(t.mod().DataFileName, "week.run");
}

TEST_F(FileCommandsTest, AskToSaveWithoutANameOpensSaveAs) {
    t.messages.answers = {Answer::Yes};
    t.dialogs.answers = {dir.File("asked.run")};
    EXPECT_EQ(FormAskFileSaveCancel(t.s, dir.Path(), ""), 0);
    EXPECT_TRUE(dir.Exists("asked.run"));
    t.messages.answers = {Answer::Cancel};
    EXPECT_EQ(FormAskFileSaveCancel(t.s, dir.Path(), "asked.run"), 2);
    t.messages.answers = {Answer::No};
    EXPECT_EQ(FormAskFileSaveCancel(t.s, dir.Path(), "asked.run"), 0);
}

TEST(SplitChosenFileName, PathKeepsItsSeparator) {
    TestSystem t;
    SplitChosenFileName(t.s, "/home/u/runs/garden.run");
    EXPECT_EQ(t.mod().DataFilePath, "/home/u/runs/");
    EXPECT_EQ(t.mod().DataFileName, "garden.run");
}

}  // namespace
}  // namespace vantrellion::test
