// The State and Tool menu commands on a simulated port space: the port reads and writes of
// each, in order, on a real board and on the emulated byte; the step delay and reset-at-exit
// values they leave behind; and the timer around each.
#include <gtest/gtest.h>

#include <functional>

#include "mainscreen/PauseMessage.h"
#include "mainscreen/StateCommands.h"
#include "mainscreen/ToolCommands.h"
#include "runfile/CrashRestart.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

using Access = SimulatedPorts::Access;
constexpr int16_t kBase = 0x300, kInput = 0x301;

Access Read(int16_t port, int16_t v) {
    return {false, port, v};
}
Access Write(int16_t port, int16_t v) {
    return {true, port, v};
}

// Message boxes that note whether the timer ran while each was up.
class WatchedMessages : public FakeMessages {
  public:
    explicit WatchedMessages(FakeTimer& timer) : timer_(timer) {}
    std::vector<bool> timerWhileShown;
    Answer Show(const MessageBoxRequest& r) override {
        timerWhileShown.push_back(timer_.enabled);
        return FakeMessages::Show(r);
    }

  private:
    FakeTimer& timer_;
};

// The configuration saves, with the flag value each one stored.
class RecordingConfiguration : public ConfigurationStore {
  public:
    explicit RecordingConfiguration(const ModRelay& m) : m_(m) {}
    std::vector<std::pair<std::string, Flag>> saved;
    void ConfigurationLogFileNameSave() override {}
    void ConfigurationDataFileNameSave() override {}
    void ConfigurationDataFilePathSave() override {}
    void ConfigurationFlagLoggingSave() override { saved.push_back({"Logging", m_.LoggingOnOff}); }
    void ConfigurationFlagRunNoBoardsSave() override {
        saved.push_back({"RunNoBoards", m_.RunNoBoards});
    }

  private:
    const ModRelay& m_;
};

class StateToolCommandsTest : public ::testing::Test {
  protected:
    TempDir dir;
    TestSystem t;
    WatchedMessages messages{t.timer};
    RecordingConfiguration configuration{t.s.modRelay};

    void SetUp() override {
        t.s.platform.messages = &messages;
        t.s.platform.configuration = &configuration;
        t.s.platform.machineDirectory = dir.Path();
        t.frm().CheckTimeAllowed = True;
        t.timer.enabled = false;  // each command must turn it on itself where it resumes
    }
    // The accesses of one relay change and the refresh after it, port byte before -> after.
    static std::vector<Access> Step(uint8_t before, uint8_t after) {
        return {Read(kBase, before), Write(kBase, after), Read(kBase, after), Read(kInput, 0)};
    }
};

TEST_F(StateToolCommandsTest, SingleRelayCommandsOnARealBoard) {
    t.ports.bytes[kBase] = 0x01;
    mnuStateMan_On(t.s, 0, 2);
    EXPECT_EQ(t.ports.log, Step(0x01, 0x05));
    EXPECT_EQ(t.display.light[2], kRelayON);  // the refresh shows it at once
    EXPECT_EQ(t.display.stateCaption[0], "RelayState 1 : 1 - 3 - - - - -");

    t.ports.Clear();
    mnuStateMan_Off(t.s, 0, 0);
    EXPECT_EQ(t.ports.log, Step(0x05, 0x04));
    EXPECT_EQ(t.display.light[0], kRelayOFF);
    // A State command leaves the timer alone.
    EXPECT_EQ(t.timer.changes, 0);
    EXPECT_FALSE(t.timer.enabled);
}

TEST_F(StateToolCommandsTest, AllOnAndAllOffGoRelayByRelayThenRefreshOnceMore) {
    for (bool on : {true, false}) {
        t.ports.Clear();
        on ? mnuStateMan_AllOn(t.s, 0) : mnuStateMan_AllOff(t.s, 0);
        std::vector<Access> expected;
        uint8_t byte = on ? 0x00 : 0xFF;
        for (int i = 0; i <= 7; ++i) {
            const uint8_t next = on ? byte | (1 << i) : byte & ~(1 << i);
            for (const Access& a : Step(byte, next))
                expected.push_back(a);
            byte = next;
        }
        expected.push_back(Read(kBase, byte));
        expected.push_back(Read(kInput, 0));
        EXPECT_EQ(t.ports.log, expected) << (on ? "All On" : "All Off");
    }
}

TEST_F(StateToolCommandsTest, EmulationAndAMissingBoardWriteNoPort) {
    t.mod().RunNoBoards = True;
    mnuStateMan_On(t.s, 0, 3);
    EXPECT_EQ(t.frm().EmulatedPort[0], 0x08);
    EXPECT_EQ(t.display.light[3], kRelayON);
    mnuStateMan_AllOff(t.s, 0);
    EXPECT_EQ(t.frm().EmulatedPort[0], 0x00);
    EXPECT_TRUE(t.ports.log.empty());

    // A base address of 0 is passed over silently: only the input port is read back.
    t.mod().RunNoBoards = False;
    t.mod().Board[0].BaseAddress = 0;
    mnuStateMan_AllOn(t.s, 0);
    EXPECT_TRUE(t.ports.Writes().empty());
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(StateToolCommandsTest, StepThruAllKeepsTheDelayOnOnlyForTheFirstBoard) {
    for (int n : {0, 1, 2, 3}) {
        t.mod().StepDelay = 0;
        t.ports.Clear();
        mnuStateMan_StepAll(t.s, n);
        EXPECT_EQ(t.mod().StepDelay, n == 0 ? 2000 : 0) << "board " << n;
        // Boards 2 to 4 have no address in this build: their relays are left alone.
        EXPECT_EQ(t.ports.Writes().size(), n == 0 ? 16u : 0u) << "board " << n;
    }
    EXPECT_EQ(t.ports.bytes[kBase], 0x00);
}

TEST_F(StateToolCommandsTest, PauseVariantsHoldTheTimerOffUntilTheUserGoesOn) {
    struct Case {
        std::function<void(System&)> command;
        const char* title;
        uint8_t byte;
    };
    const Case cases[] = {
        {[](System& s) { mnuStateMan_AllOnPause(s, 0); },
         "System is Paused (All board 1 Relays are ON)", 0xFF},
        {[](System& s) { mnuStateMan_AllOffPause(s, 0); },
         "System is Paused (All board 1 Relays are OFF)", 0x00},
        {[](System& s) { mnuStateMan_AllOnPause(s, 1); },
         "System is Paused (All board 2 Relays are ON)", 0x00},
        {&mnuToolSetRelaysPause, "System is Paused (All board 0 Relays are ON)", 0xFF},
        {&mnuToolResetRelaysPause, "System is Paused (All board 1 Relays are ON)", 0x00},
    };
    for (const Case& c : cases) {
        messages.shown.clear();
        messages.timerWhileShown.clear();
        t.timer.enabled = true;
        c.command(t.s);
        ASSERT_EQ(messages.shown.size(), 1u) << c.title;
        EXPECT_EQ(messages.shown[0].Title, c.title);
        EXPECT_EQ(messages.shown[0].Prompt, "When you are ready to Continue, press 'OK' ");
        EXPECT_EQ(messages.shown[0].ButtonSet, Buttons::OK);
        EXPECT_FALSE(messages.timerWhileShown[0]) << c.title;
        EXPECT_TRUE(t.timer.enabled) << c.title;
        EXPECT_EQ(t.ports.bytes[kBase], c.byte) << c.title;
    }
}

TEST_F(StateToolCommandsTest, SetAndResetToolsWriteEachRelayAndLeaveTheirValues) {
    struct Case {
        const char* name;
        void (*command)(System&);
        bool set;
        Flag resetOnExitAfter;  // board 0 starts with ResetOnExit 0
    };
    const Case cases[] = {
        {"set", &mnuToolSetRelays, true, 0},
        {"set delay", &mnuToolSetRelaysDelay, true, 0},
        {"set pause", &mnuToolSetRelaysPause, true, 0},
        {"reset", &mnuToolResetRelays, false, 1},
        {"reset delay", &mnuToolResetRelaysDelay, false, 0},
        {"reset pause", &mnuToolResetRelaysPause, false, 0},
    };
    for (const Case& c : cases) {
        t.mod().Board[0].ResetOnExit = 0;
        t.mod().StepDelay = 0;
        t.ports.bytes[kBase] = c.set ? 0x00 : 0xFF;
        t.ports.Clear();
        t.timer.enabled = false;
        t.relay(4).CycleStart = 99;
        c.command(t.s);
        std::vector<Access> writes;
        uint8_t byte = c.set ? 0x00 : 0xFF;
        for (int i = 0; i <= 7; ++i) {
            byte = c.set ? byte | (1 << i) : byte & ~(1 << i);
            writes.push_back(Write(kBase, byte));
        }
        EXPECT_EQ(t.ports.Writes(), writes) << c.name;
        EXPECT_EQ(t.mod().Board[0].ResetOnExit, c.resetOnExitAfter) << c.name;
        EXPECT_EQ(t.mod().StepDelay, 0) << c.name;
        EXPECT_EQ(t.relay(4).CycleStart, 0) << c.name;
        EXPECT_TRUE(t.timer.enabled) << c.name;
    }
    // A reset called from elsewhere does not force the reset.
    t.mod().Board[0].ResetOnExit = 0;
    t.mod().RunNoBoards = True;
    t.ports.Clear();
    mnuToolRunNoBoards(t.s);  // leaves emulation
    EXPECT_TRUE(t.ports.Writes().empty());
}

TEST_F(StateToolCommandsTest, PlainSetKeepsADelayThatStepThruAllLeftOn) {
    mnuStateMan_StepAll(t.s, 0);
    mnuToolSetRelays(t.s);
    EXPECT_EQ(t.mod().StepDelay, 2000);
    mnuToolSetRelaysDelay(t.s);
    EXPECT_EQ(t.mod().StepDelay, 0);
}

TEST_F(StateToolCommandsTest, LoggingAndEmulationToggleStoreAndRefreshTheMenus) {
    t.mod().LoggingOnOff = 1;  // anything but -1 counts as off
    mnuToolLogging(t.s);
    EXPECT_EQ(t.mod().LoggingOnOff, True);
    EXPECT_TRUE(t.timer.enabled);
    EXPECT_EQ(t.screen.Text(Control::mnuToolLogging, 0), "Logging (On)");
    mnuToolLogging(t.s);
    EXPECT_EQ(t.screen.Text(Control::mnuToolLogging, 0), "Logging (Off)");

    // Into emulation: the emulated byte is cleared, the real port is not touched.
    t.frm().EmulatedPort[0] = 0x30;
    t.ports.bytes[kBase] = 0x0F;
    t.timer.enabled = false;
    mnuToolRunNoBoards(t.s);
    EXPECT_EQ(t.mod().RunNoBoards, True);
    EXPECT_EQ(t.frm().EmulatedPort[0], 0x00);
    EXPECT_TRUE(t.ports.Writes().empty());
    EXPECT_TRUE(t.timer.enabled);
    EXPECT_EQ(t.screen.Text(Control::mnuDisplayAddress, 0), "Currently Running in Emulation Mode");

    // Back to the board, which allows a reset: its relays are cleared one by one.
    mnuToolRunNoBoards(t.s);
    EXPECT_EQ(t.mod().RunNoBoards, False);
    EXPECT_EQ(t.ports.Writes().size(), 8u);
    EXPECT_EQ(t.ports.bytes[kBase], 0x00);
    EXPECT_EQ(t.screen.Text(Control::mnuDisplayAddress, 0), "   B1@H300");

    const std::vector<std::pair<std::string, Flag>> saved = {
        {"Logging", True}, {"Logging", False}, {"RunNoBoards", True}, {"RunNoBoards", False}};
    EXPECT_EQ(configuration.saved, saved);
}

TEST_F(StateToolCommandsTest, ZeroCountersShowsActiveCountersAndWritesTheRestartFile) {
    t.relay(1).CounterOn = True;
    t.relay(1).Count = 12;
    t.relay(2).Count = 7;  // inactive: the caption "Counter" stays
    mnuToolZeroCounters(t.s);
    for (int i = 0; i <= 7; ++i)
        EXPECT_EQ(t.relay(i).Count, 0);
    EXPECT_EQ(t.display.counterCaption.size(), 1u);
    EXPECT_EQ(t.display.counterCaption[1], "0");
    EXPECT_TRUE(dir.Exists(RestartFileName));
}

TEST_F(StateToolCommandsTest, RemoveRestartFileDeletesOnlyTheFile) {
    mnuToolRemoveRestartFile(t.s);  // no file: silent
    dir.Write(RestartFileName, "x");
    mnuToolRemoveRestartFile(t.s);
    EXPECT_FALSE(dir.Exists(RestartFileName));
    EXPECT_EQ(t.frm().RestartDisabled, False);
    EXPECT_TRUE(messages.shown.empty());
}

}  // namespace
}  // namespace vantrellion::test
