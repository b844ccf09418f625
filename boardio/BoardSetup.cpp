#include "boardio/BoardSetup.h"

#include "boardio/PortAccess.h"
#include "core/FatalError.h"

namespace vantrellion {

namespace {

const BoardRecord& BoardAt(const System& s, int board) {
    if (board < 0 || board >= BoardSlots) throw FatalError(ErrSubscript, "Subscript out of range");
    return s.modRelay.Board[board];
}

void WritePort(System& s, int16_t port, int16_t value) {
    CheckedByte(s.ports().Out8255(port, value));
}

}  // namespace

uint8_t PortInitBoard(System& s, int16_t base, int16_t input, int16_t cntl, int16_t config,
                      int /*board*/, int /*relay*/) {
    if (s.modRelay.RunNoBoards != 0) return 0;
    // A board without a control register, or without a value for it, is left entirely alone:
    // its relays keep their state through a start until the first tick takes them over.
    if (cntl == 0 || config == 0) return 0;
    WritePort(s, cntl, config);
    // Programming the control register drops the data ports; they start from 0.
    if (base != 0) WritePort(s, base, 0);
    if (input != 0) WritePort(s, input, 0);
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
    // One final write of 0 to the output port of each board that allows it, a base of 0 like
    // any other. In emulation no real port is ever touched: the program may run without the
    // board, and whatever sits at that address is not ours; the emulated byte is cleared.
    for (int board = 0; board <= LastBoard; ++board) {
        const BoardRecord& b = BoardAt(s, board);
        if (b.ResetOnExit == 0) continue;
        if (s.modRelay.RunNoBoards != 0) {
            EmulatedOutputByte(s, b.BaseAddress) = 0;
        } else {
            WritePort(s, b.BaseAddress, 0);
        }
    }
}

}  // namespace vantrellion
