// Resolution of the wanted state into port writes, and what a row shows.
#include <gtest/gtest.h>

#include "engine/RelayStates.h"
#include "engine/Tick.h"
#include "support/Fakes.h"

namespace vantrellion::test {
namespace {

class RelayStatesTest : public ::testing::Test {
  protected:
    TestSystem t;
    void SetUp() override {
        t.frm().CheckTimeAllowed = True;
        t.clock.SetTime(10, 0, 0);  // Monday
    }
    bool RelayOn(int r) { return (t.ports.bytes[0x300] >> r) & 1; }
};

// HardStop, Manual, day, pair and Invert in their order of precedence.
TEST_F(RelayStatesTest, PrecedenceOfStopManualDayPairAndInvert) {
    struct Case {
        Flag hardStop, manual;
        bool dayMatches, pairFits;
        Flag invert;
        bool on;
    };
    const Case cases[] = {
        {True, True, true, true, True, false},     {True, False, true, true, False, false},
        {False, True, true, false, False, true},   {False, True, false, false, True, false},
        {False, False, false, true, False, false}, {False, False, false, true, True, true},
        {False, False, true, true, False, true},   {False, False, true, true, True, false},
        {False, False, true, false, False, false}, {False, False, true, false, True, true},
    };
    for (int r = 0; r < 8 && r < static_cast<int>(std::size(cases)); ++r) {
        const Case& c = cases[r];
        t.relay(r).HardStop = c.hardStop;
        t.relay(r).Manual = c.manual;
        t.relay(r).Invert = c.invert;
        t.relay(r).DaysOfWeek = c.dayMatches ? "2" : "7";
        if (c.pairFits)
            t.SetPair(r, 0, "09:00", "11:00");
        else
            t.SetPair(r, 0, "11:00", "12:00");
    }
    CheckTimeTick(t.s);
    CheckTimeTick(t.s);  // stable from the second tick on as well
    for (int r = 0; r < 8; ++r)
        EXPECT_EQ(RelayOn(r), cases[r].on) << "case " << r;

    // The two cases that did not fit in the eight rows.
    TestSystem u;
    u.clock.SetTime(10, 0, 0);
    u.relay(0).DaysOfWeek = "2";
    u.relay(0).Invert = True;
    u.SetPair(0, 0, "11:00", "12:00");
    u.relay(1).DaysOfWeek = "2";
    u.SetPair(1, 0, "11:00", "12:00");
    for (int n = 0; n < 2; ++n)
        CheckTimeTick(u.s);
    EXPECT_EQ(u.ports.bytes[0x300] & 3, 1);
}

TEST_F(RelayStatesTest, FirstTickWritesEveryRelayOnceThenOnlyChanges) {
    t.ports.bytes[0x300] = 0xF0;  // relays 4 to 7 left on by an earlier run
    t.relay(0).Manual = True;
    CheckTimeTick(t.s);
    // Each relay was read-modify-written once, in relay order.
    const auto writes = t.ports.Writes();
    ASSERT_EQ(writes.size(), 8u);
    EXPECT_EQ(t.ports.bytes[0x300], 0x01);
    t.ports.Clear();
    CheckTimeTick(t.s);
    EXPECT_TRUE(t.ports.Writes().empty());
}

TEST_F(RelayStatesTest, PortChangedBehindTheEngineIsCorrectedOneTickLater) {
    CheckTimeTick(t.s);
    t.ports.bytes[0x300] = 0x04;  // a State command set relay 2
    t.ports.Clear();
    CheckTimeTick(t.s);  // decides from the OldState of the tick before: nothing to do
    EXPECT_TRUE(t.ports.Writes().empty());
    EXPECT_EQ(t.relay(2).OldState, 1);
    CheckTimeTick(t.s);
    EXPECT_EQ(t.ports.Writes().size(), 1u);
    EXPECT_EQ(t.ports.bytes[0x300], 0);
}

TEST_F(RelayStatesTest, WriteThatDoesNotStickIsRepeatedEveryTick) {
    t.ports.stuck[0x300] = true;
    t.relay(1).Manual = True;
    for (int n = 0; n < 3; ++n) {
        t.ports.Clear();
        CheckTimeTick(t.s);
        EXPECT_EQ(t.ports.Writes().size(), n == 0 ? 8u : 1u);
    }
}

TEST_F(RelayStatesTest, HardStopClearsTheBitAtEveryTick) {
    t.relay(6).HardStop = True;
    t.relay(6).Manual = True;
    for (int n = 0; n < 2; ++n) {
        t.ports.bytes[0x300] = 0x40;
        t.ports.Clear();
        CheckTimeTick(t.s);
        EXPECT_EQ(t.ports.bytes[0x300], 0);
        EXPECT_FALSE(t.ports.Writes().empty());
    }
    EXPECT_EQ(t.relay(6).Manual, True);  // kept in the record
    EXPECT_EQ(t.display.totalCaption[6], "> STOP <");
    EXPECT_EQ(t.display.totalBack[6], 255);
    EXPECT_EQ(t.display.manualBack[6], kManualOFF);
    EXPECT_EQ(t.display.codeBack[6], kManualOFF);
}

TEST_F(RelayStatesTest, StatesOutsideTheTablesFaultOrDoNothing) {
    CheckTimeTick(t.s);
    t.ports.Clear();
    t.relay(0).OldState = 5;
    t.relay(0).NewState = 1;
    UpdateRelayOutputs(t.s);
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_EQ(t.messages.shown[0].Prompt, "Error Did Not Evaluate Old / New State Correctly");
    EXPECT_EQ(t.messages.shown[0].Title, "Vantrellion");
    EXPECT_TRUE(t.ports.Writes().empty());

    t.relay(0).Invert = True;  // the inverted table says nothing for it
    UpdateRelayOutputs(t.s);
    t.relay(0).OldState = 0;
    t.relay(0).Invert = 5;  // neither 0 nor -1: the relay is left alone
    UpdateRelayOutputs(t.s);
    EXPECT_EQ(t.messages.shown.size(), 1u);
    EXPECT_TRUE(t.ports.Writes().empty());
}

TEST_F(RelayStatesTest, CaptionsAndLabelColours) {
    struct Case {
        Flag hardStop, manual, invert;
        const char* caption;
        Color manualBack, invertBack;
    };
    const Case cases[] = {
        {True, True, True, "> STOP <", kManualOFF, kManualOFF},
        {False, True, True, ">Invr-Man<", kManualON, kManualON},
        {False, True, False, ">Manual<", kManualON, kManualOFF},
        {False, False, True, " Invert ", kManualOFF, kManualON},
        {False, False, False, "01:00:00", kManualOFF, kManualOFF},
    };
    for (int r = 0; r < 5; ++r) {
        t.relay(r).HardStop = cases[r].hardStop;
        t.relay(r).Manual = cases[r].manual;
        t.relay(r).Invert = cases[r].invert;
        t.relay(r).TotalTime = "01:00:00";
    }
    CheckTimeTick(t.s);
    for (int r = 0; r < 5; ++r) {
        EXPECT_EQ(t.display.totalCaption[r], cases[r].caption) << r;
        EXPECT_EQ(t.display.manualBack[r], cases[r].manualBack) << r;
        EXPECT_EQ(t.display.invertBack[r], cases[r].invertBack) << r;
    }
}

TEST_F(RelayStatesTest, PairLightsAndTheCodeField) {
    t.SetPair(0, 0, "09:00", "11:00");
    t.SetPair(0, 1, "09:30", "10:30");
    t.relay(0).DayHrEvenOdd = "TH";  // first pair's window 09:00 .. 09:00:00 is empty
    t.SetPair(1, 1, "09:10", "11:40");
    t.relay(1).DayHrEvenOdd = "3H";  // pair 1 of 3H acts as MH: 10:10 to 10:40
    t.SetPair(2, 0, "09:00", "11:00");
    t.relay(2).DayHrEvenOdd = "ED";  // even/odd codes never colour the field
    t.clock.SetTime(10, 20, 0);
    t.clock.now.Day = 16;
    CheckTimeTick(t.s);
    EXPECT_EQ(t.display.pairBack[PairIndex(0, 0)], kTimeOFF);
    EXPECT_EQ(t.display.pairBack[PairIndex(0, 1)], kTimeON);
    EXPECT_EQ(t.display.codeBack.count(0), 0u);
    EXPECT_EQ(t.display.pairBack[PairIndex(1, 1)], kTimeON);
    EXPECT_EQ(t.display.codeBack[1], kTimeON);
    EXPECT_EQ(t.display.pairBack[PairIndex(2, 0)], kTimeON);
    EXPECT_EQ(t.display.codeBack.count(2), 0u);
    EXPECT_EQ(t.display.light[2], kRelayON);
    EXPECT_EQ(t.display.light[3], kRelayOFF);
}

}  // namespace
}  // namespace vantrellion::test
