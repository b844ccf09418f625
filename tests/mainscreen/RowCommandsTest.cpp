// The mouse commands of a relay row: their effect on the record, on the row's controls and on
// the restart file.
#include <gtest/gtest.h>

#include "configuration/ProgramLocation.h"
#include "mainscreen/RowCommands.h"
#include "mainscreen/RowTestSupport.h"

namespace vantrellion::test {
namespace {

class RowCommandsTest : public RowTest {};

TEST_F(RowCommandsTest, TheTotalOfARunningRowIgnoresClicks) {
    t.relay(2).HardStop = 1;  // true is -1 only
    lblTotalTime_Click(t.s, 2);
    EXPECT_EQ(t.relay(2).HardStop, 1);
    t.relay(2).HardStop = False;
    lblTotalTime_Click(t.s, 2);
    EXPECT_EQ(t.relay(2).HardStop, False);
    EXPECT_FALSE(RestartWritten());
    EXPECT_TRUE(t.display.totalCaption.empty());
}

TEST_F(RowCommandsTest, ManualAndInvertToggleAndOnlyManualRestartsTheCycle) {
    t.SetPair(5, 2, "08:00", "08:30");
    t.relay(5).CycleStart = 700;
    lblManual_Click(t.s, 5);
    EXPECT_EQ(t.relay(5).Manual, True);
    EXPECT_EQ(t.relay(5).CycleStart, 0);
    t.relay(5).CycleStart = 700;
    lblManual_Click(t.s, 5);
    EXPECT_EQ(t.relay(5).Manual, False);
    EXPECT_EQ(t.relay(5).CycleStart, 0);
    EXPECT_EQ(t.display.totalCaption[5], "00:30:00");

    t.display.totalCaption.clear();
    t.relay(5).CycleStart = 700;
    lblInvert_Click(t.s, 5);
    EXPECT_EQ(t.relay(5).Invert, True);
    EXPECT_TRUE(t.display.totalCaption.empty());
    {
        TestSystem u;
        ReadRestart(u);
        EXPECT_EQ(u.relay(5).Invert, True);
    }
    lblInvert_Click(t.s, 5);
    EXPECT_EQ(t.relay(5).Invert, False);
    EXPECT_EQ(t.relay(5).CycleStart, 700);
    EXPECT_EQ(t.display.totalCaption[5], "00:30:00");
    EXPECT_EQ(t.frm().FileChanged, False);
    TestSystem u;
    ReadRestart(u);
    EXPECT_EQ(u.relay(5).Invert, False);
}

TEST_F(RowCommandsTest, InvertIsIgnoredOnANumericCode) {
    for (const char* code : {"5", "00", "-3"}) {
        for (Flag invert : {False, True}) {
            TestSystem u;
            u.s.platform.machineDirectory = dir.Path();
            u.relay(1).DayHrEvenOdd = code;
            u.relay(1).Invert = invert;
            lblInvert_Click(u.s, 1);
            EXPECT_EQ(u.relay(1).Invert, invert) << code;
            EXPECT_FALSE(RestartWritten()) << code;
        }
    }
    // An empty code is not numeric.
    t.relay(1).DayHrEvenOdd = "";
    lblInvert_Click(t.s, 1);
    EXPECT_EQ(t.relay(1).Invert, True);
}

TEST_F(RowCommandsTest, IconDialogStartsFromTheRowTheRunFileOrTheProgram) {
    struct Case {
        const char* rowIcon;
        const char* dataFilePath;
        std::string directory, file;
    } cases[] = {
        {"/home/u/icons/pump.ico", "/home/u/runs/", "/home/u/icons/", "pump.ico"},
        {"pump.ico", "/home/u/runs/", "", "pump.ico"},
        {"", "/home/u/runs/", "/home/u/runs/", ""},
        {"", "", ProgramDirectory(), ""},
    };
    for (const Case& c : cases) {
        TestSystem u;
        u.s.platform.machineDirectory = dir.Path();
        u.relay(2).IconFile = c.rowIcon;
        u.mod().DataFilePath = c.dataFilePath;
        imgIDIcon_Click(u.s, 2);  // cancelled
        ASSERT_EQ(u.dialogs.opened.size(), 1u);
        const FileDialogRequest& r = u.dialogs.opened[0];
        EXPECT_EQ(r.Title, "Select Icon");
        EXPECT_EQ(r.Filter,
                  "Icons (*.ico)|*.ico|Pictures (*.jpg)|*.jpg|Pictures (*.bmp)|*.bmp|"
                  "Pictures (*.gif)|*.gif|All File (*.*)|*.*");
        EXPECT_EQ(r.Flags, 0x80000);
        EXPECT_EQ(r.InitialDirectory, c.directory) << c.rowIcon;
        EXPECT_EQ(r.FileName, c.file);
        EXPECT_EQ(u.relay(2).IconFile, c.rowIcon);
        EXPECT_EQ(u.frm().FileChanged, False);
        EXPECT_FALSE(RestartWritten());
    }
}

TEST_F(RowCommandsTest, AChosenIconIsShownStoredAndMarksTheFileChanged) {
    t.screen.unreadable["/srv/broken.gif"] = true;
    for (const char* file : {"/srv/icons/fan.ico", "/srv/broken.gif"}) {
        t.dialogs.answers.push_back(std::string(file));
        imgIDIcon_Click(t.s, 0);
        EXPECT_EQ(t.relay(0).IconFile, file);  // kept also when it cannot be shown
        EXPECT_EQ(t.frm().FileChanged, True);
        EXPECT_TRUE(t.messages.shown.empty());
        TestSystem u;
        ReadRestart(u);
        EXPECT_EQ(u.relay(0).IconFile, file);
    }
    EXPECT_EQ((t.screen.picture[{Control::imgIDIcon, 0}]), "/srv/icons/fan.ico");
}

}  // namespace
}  // namespace vantrellion::test
