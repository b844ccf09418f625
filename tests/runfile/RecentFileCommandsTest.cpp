// What the File commands tell the recent files list, and opening a file of the list.
#include <gtest/gtest.h>

#include "core/RecentFiles.h"
#include "core/ResetRelayRecords.h"
#include "mainscreen/FileCommands.h"
#include "runfile/CrashRestart.h"
#include "runfile/RunFileSave.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

class RecordingRecentFiles : public RecentFiles {
  public:
    std::vector<std::string> used;
    std::string last;
    void FileUsed(const std::string& name) override { used.push_back(name); }
    std::string MostRecent() override { return last; }
};

TEST(RecentFileCommands, OnlyAnOpenedOrSavedAsFileIsTold) {
    TestSystem t;
    TempDir dir;
    RecordingRecentFiles recent;
    t.s.platform.machineDirectory = dir.Path();
    t.s.platform.recentFiles = &recent;
    t.frm().CheckTimeAllowed = True;

    t.dialogs.answers = {std::nullopt, dir.File("saved.run")};
    mnuFileSaveAs(t.s);  // cancelled
    mnuFileSaveAs(t.s);
    dir.Write("bad.run", "no schedule\r\n");
    t.dialogs.answers = {std::nullopt, dir.File("bad.run"), dir.File("saved.run")};
    mnuFileOpen(t.s);  // cancelled
    mnuFileOpen(t.s);  // does not load
    mnuFileOpen(t.s);
    mnuFileSave(t.s);  // a plain save under the same name
    EXPECT_EQ(recent.used,
              (std::vector<std::string>{dir.File("saved.run"), dir.File("saved.run")}));
}

TEST(RecentFileCommands, OpeningAnEntryAsksToSaveThenLoadsOrFails) {
    TestSystem t;
    TempDir dir;
    t.s.platform.machineDirectory = dir.Path();
    t.frm().CheckTimeAllowed = True;
    t.SetPair(3, 0, "08:00", "09:00");
    SaveRunFile(t.s, dir.Path(), "week.run");
    t.SetPair(3, 0, "10:00", "11:00");
    t.frm().FileChanged = True;

    t.messages.answers = {Answer::No};
    EXPECT_TRUE(mnuMRUFiles(t.s, dir.File("week.run")));
    EXPECT_EQ(t.messages.shown.at(0).Prompt, "Save File?");
    EXPECT_EQ(t.frm().StartTime[PairIndex(3, 0)], "08:00");
    EXPECT_EQ(t.mod().DataFileName, "week.run");
    EXPECT_TRUE(t.dialogs.opened.empty());
    EXPECT_TRUE(t.timer.enabled);

    EXPECT_FALSE(mnuMRUFiles(t.s, dir.File("gone.run")));
    EXPECT_EQ(t.messages.shown.back().Prompt,
              "New, error encountered loading selected Run-Schedule");
    EXPECT_EQ(t.frm().StartTime[PairIndex(3, 0)], "");
}

// A start without a restart file takes up the first recent file, logged as an Open; a file
// that is gone or damaged leaves the schedule New, with one message that names it.
TEST(RecentFileCommands, TheLastFileComesBackAtAStartOnlyWhenItLoadsCleanly) {
    TestSystem t;
    TempDir dir;
    RecordingRecentFiles recent;
    t.s.platform.machineDirectory = dir.Path();
    t.s.platform.recentFiles = &recent;
    t.mod().LoggingOnOff = True;
    t.mod().LogFilePath = dir.Path();
    t.SetPair(3, 0, "08:00", "09:00");
    SaveRunFile(t.s, dir.Path(), "week.run");
    dir.Write("bad.run", "no schedule\r\n");
    ResetRelayRecords(t.s);
    t.mod().DataFileName = "";

    recent.last = dir.File("week.run");
    ReopenLastRunFile(t.s);
    EXPECT_EQ(t.frm().StartTime[PairIndex(3, 0)], "08:00");
    EXPECT_EQ(t.mod().DataFileName, "week.run");
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_NE(dir.Read(RestartFileName).find("08:00"), std::string::npos);
    EXPECT_NE(dir.Read("Vantrellion_2026_11_16.Log").find(" Open " + dir.Path() + "/week.run"),
              std::string::npos);

    for (const char* name : {"gone.run", "bad.run"}) {
        t.messages.shown.clear();
        ResetRelayRecords(t.s);
        t.mod().DataFileName = "";
        recent.last = dir.File(name);
        ReopenLastRunFile(t.s);
        EXPECT_EQ(t.mod().DataFileName, "");
        EXPECT_EQ(t.frm().StartTime[PairIndex(3, 0)], "");
        ASSERT_EQ(t.messages.shown.size(), 1u) << name;
        EXPECT_NE(t.messages.shown[0].Prompt.find(dir.File(name)), std::string::npos);
    }
}

}  // namespace
}  // namespace vantrellion::test
