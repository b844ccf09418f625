// The main screen's refill, title and menus, icons and status hints, without a window.
#include <gtest/gtest.h>

#include "boardio/BoardSet.h"
#include "mainscreen/LoadRowIcons.h"
#include "mainscreen/RefreshTitleAndMenus.h"
#include "mainscreen/RowRefill.h"
#include "mainscreen/StatusHint.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

class MainScreenTest : public ::testing::Test {
  protected:
    TestSystem t;
    TempDir dir;
    void SetUp() override { t.s.platform.machineDirectory = dir.Path(); }
    std::string Text(Control c, int i = 0) { return t.screen.Text(c, i); }
};

TEST_F(MainScreenTest, TitleFollowsRestartFileAndNew) {
    RefreshTitleAndMenus(t.s);
    EXPECT_EQ(t.screen.title, "New");
    EXPECT_FALSE((t.screen.enabled[{Control::mnuFileSave, 0}]));

    t.mod().DataFilePath = "/home/u/runs/";
    t.mod().DataFileName = "garden.run";
    RefreshTitleAndMenus(t.s);
    EXPECT_EQ(t.screen.title, "/home/u/runs/garden.run");
    EXPECT_TRUE((t.screen.enabled[{Control::mnuFileSave, 0}]));

    t.frm().AutoRestarted = True;
    RefreshTitleAndMenus(t.s);
    EXPECT_EQ(t.screen.title, "AUTOMATIC RESTART following System Crash");
    EXPECT_FALSE((t.screen.enabled[{Control::mnuFileSave, 0}]));
}

TEST_F(MainScreenTest, EmulationRuleAndAddressReadOut) {
    t.mod().RunNoBoards = False;
    RefreshTitleAndMenus(t.s);
    EXPECT_EQ(t.mod().RunNoBoards, 0);
    EXPECT_EQ(Text(Control::mnuDisplayAddress), "   B1@H300");
    EXPECT_EQ(Text(Control::mnuToolRunNoBoards), "Emulation Mode (Currently Running with Boards)");
    EXPECT_FALSE((t.screen.checked[{Control::mnuToolRunNoBoards, 0}]));
    EXPECT_TRUE((t.screen.enabled[{Control::mnuStateDisplayInput, 0}]));

    // No board address at all forces emulation whatever the flag says.
    for (auto& b : t.mod().Board)
        b.BaseAddress = 0;
    RefreshTitleAndMenus(t.s);
    EXPECT_EQ(t.mod().RunNoBoards, True);
    EXPECT_EQ(Text(Control::mnuDisplayAddress), "Currently Running in Emulation Mode");
    EXPECT_EQ(Text(Control::mnuToolRunNoBoards),
              "Emulation Mode (Currently Running in Emulation Mode)");
    EXPECT_TRUE((t.screen.checked[{Control::mnuToolRunNoBoards, 0}]));
    EXPECT_FALSE((t.screen.enabled[{Control::mnuStateDisplayInput, 0}]));

    // A board on a connection of its own runs with boards whatever its port address.
    BoardSet boards;
    t.s.platform.boards = &boards;
    boards.SetConnection(0, "modbus-tcp://127.0.0.1:1502?unit=1");
    t.mod().RunNoBoards = False;
    RefreshTitleAndMenus(t.s);
    EXPECT_EQ(t.mod().RunNoBoards, 0);
    EXPECT_EQ(Text(Control::mnuDisplayAddress), "   B1 modbus-tcp://127.0.0.1:1502?unit=1");
    t.s.platform.boards = nullptr;
    // Boards 2 to 4 are greyed in every case.
    for (int n = 1; n <= 3; ++n) {
        EXPECT_FALSE((t.screen.enabled[{Control::mnuStateManualBoard, n}]));
        EXPECT_FALSE((t.screen.enabled[{Control::mnuStateDisplayState, n}]));
    }
}

TEST_F(MainScreenTest, RowsFilledFromRecords) {
    ResetRowVisuals(t.s);
    EXPECT_EQ(Text(Control::txtStartTime, 5), " ");
    EXPECT_EQ(Text(Control::lblTotalTime, 3), "00:00:00");
    t.relay(2).Manual = True;
    t.relay(4).HardStop = True;
    t.SetPair(1, 0, "08:00", "09:30");
    t.frm().RowsShown = True;
    FillRowsFromRecords(t.s);
    EXPECT_EQ(t.frm().RowsShown, True);
    EXPECT_EQ(Text(Control::txtStartTime, 5), "");  // a new schedule writes the empty text
    EXPECT_EQ(Text(Control::txtDaysOfWeek, 0), "All Days");
    EXPECT_EQ(Text(Control::txtDayHrEvenOdd, 0), "EO");
    EXPECT_EQ(Text(Control::txtDisplayName, 7), "Relay 8");
    EXPECT_EQ(Text(Control::txtStartTime, PairIndex(1, 0)), "08:00");
    EXPECT_EQ(t.relay(1).TotalTime, "01:30:00");
    EXPECT_EQ(Text(Control::lblTotalTime, 2), "Manual");
    for (Control c :
         {Control::txtDayHrEvenOdd, Control::lblManual, Control::lblInvert, Control::lblCounter}) {
        EXPECT_FALSE(t.screen.IsEnabled(c, 4));
        EXPECT_TRUE(t.screen.IsEnabled(c, 3));
    }
}

// New or Open after a schedule with a stopped row and a row icon of its own: every row is
// editable again and shows its built-in icon until the new schedule's icon replaces it.
TEST_F(MainScreenTest, RowResetUndoesTheLastSchedulesStopAndIcon) {
    t.relay(4).HardStop = True;
    FillRowsFromRecords(t.s);
    t.screen.picture[{Control::imgIDIcon, 4}] = "/old/pump.ico";
    t.relay(4).HardStop = False;
    ResetRowVisuals(t.s);
    for (Control c :
         {Control::txtDayHrEvenOdd, Control::lblManual, Control::lblInvert, Control::lblCounter})
        EXPECT_TRUE(t.screen.IsEnabled(c, 4));
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ((t.screen.picture[{Control::imgIDIcon, i}]), "res:" + std::to_string(121 + i));
}

}  // namespace
}  // namespace vantrellion::test
