#include "support/Fakes.h"

#include "core/ResetRelayRecords.h"
#include "engine/Tick.h"

namespace vantrellion::test {

Answer FakeMessages::Show(const MessageBoxRequest& r) {
    shown.push_back(r);
    if (onShow) onShow(r);
    if (!answers.empty()) {
        Answer a = answers.front();
        answers.pop_front();
        return a;
    }
    switch (r.ButtonSet) {
        case Buttons::YesNo:
        case Buttons::YesNoCancel:
            return Answer::Yes;
        case Buttons::AbortRetryIgnore:
            return Answer::Abort;
        case Buttons::RetryCancel:
            return Answer::Retry;
        default:
            return Answer::OK;
    }
}

std::vector<std::string> FakeMessages::Prompts() const {
    std::vector<std::string> out;
    for (const auto& r : shown)
        out.push_back(r.Prompt);
    return out;
}

std::vector<SimulatedPorts::Access> SimulatedPorts::Writes() const {
    std::vector<Access> out;
    for (const auto& a : log)
        if (a.write) out.push_back(a);
    return out;
}

TestSystem::TestSystem() {
    s.platform.clock = &clock;
    s.platform.timer = &timer;
    s.platform.pump = &pump;
    s.platform.messages = &messages;
    s.platform.display = &display;
    s.platform.ports = &ports;
    s.platform.screen = &screen;
    s.platform.dialogs = &dialogs;
    s.platform.windowPlaces = &windowPlaces;
    s.platform.documentsDirectory = kDocuments;
    auto& m = s.modRelay;
    m.ColorRelayON = kRelayON;
    m.ColorRelayOFF = kRelayOFF;
    m.ColorTimeON = kTimeON;
    m.ColorTimeOFF = kTimeOFF;
    m.ColorManualON = kManualON;
    m.ColorManualOFF = kManualOFF;
    m.ColorInputON = kInputON;
    m.ColorInputOFF = kInputOFF;
    m.ColorTTimeBkgrnd = kTTimeBk;
    m.ColorNameBkgrnd = kNameBk;
    m.FileVersion = ComposeFileVersion();
    BoardRecord& b = m.Board[0];
    b.ChipSetType = "CBRelay08";
    b.BaseAddress = 0x300;
    b.InputAddress = 0x301;
    b.LogBoard = True;
    b.ResetOnExit = True;
    for (int r = 0; r < RelaysPerBoard; ++r)
        b.RelayName[r] = "Relay " + std::to_string(r + 1);
    // Monday 16 November 2026, midnight.
    clock.now = DateTime{2026, 11, 16, 0, 0, 0, 2};
    ResetRelayRecords(s);
}

void TestSystem::SetPair(int i, int p, const std::string& start, const std::string& end) {
    s.frmRelay.StartTime[PairIndex(i, p)] = start;
    s.frmRelay.EndTime[PairIndex(i, p)] = end;
}

std::array<std::vector<OnRun>, 8> RunDayOnRuns(TestSystem& t) {
    std::array<std::vector<OnRun>, 8> runs;
    for (int sec = 0; sec < 86400; ++sec) {
        t.clock.SetSecondsOfDay(sec);
        CheckTimeTick(t.s);
        const int byte = t.ports.bytes[0x300];
        for (int r = 0; r < 8; ++r) {
            if ((byte & (1 << r)) == 0) continue;
            if (!runs[r].empty() && runs[r].back().second == sec - 1)
                runs[r].back().second = sec;
            else
                runs[r].push_back({sec, sec});
        }
        t.ports.Clear();
        t.clock.tick += 1000;
    }
    return runs;
}

}  // namespace vantrellion::test
