// The mouse commands of a relay row: their effect on the record, on the row's controls and on
// the restart file.
#include <gtest/gtest.h>

#include "configuration/ProgramLocation.h"
#include "mainscreen/RowCommands.h"
#include "mainscreen/RowTestSupport.h"

namespace vantrellion::test {
namespace {

class RowCommandsTest : public RowTest {
  protected:
    bool Enabled(Control c, int i) const { return t.screen.IsEnabled(c, i); }
    // The four controls that a stop holds.
    void ExpectHeld(int i, bool held) {
        for (Control c : {Control::txtDayHrEvenOdd, Control::lblManual, Control::lblInvert,
                          Control::lblCounter})
            EXPECT_EQ(Enabled(c, i), !held) << static_cast<int>(c);
    }
};

TEST_F(RowCommandsTest, StopAndReleaseHoldTheRowAndKeepItsFlags) {
    t.relay(3).Manual = True;
    t.relay(3).CycleStart = 500;
    t.SetPair(3, 0, "08:00", "10:00");

    imgHardStop_Click(t.s, 3);
    EXPECT_EQ(t.relay(3).HardStop, True);
    EXPECT_EQ(t.relay(3).CycleStart, 0);
    ExpectHeld(3, true);
    EXPECT_EQ(t.display.totalCaption.count(3), 0u);  // the tick writes "> STOP <"
    {
        TestSystem u;
        ReadRestart(u);
        EXPECT_EQ(u.relay(3).HardStop, True);
        EXPECT_EQ(u.relay(3).Manual, True);
    }

    t.display.totalBack[3] = 0x0000FF;
    t.relay(3).CycleStart = 500;
    lblTotalTime_Click(t.s, 3);  // "> STOP <" releases the stop
    EXPECT_EQ(t.relay(3).HardStop, False);
    EXPECT_EQ(t.relay(3).CycleStart, 0);
    EXPECT_EQ(t.relay(3).Manual, True);
    ExpectHeld(3, false);
    EXPECT_EQ(t.display.totalCaption[3], "02:00:00");
    EXPECT_EQ(t.display.totalBack[3], kTTimeBk);
    EXPECT_EQ(t.frm().FileChanged, False);  // row commands do not ask for a save
    TestSystem u;
    ReadRestart(u);
    EXPECT_EQ(u.relay(3).HardStop, False);
    EXPECT_EQ(u.relay(3).Manual, True);
}

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

TEST_F(RowCommandsTest, CounterButtons) {
    t.relay(6).Count = 17;
    struct Step {
        int button;
        Flag counterOn;
        int16_t count;
        const char* caption;
    } steps[] = {
        {RightButton, False, 0, "0"},  // an inactive counter shows "0", not "Counter"
        {LeftButton, True, 0, "0"},
        {LeftButton, False, 0, "Counter"},
        {MiddleButton, False, 0, "Counter"},
    };
    for (const Step& st : steps) {
        std::remove(dir.File(RestartFileName).c_str());
        lblCounter_MouseDown(t.s, 6, st.button);
        EXPECT_EQ(t.relay(6).CounterOn, st.counterOn) << st.button;
        EXPECT_EQ(t.relay(6).Count, st.count);
        EXPECT_EQ(t.display.counterCaption[6], st.caption);
        EXPECT_TRUE(RestartWritten()) << "every button writes the restart file";
    }
    // Switching off keeps the count, switching on shows it again.
    t.relay(6).Count = 42;
    lblCounter_MouseDown(t.s, 6, LeftButton);
    EXPECT_EQ(t.display.counterCaption[6], "42");
    lblCounter_MouseDown(t.s, 6, LeftButton);
    EXPECT_EQ(t.relay(6).Count, 42);
    EXPECT_EQ(t.frm().FileChanged, False);
    TestSystem u;
    ReadRestart(u);
    EXPECT_EQ(u.relay(6).Count, 42);
    EXPECT_EQ(u.relay(6).CounterOn, False);
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

TEST_F(RowCommandsTest, ARowWithoutIconBorrowsThePathOfTheFirstRowThatHasOne) {
    t.relay(1).IconFile = "/srv/icons/first.ico";
    t.relay(4).IconFile = "/srv/other/second.ico";
    imgIDIcon_Click(t.s, 6);  // cancelled: the copy stays, without a picture
    ASSERT_EQ(t.dialogs.opened.size(), 1u);
    EXPECT_EQ(t.dialogs.opened[0].InitialDirectory, "/srv/icons/");
    EXPECT_EQ(t.dialogs.opened[0].FileName, "first.ico");
    EXPECT_EQ(t.relay(6).IconFile, "/srv/icons/first.ico");
    EXPECT_EQ(t.screen.picture.count({Control::imgIDIcon, 6}), 0u);
    EXPECT_FALSE(RestartWritten());
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

TEST_F(RowCommandsTest, MouseMovesFetchToolTipsAndLabelsEchoTheirCaption) {
    struct Case {
        Control c;
        const char* tip;
        bool echoes;
    } cases[] = {
        {Control::lblManual, "Manually turn relay ON (will not override \"STOP\")", true},
        {Control::lblInvert, "Change state of relay (ON changes to OFF)", true},
        {Control::lblTotalTime, "Total Time ON or Method ON", true},
        {Control::lblCounter, "Total Count, Input signal changes to ON", true},
        {Control::imgHardStop, "\"STOP\" and RESET this relay, (overrides ALL other settings)",
         false},
        {Control::imgIDIcon, "User selected icon, (32 x 32 & 16 x 16 only)", false},
    };
    for (const Case& c : cases) {
        t.screen.text.clear();
        EXPECT_EQ(RowControl_MouseMove(t.s, c.c, "> STOP <", ""), c.tip);
        EXPECT_EQ(t.screen.Text(Control::StatusBar1, 5), c.echoes ? "> > STOP < <" : "");
        EXPECT_EQ(RowControl_MouseMove(t.s, c.c, "x", "kept"), "kept");
    }
}

}  // namespace
}  // namespace vantrellion::test
