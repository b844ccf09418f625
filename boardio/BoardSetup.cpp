#include "boardio/BoardSetup.h"

#include "boardio/BoardSet.h"
#include "boardio/PortAccess.h"
#include "core/FatalError.h"

namespace vantrellion {

namespace {

const BoardRecord& BoardAt(const System& s, int board) {
    if (board < 0 || board >= BoardSlots) throw FatalError(ErrSubscript, "Subscript out of range");
    return s.modRelay.Board[board];
}

}  // namespace

// The board's driver does what set-up the board needs: the port library writes the control
// register; the emulated board and the boards opened from a connection need none here.
uint8_t PortInitBoard(System& s, int16_t base, int16_t input, int16_t cntl, int16_t config,
                      int board, int /*relay*/) {
    std::unique_ptr<BoardLink> transient;
    BoardLinkFor(s, board, {base, input, cntl, config}, transient).SetUp();
    return 0;
}

void InitBoard(System& s, int board, int relay) {
    const BoardRecord& b = BoardAt(s, board);
    PortInitBoard(s, b.BaseAddress, b.InputAddress, b.CntlAddress, b.PortConfigValue, board, relay);
}

void InitAllBoards(System& s) {
    for (int board = 0; board <= LastBoard; ++board)
        InitBoard(s, board, 0);
}

void SetAllRelays(System& s) {
    for (int board = 0; board <= LastBoard; ++board) {
        for (int relay = 0; relay <= LastRelay; ++relay) {
            SetRelayOn(s, board, relay);
            s.frmRelay.Relay[RecordIndex(board, relay)].CycleStart = 0;
            WaitStepDelay(s);
        }
    }
}

void ResetAllRelays(System& s) {
    for (int board = 0; board <= LastBoard; ++board) {
        // In emulation every board is cleared; with real boards only those that allow it.
        if ((BoardAt(s, board).ResetOnExit | s.modRelay.RunNoBoards) == 0) continue;
        for (int relay = 0; relay <= LastRelay; ++relay) {
            SetRelayOff(s, board, relay);
            s.frmRelay.Relay[RecordIndex(board, relay)].CycleStart = 0;
            WaitStepDelay(s);
        }
    }
}

void ClearOutputPorts(System& s) {
    // One final write of 0 to the outputs of each board that allows it, through its driver.
    for (int board = 0; board <= LastBoard; ++board) {
        const BoardRecord& b = BoardAt(s, board);
        if (b.ResetOnExit == 0) continue;
        std::unique_ptr<BoardLink> transient;
        BoardLinkFor(s, board, {b.BaseAddress, b.InputAddress, b.CntlAddress, b.PortConfigValue},
                     transient)
            .ClearAtExit();
    }
}

}  // namespace vantrellion
