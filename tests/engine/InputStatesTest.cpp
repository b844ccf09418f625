// Input edges, counters and the display texts of the port bytes.
#include <gtest/gtest.h>

#include "engine/InputStates.h"
#include "support/Fakes.h"

namespace vantrellion::test {
namespace {

TEST(FormatPortBits, DigitsForSetBitsDashesOtherwise) {
    EXPECT_EQ(FormatPortByte(0), "- - - - - - - -");
    EXPECT_EQ(FormatPortByte(0xC3), "1 2 - - - - 7 8");
    EXPECT_EQ(FormatPortByte(255), "1 2 3 4 5 6 7 8");
    EXPECT_EQ(FormatPortByte(0x10).size(), 15u);
}

class InputStatesTest : public ::testing::Test {
  protected:
    TestSystem t;
    void Read(uint8_t byte) { ShowInputStates(t.s, PortBytes{byte}); }
};

TEST_F(InputStatesTest, CountsRisingEdgesOnlyOfActiveCounters) {
    t.relay(0).CounterOn = True;
    t.relay(1).CounterOn = False;
    Read(0x03);  // on at the first read: InputState 9 is not 0, so no count
    EXPECT_EQ(t.relay(0).Count, 0);
    EXPECT_EQ(t.relay(0).InputState, 1);
    EXPECT_EQ(t.display.counterBack[0], kInputON);
    Read(0x03);
    Read(0x00);
    EXPECT_EQ(t.display.counterBack[0], kInputOFF);
    EXPECT_EQ(t.relay(1).InputState, 0);
    Read(0x03);  // rising edge
    Read(0x00);
    Read(0x03);  // another
    EXPECT_EQ(t.relay(0).Count, 2);
    EXPECT_EQ(t.display.counterCaption[0], "2");
    EXPECT_EQ(t.relay(1).Count, 0);  // counter off: colour and state follow, no count
    EXPECT_EQ(t.relay(1).InputState, 1);
    EXPECT_EQ(t.display.counterCaption.count(1), 0u);
}

TEST_F(InputStatesTest, CountStopsAt32000) {
    t.relay(2).CounterOn = True;
    t.relay(2).Count = 31999;
    t.relay(2).InputState = 0;
    for (int n = 0; n < 3; ++n) {
        Read(0x04);
        Read(0x00);
    }
    EXPECT_EQ(t.relay(2).Count, 32000);
    Read(0x04);
    EXPECT_EQ(t.display.counterBack[2], kInputON);
}

TEST_F(InputStatesTest, CounterFlagMustBeExactlyTrue) {
    t.relay(0).CounterOn = 1;  // non-zero but not -1
    t.relay(0).InputState = 0;
    Read(0x01);
    EXPECT_EQ(t.relay(0).Count, 0);
}

TEST_F(InputStatesTest, StateTextsNameTheBoard) {
    ShowStateTexts(t.s, PortTexts{"1 2 - - - - 7 8"}, PortTexts{"- - - - - - - -"});
    EXPECT_EQ(t.display.stateCaption[0], "RelayState 1 : 1 2 - - - - 7 8");
    EXPECT_EQ(t.display.inputCaption[0], "Inputstate 1 : - - - - - - - -");
}

}  // namespace
}  // namespace vantrellion::test
