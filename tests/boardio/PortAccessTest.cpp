#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "boardio/PortAccess.h"
#include "boardio/RelayConversionError.h"
#include "core/FatalError.h"
#include "support/Fakes.h"

namespace vantrellion {
namespace {

using test::SimulatedPorts;
using test::TestSystem;
using Access = SimulatedPorts::Access;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int16_t kBase = 0x300;
constexpr int16_t kInput = 0x301;

// A read or a write of a port, and the value that went through.
const auto R = [](int16_t port, int v) { return Access{false, port, static_cast<int16_t>(v)}; };
const auto W = [](int16_t port, int v) { return Access{true, port, static_cast<int16_t>(v)}; };

// The number and text of the error that a call ends the program with, or "".
template <class Call>
std::string Fatal(Call&& call) {
    try {
        call();
    } catch (const FatalError& e) {
        return std::to_string(e.Number()) + " " + e.what();
    }
    return "";
}

const std::string kSubscript = "9 Subscript out of range", kOverflow = "6 Overflow";

TEST(GetANDOR, MaskOfEachRelayAndTheBoxForAnyOther) {
    TestSystem t;
    for (int r = 0; r <= 7; ++r)
        EXPECT_EQ(GetANDOR(t.s, r), 1 << r) << r;
    EXPECT_THAT(t.messages.shown, IsEmpty());

    EXPECT_EQ(GetANDOR(t.s, 8), 0);
    EXPECT_EQ(GetANDOR(t.s, -1), 0);
    EXPECT_THAT(t.messages.Prompts(),
                ElementsAre("GetANDOR Error, Relay#:8", "GetANDOR Error, Relay#:-1"));
    EXPECT_EQ(t.messages.shown[0].ButtonSet, Buttons::OK);
    EXPECT_EQ(t.messages.shown[0].Title, "Vantrellion");
}

TEST(PortAccess, RealModeReadsThePortThenWritesItBackAndReadsEachPortOnce) {
    TestSystem t;
    t.ports.bytes[kBase] = 0x81;
    t.ports.bytes[kInput] = 0x24;
    SetRelayOn(t.s, 0, 3);
    SetRelayOn(t.s, 0, 3);  // already on: still a read and a write
    SetRelayOff(t.s, 0, 0);
    SetRelayOff(t.s, 0, 5);  // already off
    EXPECT_EQ(ReadRelayPorts(t.s)[0], 0x88);
    EXPECT_EQ(ReadInputPorts(t.s)[0], 0x24);
    EXPECT_THAT(t.ports.log,
                ElementsAre(R(kBase, 0x81), W(kBase, 0x89), R(kBase, 0x89), W(kBase, 0x89),
                            R(kBase, 0x89), W(kBase, 0x88), R(kBase, 0x88), W(kBase, 0x88),
                            R(kBase, 0x88), R(kInput, 0x24)));
    EXPECT_EQ(t.frm().EmulatedPort[0], 0);
    EXPECT_EQ(t.frm().EmulatedOtherPort, 0);
}

// Address 0 is no port: nothing is touched, in memory or on the bus, and reads give 0.
TEST(PortAccess, AddressZeroTouchesNothingInEitherMode) {
    for (Flag runNoBoards : {False, True}) {
        TestSystem t;
        t.mod().RunNoBoards = runNoBoards;
        t.mod().Board[0].BaseAddress = 0;
        t.mod().Board[0].InputAddress = 0;
        t.frm().EmulatedPort[0] = 0x10;
        t.frm().EmulatedOtherPort = 0x20;
        t.ports.bytes[0] = 0x7F;
        SetRelayOn(t.s, 0, 2);
        SetRelayOff(t.s, 0, 4);
        EXPECT_EQ(ReadRelayPorts(t.s)[0], 0) << runNoBoards;
        EXPECT_EQ(ReadInputPorts(t.s)[0], 0) << runNoBoards;
        EXPECT_THAT(t.ports.log, IsEmpty()) << runNoBoards;
        EXPECT_EQ(t.frm().EmulatedPort[0], 0x10);
        EXPECT_EQ(t.frm().EmulatedOtherPort, 0x20);
    }
}

// Board 0's relays live in memory and loop back to its inputs. An output address that is no
// board's base falls into the catch-all byte, which the output read answers from; the input
// read answers 0 for any address that is not board 0's input.
TEST(PortAccess, EmulationKeepsTheRelaysInMemory) {
    TestSystem t;
    t.mod().RunNoBoards = True;
    SetRelayOn(t.s, 0, 3);
    EXPECT_EQ(ReadRelayPorts(t.s)[0], 0x08);
    EXPECT_EQ(ReadInputPorts(t.s)[0], 0x08);  // input 4 on at the same tick as relay 4
    SetRelayOn(t.s, 0, 7);
    SetRelayOff(t.s, 0, 3);
    EXPECT_EQ(t.frm().EmulatedPort[0], 0x80);

    const int16_t other = 0x2F0;
    EXPECT_EQ(PortSetBit(t.s, other, 0, 0, 0, 0, 1), 0);
    EXPECT_EQ(PortSetBit(t.s, other, 0, 0, 0, 0, 6), 0);
    EXPECT_EQ(PortClearBit(t.s, other, 0, 0, 0, 0, 1), 0);
    EXPECT_EQ(t.frm().EmulatedOtherPort, 0x40);
    EXPECT_EQ(t.frm().EmulatedPort[0], 0x80);
    EXPECT_EQ(PortReadOutput(t.s, other, 0, 0, 0, 0, 0), 0x40);
    EXPECT_EQ(PortReadInput(t.s, 0, other, 0, 0, 0, 0), 0);
    EXPECT_EQ(PortReadInput(t.s, 0, kBase, 0, 0, 0, 0), 0);  // a base is no input address
    EXPECT_EQ(PortReadInput(t.s, 0, kInput, 0, 0, 0, 0), 0x80);
    EXPECT_THAT(t.ports.log, IsEmpty());
}

TEST(PortAccess, EmulationBaseOfAnUndrivenBoardIsASubscriptError) {
    TestSystem t;
    t.mod().RunNoBoards = True;
    t.mod().Board[2].BaseAddress = 0x310;
    t.mod().Board[2].InputAddress = 0x311;
    EXPECT_EQ(Fatal([&] { PortSetBit(t.s, 0x310, 0, 0, 0, 0, 0); }), kSubscript);
    EXPECT_EQ(Fatal([&] { PortClearBit(t.s, 0x310, 0, 0, 0, 0, 0); }), kSubscript);
    EXPECT_EQ(Fatal([&] { PortReadOutput(t.s, 0x310, 0, 0, 0, 0, 0); }), kSubscript);
    // The input read knows no such rule.
    EXPECT_EQ(PortReadInput(t.s, 0, 0x311, 0, 0, 0, 0), 0);

    // Board 0 is compared first: a base shared with it is board 0's.
    t.mod().Board[1].BaseAddress = kBase;
    SetRelayOn(t.s, 0, 0);
    EXPECT_EQ(t.frm().EmulatedPort[0], 1);
}

// An Out8255 whose result does not fit a byte.
class WideResultPorts : public SimulatedPorts {
  public:
    int16_t Out8255(int16_t port, int16_t value) override {
        SimulatedPorts::Out8255(port, value);
        return 300;
    }
};

TEST(PortAccess, APortResultOutsideAByteIsAFatalOverflow) {
    for (int16_t bad : {int16_t{256}, int16_t{-1}, int16_t{0x7FFF}}) {
        TestSystem t;
        t.ports.bytes[kBase] = bad;
        t.ports.bytes[kInput] = bad;
        EXPECT_EQ(Fatal([&] { SetRelayOn(t.s, 0, 0); }), kOverflow) << bad;
        EXPECT_EQ(Fatal([&] { SetRelayOff(t.s, 0, 0); }), kOverflow) << bad;
        EXPECT_EQ(Fatal([&] { ReadRelayPorts(t.s); }), kOverflow) << bad;
        EXPECT_EQ(Fatal([&] { ReadInputPorts(t.s); }), kOverflow) << bad;
        // Nothing was written after the bad read.
        EXPECT_THAT(t.ports.Writes(), IsEmpty());
    }
    TestSystem t;
    WideResultPorts wide;
    t.s.platform.ports = &wide;
    EXPECT_EQ(Fatal([&] { SetRelayOn(t.s, 0, 0); }), kOverflow);
    EXPECT_EQ(wide.bytes[kBase], 1);  // the write went out before the check
}

TEST(RelayConversionError, TextButtonAndTitle) {
    TestSystem t;
    ShowRelayConversionError(t.s, 3, 16);
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_EQ(t.messages.shown[0].Prompt, "Relay Conversion Error, RelayIN:3 Result:16");
    EXPECT_EQ(t.messages.shown[0].ButtonSet, Buttons::OK);
    EXPECT_EQ(t.messages.shown[0].Title, "Conversion Error");
}

}  // namespace
}  // namespace vantrellion
