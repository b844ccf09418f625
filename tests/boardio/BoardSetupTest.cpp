#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "boardio/BoardSetup.h"
#include "core/FatalError.h"
#include "support/Fakes.h"

namespace vantrellion {
namespace {

using test::SimulatedPorts;
using test::TestSystem;
using Access = SimulatedPorts::Access;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

constexpr int16_t kBase = 0x300;
constexpr int16_t kInput = 0x301;
constexpr int16_t kCntl = 0x303;

// A read or a write of a port, and the value that went through.
const auto R = [](int16_t port, int v) { return Access{false, port, static_cast<int16_t>(v)}; };
const auto W = [](int16_t port, int v) { return Access{true, port, static_cast<int16_t>(v)}; };

TEST(PortInitBoard, WritesTheControlRegisterThenDropsTheDataPorts) {
    struct Case {
        const char* name;
        Flag runNoBoards;
        int16_t base, input, cntl, config;
        std::vector<Access> writes;
    };
    const Case cases[] = {
        {"all set", False, kBase, kInput, kCntl, 0x80, {W(kCntl, 0x80), W(kBase, 0), W(kInput, 0)}},
        {"no base", False, 0, kInput, kCntl, 0x9B, {W(kCntl, 0x9B), W(kInput, 0)}},
        {"no input", False, kBase, 0, kCntl, 0x80, {W(kCntl, 0x80), W(kBase, 0)}},
        {"control but no value", False, kBase, kInput, kCntl, 0, {}},
        {"value but no control", False, kBase, kInput, 0, 0x80, {}},
        {"emulation", True, kBase, kInput, kCntl, 0x80, {}},
    };
    for (const Case& c : cases) {
        TestSystem t;
        t.mod().RunNoBoards = c.runNoBoards;
        EXPECT_EQ(PortInitBoard(t.s, c.base, c.input, c.cntl, c.config, 0, 0), 0) << c.name;
        // Never a read; without a write of the control register the data ports stay as they are.
        EXPECT_THAT(t.ports.log, ElementsAreArray(c.writes)) << c.name;
    }
}

TEST(PortInitBoard, InitAllBoardsSetsUpTheDrivenBoardsOnly) {
    TestSystem t;
    t.mod().Board[0].CntlAddress = kCntl;
    t.mod().Board[0].PortConfigValue = 0x80;
    t.mod().Board[1] = t.mod().Board[0];
    t.mod().Board[1].BaseAddress = 0x310;
    t.mod().Board[1].CntlAddress = 0x313;
    InitAllBoards(t.s);
    EXPECT_THAT(t.ports.log, ElementsAre(W(kCntl, 0x80), W(kBase, 0), W(kInput, 0)));

    t.ports.Clear();
    InitBoard(t.s, 1, 0);  // the configuration screen may still set up a stored board
    EXPECT_THAT(t.ports.log, ElementsAre(W(0x313, 0x80), W(0x310, 0), W(kInput, 0)));

    // A control value outside a byte ends the program.
    try {
        PortInitBoard(t.s, kBase, kInput, kCntl, 300, 0, 0);
        ADD_FAILURE() << "no overflow";
    } catch (const FatalError& e) {
        EXPECT_EQ(e.Number(), ErrOverflow);
    }
}

// Board 0's relays set or cleared one by one in relay order, starting from the byte v: a
// read of the port and a write back for each.
std::vector<Access> BitByBit(int v, bool on) {
    std::vector<Access> log;
    for (int r = 0; r < 8; ++r) {
        log.push_back(R(kBase, v));
        v = on ? v | 1 << r : v & ~(1 << r);
        log.push_back(W(kBase, v));
    }
    return log;
}

// Exit runs ResetAllRelays and then ClearOutputPorts, in both modes and with either setting
// of ResetOnExit; New runs ResetAllRelays alone, so it makes no final write.
TEST(BoardReset, AtExitAndNewInTheFourCombinationsOfModeAndResetOnExit) {
    struct Case {
        Flag runNoBoards, resetOnExit;
        bool relaysCleared;     // the relays (real or emulated) go off, CycleStart cleared
        bool finalWriteOfZero;  // Out8255(BaseAddress, 0) goes to the real port
    } cases[] = {
        {False, 0, false, false},
        {False, True, true, true},
        {False, 1, true, true},  // 1, as the Tool commands set it
        // In emulation no real port is touched at all, not even by the final write.
        {True, 0, true, false},
        {True, True, true, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << "emulation " << c.runNoBoards << " reset " << c.resetOnExit);
        TestSystem t;
        t.mod().RunNoBoards = c.runNoBoards;
        t.mod().Board[0].ResetOnExit = c.resetOnExit;
        t.ports.bytes[kBase] = 0xA5;
        t.frm().EmulatedPort[0] = 0x5A;
        for (int i = 0; i < 8; ++i)
            t.relay(i).CycleStart = 1234;

        ResetAllRelays(t.s);
        std::vector<Access> expected;
        if (c.relaysCleared && c.runNoBoards == 0) expected = BitByBit(0xA5, false);
        EXPECT_THAT(t.ports.log, ElementsAreArray(expected));  // all that New does
        ClearOutputPorts(t.s);
        if (c.finalWriteOfZero) expected.push_back(W(kBase, 0));
        EXPECT_THAT(t.ports.log, ElementsAreArray(expected));

        const bool emulated = c.runNoBoards != 0;
        EXPECT_EQ(t.frm().EmulatedPort[0], emulated ? 0 : 0x5A);
        if (!emulated) {
            EXPECT_EQ(t.ports.bytes[kBase], c.relaysCleared ? 0 : 0xA5);
        }
        for (int i = 0; i < 8; ++i)
            EXPECT_EQ(t.relay(i).CycleStart, c.relaysCleared ? 0 : 1234) << i;
    }
}

// The final write goes out even to a base of 0 (in emulation to the emulated byte); a board
// beyond the build's last is never touched, whatever its ResetOnExit.
TEST(BoardReset, ClearOutputPortsWritesEvenABaseOfZeroAndUndrivenBoardsStayAlone) {
    for (Flag runNoBoards : {False, True}) {
        TestSystem t;
        t.mod().RunNoBoards = runNoBoards;
        t.mod().Board[0].BaseAddress = 0;
        t.mod().Board[1].ResetOnExit = True;
        t.mod().Board[1].BaseAddress = 0x310;
        ResetAllRelays(t.s);
        t.frm().EmulatedPort[0] = 0x5A;  // only the final write can clear it now
        ClearOutputPorts(t.s);
        if (runNoBoards) {
            EXPECT_THAT(t.ports.log, IsEmpty());
            EXPECT_EQ(t.frm().EmulatedPort[0], 0);
        } else {
            EXPECT_THAT(t.ports.log, ElementsAre(W(0, 0)));
        }
    }
}

TEST(BoardReset, SetAllRelaysTurnsEveryRelayOnInOrder) {
    TestSystem t;
    for (int i = 0; i < 9; ++i)
        t.relay(i).CycleStart = 77;
    SetAllRelays(t.s);
    EXPECT_THAT(t.ports.log, ElementsAreArray(BitByBit(0, true)));
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(t.relay(i).CycleStart, 0);
    EXPECT_EQ(t.relay(8).CycleStart, 77);  // the spare record is never reached

    TestSystem e;
    e.mod().RunNoBoards = True;
    SetAllRelays(e.s);
    EXPECT_EQ(e.frm().EmulatedPort[0], 0xFF);
    EXPECT_THAT(e.ports.log, IsEmpty());
}

}  // namespace
}  // namespace vantrellion
