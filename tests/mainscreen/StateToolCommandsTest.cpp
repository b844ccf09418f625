// The State and Tool menu commands on a simulated port space: the port accesses of each, in
// order, on a real board and on the emulated byte; the step delay and reset-at-exit values
// they leave; and the timer, which each pausing or board-wide command holds off and turns on.
#include <gtest/gtest.h>

#include <functional>

#include "mainscreen/StateCommands.h"
#include "mainscreen/ToolCommands.h"
#include "support/Fakes.h"

namespace vantrellion::test {
namespace {

using Access = SimulatedPorts::Access;
constexpr int16_t kBase = 0x300, kInput = 0x301;

// Message boxes that note whether the timer ran while each was up.
struct WatchedMessages : FakeMessages {
    FakeTimer* timer = nullptr;
    std::vector<bool> timerWhileShown;
    Answer Show(const MessageBoxRequest& r) override {
        timerWhileShown.push_back(timer->enabled);
        return FakeMessages::Show(r);
    }
};

class StateToolCommandsTest : public ::testing::Test {
  protected:
    TestSystem t;
    WatchedMessages messages;
    void SetUp() override {
        messages.timer = &t.timer;
        t.s.platform.messages = &messages;
        t.frm().CheckTimeAllowed = True;
        t.timer.enabled = false;  // a command that resumes must turn it on itself
    }
};

TEST_F(StateToolCommandsTest, RelayCommandsReadModifyWriteThenReadBack) {
    // One relay change and the refresh after it, port byte before -> after.
    auto step = [](uint8_t before, uint8_t after) {
        return std::vector<Access>{{false, kBase, before},
                                   {true, kBase, after},
                                   {false, kBase, after},
                                   {false, kInput, 0}};
    };
    t.ports.bytes[kBase] = 0x01;
    mnuStateMan_On(t.s, 0, 2);
    EXPECT_EQ(t.ports.log, step(0x01, 0x05));
    EXPECT_EQ(t.display.light[2], kRelayON);  // shown at once
    EXPECT_EQ(t.display.stateCaption[0], "RelayState 1 : 1 - 3 - - - - -");

    t.ports.Clear();
    mnuStateMan_AllOff(t.s, 0);
    std::vector<Access> expected;
    uint8_t byte = 0x05;
    for (int i = 0; i <= 7; ++i) {
        const uint8_t next = byte & ~(1 << i);
        for (const Access& a : step(byte, next))
            expected.push_back(a);
        byte = next;
    }
    expected.insert(expected.end(), {{false, kBase, 0}, {false, kInput, 0}});
    EXPECT_EQ(t.ports.log, expected);
    EXPECT_EQ(t.timer.changes, 0);  // no State command without a pause touches the timer

    // Emulation changes the byte in memory only; a base address of 0 is passed over silently.
    t.mod().RunNoBoards = True;
    mnuStateMan_On(t.s, 0, 3);
    EXPECT_EQ(t.frm().EmulatedPort[0], 0x08);
    EXPECT_EQ(t.display.light[3], kRelayON);
    t.mod().RunNoBoards = False;
    t.mod().Board[0].BaseAddress = 0;
    t.ports.Clear();
    mnuStateMan_AllOn(t.s, 0);
    EXPECT_TRUE(t.ports.Writes().empty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(StateToolCommandsTest, StepThruAllKeepsTheDelayOnOnlyForTheFirstBoard) {
    for (int n : {1, 2, 3, 0}) {
        t.mod().StepDelay = 0;
        t.ports.Clear();
        mnuStateMan_StepAll(t.s, n);
        EXPECT_EQ(t.mod().StepDelay, n == 0 ? 2000 : 0) << n;
        EXPECT_EQ(t.ports.Writes().size(), n == 0 ? 16u : 0u) << n;  // boards 2-4: no address
    }
    mnuToolSetRelays(t.s);  // the plain set keeps the delay; a delayed one clears it
    EXPECT_EQ(t.mod().StepDelay, 2000);
}

TEST_F(StateToolCommandsTest, PausesHoldTheTimerOffUntilTheUserGoesOn) {
    const std::pair<std::function<void(System&)>, const char*> cases[] = {
        {[](System& s) { mnuStateMan_AllOnPause(s, 0); }, "1 Relays are ON)"},
        {[](System& s) { mnuStateMan_AllOffPause(s, 1); }, "2 Relays are OFF)"},
        {&mnuToolSetRelaysPause, "0 Relays are ON)"},
        {&mnuToolResetRelaysPause, "1 Relays are ON)"},
    };
    for (const auto& [command, title] : cases) {
        messages.shown.clear();
        messages.timerWhileShown.clear();
        command(t.s);
        ASSERT_EQ(messages.shown.size(), 1u) << title;
        EXPECT_EQ(messages.shown[0].Title, std::string("System is Paused (All board ") + title);
        EXPECT_EQ(messages.shown[0].Prompt, "When you are ready to Continue, press 'OK' ");
        EXPECT_FALSE(messages.timerWhileShown[0]) << title;
        EXPECT_TRUE(t.timer.enabled) << title;
    }
}

TEST_F(StateToolCommandsTest, SetAndResetToolsWriteEveryRelayAndLeaveTheirValues) {
    struct Case {
        void (*command)(System&);
        bool set;
        Flag resetOnExitAfter;  // board 0 starts with 0: the reset tools force it
    };
    const Case cases[] = {
        {&mnuToolSetRelays, true, 0},         {&mnuToolSetRelaysDelay, true, 0},
        {&mnuToolResetRelays, false, 1},      {&mnuToolResetRelaysDelay, false, 0},
        {&mnuToolResetRelaysPause, false, 0},
    };
    for (const Case& c : cases) {
        t.mod().Board[0].ResetOnExit = 0;
        t.ports.bytes[kBase] = c.set ? 0x00 : 0xFF;
        t.ports.Clear();
        t.timer.enabled = false;
        c.command(t.s);
        std::vector<Access> writes;
        uint8_t byte = c.set ? 0x00 : 0xFF;
        for (int i = 0; i <= 7; ++i) {
            byte = c.set ? byte | (1 << i) : byte & ~(1 << i);
            writes.push_back({true, kBase, byte});
        }
        EXPECT_EQ(t.ports.Writes(), writes) << c.set;
        EXPECT_EQ(t.mod().Board[0].ResetOnExit, c.resetOnExitAfter);
        EXPECT_EQ(t.mod().StepDelay, 0);
        EXPECT_TRUE(t.timer.enabled);
    }
}

TEST_F(StateToolCommandsTest, EmulationSwitchResetsInTheModeJustEntered) {
    t.mod().Board[0].ResetOnExit = 0;
    t.frm().EmulatedPort[0] = 0x30;
    t.ports.bytes[kBase] = 0x0F;
    mnuToolRunNoBoards(t.s);  // into emulation: the emulated relays always go off
    EXPECT_EQ(t.mod().RunNoBoards, True);
    EXPECT_EQ(t.frm().EmulatedPort[0], 0x00);
    EXPECT_TRUE(t.timer.enabled);
    mnuToolRunNoBoards(t.s);  // back to a board that does not allow a reset: untouched
    EXPECT_EQ(t.mod().RunNoBoards, False);
    EXPECT_TRUE(t.ports.Writes().empty());
    EXPECT_EQ(t.screen.Text(Control::mnuDisplayAddress, 0), "   B1@H300");
}

}  // namespace
}  // namespace vantrellion::test
