// Fakes of the platform interfaces for tests: a settable clock, a timer flag, an event pump
// that counts, message boxes that record and answer from a script, a row display that keeps
// the last value of everything painted, and a simulated port space that latches outputs and
// records every access.
#pragma once

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "configuration/StoreWindowPlaces.h"
#include "core/SharedState.h"

namespace vantrellion::test {

class FakeClock : public Clock {
  public:
    DateTime now;
    int64_t tick = 1000;
    DateTime Now() override { return now; }
    int64_t MonotonicMs() override { return tick; }
    // Sets the time of day; the date and weekday stay.
    void SetTime(int h, int m, int sec) {
        now.Hour = h;
        now.Minute = m;
        now.Second = sec;
    }
    void SetSecondsOfDay(int t) { SetTime(t / 3600, t / 60 % 60, t % 60); }
    // Moves the clock on by whole seconds, the tick count with it (time of day stays in
    // one day).
    void Advance(int seconds) {
        SetSecondsOfDay(now.SecondsOfDay() + seconds);
        tick += seconds * 1000;
    }
};

class FakeTimer : public CheckTimer {
  public:
    bool enabled = true;
    int changes = 0;
    void SetEnabled(bool e) override {
        enabled = e;
        ++changes;
    }
    bool IsEnabled() const override { return enabled; }
};

class FakePump : public EventPump {
  public:
    bool pending = false;
    int processed = 0;
    std::function<void()> onProcess;  // a command that runs in the yield
    bool InputPending() override { return pending; }
    void ProcessPendingEvents() override {
        ++processed;
        pending = false;
        if (onProcess) onProcess();
    }
};

class FakeMessages : public MessageBoxes {
  public:
    std::vector<MessageBoxRequest> shown;
    std::deque<Answer> answers;  // answered in order; OK (or the first button) when empty
    std::function<void(const MessageBoxRequest&)> onShow;  // called as each box shows
    Answer Show(const MessageBoxRequest& r) override;
    std::vector<std::string> Prompts() const;
};

class RecordingDisplay : public RowDisplay {
  public:
    std::map<int, Color> light, pairBack, codeBack, manualBack, invertBack, totalBack, counterBack;
    std::map<int, std::string> invertCaption, totalCaption, counterCaption, stateCaption,
        inputCaption;
    bool minimized = false;
    std::string statusTime, timeWindow;
    int timeWindowUpdates = 0;
    int paints = 0;  // number of setter calls

    void SetOnOffLight(int i, Color c) override { ++paints, light[i] = c; }
    void SetTimePairBackground(int k, Color c) override { ++paints, pairBack[k] = c; }
    void SetDayHrEvenOddBackground(int i, Color c) override { ++paints, codeBack[i] = c; }
    void SetManualBackground(int i, Color c) override { ++paints, manualBack[i] = c; }
    void SetInvertBackground(int i, Color c) override { ++paints, invertBack[i] = c; }
    void SetInvertCaption(int i, const std::string& t) override { ++paints, invertCaption[i] = t; }
    void SetTotalTimeBackground(int i, Color c) override { ++paints, totalBack[i] = c; }
    void SetTotalTimeCaption(int i, const std::string& t) override {
        ++paints, totalCaption[i] = t;
    }
    void SetCounterBackground(int i, Color c) override { ++paints, counterBack[i] = c; }
    void SetCounterCaption(int i, const std::string& t) override {
        ++paints, counterCaption[i] = t;
    }
    void SetStateDisplayCaption(int b, const std::string& t) override {
        ++paints, stateCaption[b] = t;
    }
    void SetInputDisplayCaption(int b, const std::string& t) override {
        ++paints, inputCaption[b] = t;
    }
    bool IsMinimized() const override { return minimized; }
    void SetStatusTime(const std::string& t) override { statusTime = t; }
    void SetTimeWindowCaption(const std::string& t) override {
        timeWindow = t;
        ++timeWindowUpdates;
    }
};

// The main screen without a window: remembers the last text, colour, enabled, checked and
// visible state of every control, and the pictures loaded.
class RecordingScreen : public MainScreenView {
  public:
    using Key = std::pair<Control, int>;
    std::string title;
    std::map<Key, std::string> text;
    std::map<Key, Color> back;
    std::map<Key, bool> enabled, checked, visible;
    std::map<Key, std::string> picture;      // file path, "res:<id>", or "" when cleared
    std::map<std::string, bool> unreadable;  // picture files that fail to load
    int statusFontSize = 8;
    bool statusFontBold = false;

    void SetTitle(const std::string& t) override { title = t; }
    void SetText(Control c, int i, const std::string& t) override { text[{c, i}] = t; }
    std::string Text(Control c, int i) const override {
        auto it = text.find({c, i});
        return it == text.end() ? std::string() : it->second;
    }
    void SetBackColor(Control c, int i, Color color) override { back[{c, i}] = color; }
    void SetEnabled(Control c, int i, bool e) override { enabled[{c, i}] = e; }
    void SetChecked(Control c, int i, bool e) override { checked[{c, i}] = e; }
    void SetVisible(Control c, int i, bool e) override { visible[{c, i}] = e; }
    void ClearPicture(Control c, int i) override { picture[{c, i}] = ""; }
    bool LoadPicture(Control c, int i, const std::string& path, std::string& error) override {
        if (unreadable.count(path)) {
            error = "Invalid picture";
            return false;
        }
        picture[{c, i}] = path;
        return true;
    }
    void LoadResourcePicture(Control c, int i, int id) override {
        picture[{c, i}] = "res:" + std::to_string(id);
    }
    void SetStatusFont(int size, bool bold) override {
        statusFontSize = size;
        statusFontBold = bold;
    }
    bool IsEnabled(Control c, int i) const {
        auto it = enabled.find({c, i});
        return it == enabled.end() || it->second;
    }
};

// Answers the file dialogs from a script: each entry is a chosen file, or nullopt for Cancel.
class FakeDialogs : public FileDialogs {
  public:
    std::vector<FileDialogRequest> opened, saved;
    std::deque<std::optional<std::string>> answers;
    std::optional<std::string> ShowOpen(const FileDialogRequest& r) override {
        opened.push_back(r);
        return Next();
    }
    std::optional<std::string> ShowSave(const FileDialogRequest& r) override {
        saved.push_back(r);
        return Next();
    }

  private:
    std::optional<std::string> Next() {
        if (answers.empty()) return std::nullopt;
        auto a = answers.front();
        answers.pop_front();
        return a;
    }
};

// A port space of 64 Ki bytes. Every port latches what was last written to it, unless it is
// marked stuck (writes are recorded but do not stick). Every access is recorded in order.
class SimulatedPorts : public Ports {
  public:
    struct Access {
        bool write;
        int16_t port;
        int16_t value;
        bool operator==(const Access&) const = default;
    };
    std::vector<Access> log;
    std::map<int16_t, int16_t> bytes;
    std::map<int16_t, bool> stuck;

    int16_t In8255(int16_t port) override {
        int16_t v = bytes.count(port) ? bytes[port] : 0;
        log.push_back({false, port, v});
        return v;
    }
    int16_t Out8255(int16_t port, int16_t value) override {
        log.push_back({true, port, value});
        if (!stuck[port]) bytes[port] = value;
        return value;
    }
    std::vector<Access> Writes() const;
    void Clear() { log.clear(); }
    bool reachable = true;
    bool Reachable() const override { return reachable; }
};

// A fresh System wired to a fresh set of fakes, with board 0 set up like a default
// configuration: relay port 0x300, inputs 0x301, emulation off, distinct colours.
struct TestSystem {
    FakeClock clock;
    FakeTimer timer;
    FakePump pump;
    FakeMessages messages;
    RecordingDisplay display;
    SimulatedPorts ports;
    RecordingScreen screen;
    FakeDialogs dialogs;
    System s;
    StoreWindowPlaces windowPlaces{s};

    TestSystem();
    FrmRelay& frm() { return s.frmRelay; }
    ModRelay& mod() { return s.modRelay; }
    RelayRecord& relay(int i) { return s.frmRelay.Relay[i]; }
    // Sets pair p of relay i.
    void SetPair(int i, int p, const std::string& start, const std::string& end);
};

// Runs one full tick for every second of the clock's day and gives, per relay of board 1, the
// runs of seconds (first and last, both included) at which its bit of the output port is set
// after the tick.
using OnRun = std::pair<int, int>;
std::array<std::vector<OnRun>, 8> RunDayOnRuns(TestSystem& t);

// The user's documents folder as tests name it; nothing is ever written there.
inline constexpr const char* kDocuments = "/nonexistent/home/Documents/";

// Distinct colours of the test configuration, so that assertions can tell them apart.
inline constexpr Color kRelayON = 0x0000FF00, kRelayOFF = 0x00000080, kTimeON = 0x0000FFFF,
                       kTimeOFF = 0x00C0C0C0, kManualON = 0x00FF00FF, kManualOFF = 0x00808080,
                       kInputON = 0x00FFFF00, kInputOFF = 0x00404040, kTTimeBk = 0x00E0E0E0,
                       kNameBk = 0x00F0F0F0;

}  // namespace vantrellion::test
