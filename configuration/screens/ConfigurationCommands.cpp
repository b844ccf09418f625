#include "configuration/screens/ConfigurationCommands.h"

#include <array>

#include "boardio/BoardSetup.h"
#include "configuration/clsConfiguration.h"
#include "core/CheckTimeControl.h"
#include "mainscreen/RefreshTitleAndMenus.h"
#include "mainscreen/RowRefill.h"

namespace vantrellion {

namespace {

// An old address of 0 is kept as this, so that it never equals the value after the screens.
constexpr int16_t kZeroSnapshot = 9999;

struct AddressSnapshot {
    int16_t Base, Input, Cntl, Config;
};

int16_t Snapshot(int16_t v) {
    return v == 0 ? kZeroSnapshot : v;
}

void LetPendingInputRun(System& s) {
    if (s.pump().InputPending()) s.pump().ProcessPendingEvents();
}

}  // namespace

bool FileMenuUsesSmallScreens(int heightTwips, int widthTwips) {
    return heightTwips < FirstRunSmallScreenTwips && widthTwips < MenuSmallScreenWidthTwips;
}

void mnuFileConfiguration(System& s, ConfigurationScreens& screens) {
    const CheckTimeHold hold(s);
    LetPendingInputRun(s);

    // The screens reload the store when an edit is discarded and fill empty names with the
    // defaults when they save; the stored last Run File need not be the schedule on screen
    // (after New, a failed Open, a crash restart). The title and File > Save must go on naming
    // the file the schedule came from, so the schedule's own file is kept across the screens.
    const std::string dataFilePath = s.modRelay.DataFilePath;
    const std::string dataFileName = s.modRelay.DataFileName;

    std::array<AddressSnapshot, BoardSlots> before{};
    for (int b = 0; b < BoardSlots; ++b) {
        const BoardRecord& board = s.modRelay.Board[b];
        before[b] = {Snapshot(board.BaseAddress), Snapshot(board.InputAddress),
                     Snapshot(board.CntlAddress), Snapshot(board.PortConfigValue)};
    }

    if (FileMenuUsesSmallScreens(screens.ScreenHeightTwips(), screens.ScreenWidthTwips())) {
        screens.ShowConfigBoards();
        screens.ShowConfigColors();
    } else {
        screens.ShowConfiguration();
    }

    s.modRelay.DataFilePath = dataFilePath;
    s.modRelay.DataFileName = dataFileName;
    screens.RepaintMainScreen();
    LetPendingInputRun(s);

    // The only place where a configuration change reaches the ports: a changed chip type, name
    // or colour does not.
    for (int b = 0; b <= LastBoard; ++b) {
        const BoardRecord& board = s.modRelay.Board[b];
        if (board.BaseAddress != before[b].Base || board.InputAddress != before[b].Input ||
            board.CntlAddress != before[b].Cntl || board.PortConfigValue != before[b].Config)
            PortInitBoard(s, board.BaseAddress, board.InputAddress, board.CntlAddress,
                          board.PortConfigValue, b, 0);
    }

    ApplyConfigurationColors(s);
    RefreshTitleAndMenus(s);
}

void ApplyConfigurationColors(System& s) {
    for (int b = 0; b <= LastBoard; ++b)
        for (int r = 0; r <= LastRelay; ++r) {
            const int i = RecordIndex(b, r);
            s.screen().SetBackColor(Control::txtDisplayName, i, s.modRelay.ColorNameBkgrnd);
            s.screen().SetBackColor(Control::lblTotalTime, i, s.modRelay.ColorTTimeBkgrnd);
        }
    ApplyRelayGroupColors(s);
}

void mnuFileConfigurationRemove(System& s) {
    const CheckTimeHold hold(s);
    const Answer answer =
        s.Message(MessageBoxRequest{"You are about to completely remove all\r\n"
                                    "Configuration information for Vantrellion\r\n\r\n"
                                    "Do you really want to continue?",
                                    Buttons::OKCancel, Icon::None, 2, "Confirm Removal"});
    if (answer != Answer::OK) return;
    ConfigurationDeleteFromReg(s);
    ConfigurationDeleteLastPos(s);
}

}  // namespace vantrellion
