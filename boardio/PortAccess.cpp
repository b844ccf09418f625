#include "boardio/PortAccess.h"

#include <string>

#include "boardio/BoardSet.h"
#include "core/FatalError.h"

namespace vantrellion {

namespace {

[[noreturn]] void SubscriptOutOfRange() {
    throw FatalError(ErrSubscript, "Subscript out of range");
}

const BoardRecord& BoardAt(const System& s, int board) {
    if (board < 0 || board >= BoardSlots) SubscriptOutOfRange();
    return s.modRelay.Board[board];
}

// Sets or clears the bits of a relay's mask by a read-modify-write of the board's outputs.
uint8_t ChangeBit(System& s, const BoardAddresses& a, int board, int relay, bool on) {
    std::unique_ptr<BoardLink> transient;
    BoardLink& link = BoardLinkFor(s, board, a, transient);
    if (!link.HasOutputs()) return 0;
    const int mask = GetANDOR(s, relay);
    const uint8_t v = link.ReadForChange().value;
    link.WriteOutputs(static_cast<uint8_t>(on ? v | mask : v & ~mask));
    return 0;
}

}  // namespace

// Board 0 is compared first, so a base shared with it is always board 0's.
uint8_t& EmulatedOutputByte(System& s, int16_t base) {
    for (int b = 0; b < BoardSlots; ++b) {
        if (base == s.modRelay.Board[b].BaseAddress) {
            if (b > LastBoard) SubscriptOutOfRange();
            return s.frmRelay.EmulatedPort[b];
        }
    }
    return s.frmRelay.EmulatedOtherPort;
}

// A board's inputs mirror its relays, so that a counter can be tried out without a board.
// Unlike the output read, an address that is no board's input reads 0 rather than the
// catch-all byte.
uint8_t EmulatedInputByte(const System& s, int16_t input) {
    for (int b = 0; b <= LastBoard; ++b)
        if (input == s.modRelay.Board[b].InputAddress) return s.frmRelay.EmulatedPort[b];
    return 0;
}

int16_t GetANDOR(System& s, int r) {
    if (r >= 0 && r <= 7) return static_cast<int16_t>(1 << r);
    s.Message(MessageBoxRequest{.Prompt = "GetANDOR Error, Relay#:" + std::to_string(r),
                                .ButtonSet = Buttons::OK});
    return 0;
}

void WaitStepDelay(System& s) {
    if (s.modRelay.StepDelay != 2000) return;
    // A processor loop on purpose: its length follows the speed of the machine. Every round
    // touches a volatile counter, so the optimiser keeps all 2001 x 2001 of them.
    volatile int32_t rounds = 0;
    for (int outer = 0; outer <= 2000; ++outer) {
        for (int inner = 0; inner <= 2000; ++inner)
            rounds = rounds + 1;
    }
}

uint8_t PortSetBit(System& s, int16_t base, int16_t input, int16_t cntl, int16_t config, int board,
                   int relay) {
    return ChangeBit(s, {base, input, cntl, config}, board, relay, true);
}

uint8_t PortClearBit(System& s, int16_t base, int16_t input, int16_t cntl, int16_t config,
                     int board, int relay) {
    return ChangeBit(s, {base, input, cntl, config}, board, relay, false);
}

uint8_t PortReadOutput(System& s, int16_t base, int16_t input, int16_t cntl, int16_t config,
                       int board, int /*relay*/) {
    std::unique_ptr<BoardLink> transient;
    BoardLink& link = BoardLinkFor(s, board, {base, input, cntl, config}, transient);
    return link.HasOutputs() ? link.ReadOutputs().value : 0;
}

uint8_t PortReadInput(System& s, int16_t base, int16_t input, int16_t cntl, int16_t config,
                      int board, int /*relay*/) {
    std::unique_ptr<BoardLink> transient;
    BoardLink& link = BoardLinkFor(s, board, {base, input, cntl, config}, transient);
    return link.HasInputs() ? link.ReadInputs().value : 0;
}

void SetRelayOn(System& s, int board, int relay) {
    const BoardRecord& b = BoardAt(s, board);
    PortSetBit(s, b.BaseAddress, b.InputAddress, b.CntlAddress, b.PortConfigValue, board, relay);
}

void SetRelayOff(System& s, int board, int relay) {
    const BoardRecord& b = BoardAt(s, board);
    PortClearBit(s, b.BaseAddress, b.InputAddress, b.CntlAddress, b.PortConfigValue, board, relay);
}

PortBytes ReadRelayPorts(System& s) {
    PortBytes bytes{};
    for (int board = 0; board <= LastBoard; ++board) {
        const BoardRecord& b = BoardAt(s, board);
        bytes[board] = PortReadOutput(s, b.BaseAddress, b.InputAddress, b.CntlAddress,
                                      b.PortConfigValue, board, 0);
    }
    return bytes;
}

PortBytes ReadInputPorts(System& s) {
    PortBytes bytes{};
    for (int board = 0; board <= LastBoard; ++board) {
        const BoardRecord& b = BoardAt(s, board);
        bytes[board] = PortReadInput(s, b.BaseAddress, b.InputAddress, b.CntlAddress,
                                     b.PortConfigValue, board, 0);
    }
    return bytes;
}

}  // namespace vantrellion
