// The small interfaces through which the core reaches the world. The desktop layer implements
// them with Qt; tests implement them with fakes.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/Constants.h"
#include "core/Flags.h"

namespace vantrellion {

// Local date and time at whole seconds.
struct DateTime {
    int Year = 2000, Month = 1, Day = 1;
    int Hour = 0, Minute = 0, Second = 0;
    int Weekday = 7;  // Sunday = 1 ... Saturday = 7
    int SecondsOfDay() const { return Hour * 3600 + Minute * 60 + Second; }
};

// "MM/DD/YYYY", the short date of the system.
std::string ShortDateText(const DateTime& d);
// "HH:MM:SS" in 24-hour form.
std::string TimeText(int secondsOfDay);

class Clock {
  public:
    virtual ~Clock() = default;
    virtual DateTime Now() = 0;
    // Milliseconds on a monotonic clock (since boot), in 64 bits: it never wraps, so a cycle
    // runs on however long the machine has been up.
    virtual int64_t MonotonicMs() = 0;
    virtual std::string ShortDate() { return ShortDateText(Now()); }
};

// Milliseconds since boot, suspended time included (CLOCK_BOOTTIME).
int64_t BootTimeMs();

// tmrCheckTime: the 900 ms timer lives in the desktop layer; the core decides when it runs.
class CheckTimer {
  public:
    virtual ~CheckTimer() = default;
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool IsEnabled() const = 0;
};

class EventPump {
  public:
    virtual ~EventPump() = default;
    virtual bool InputPending() = 0;          // keyboard or mouse input is queued
    virtual void ProcessPendingEvents() = 0;  // run all pending events and return
};

// Message boxes, with the classic button sets, icons and answers.
enum class Buttons {
    OK = 0,
    OKCancel = 1,
    AbortRetryIgnore = 2,
    YesNoCancel = 3,
    YesNo = 4,
    RetryCancel = 5
};
enum class Icon { None = 0, Critical = 16, Question = 32, Exclamation = 48, Information = 64 };
enum class Answer { OK = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

struct MessageBoxRequest {
    std::string Prompt;
    Buttons ButtonSet = Buttons::OK;
    Icon BoxIcon = Icon::None;
    int DefaultButton = 1;         // 1, 2 or 3
    std::string Title = AppTitle;  // the program's title unless a box names its own
    // A box that holds the schedule closes by itself after this many seconds (0: never) with
    // TimeoutAnswer, so that an unattended controller never waits on a person for long.
    int TimeoutSeconds = 0;
    Answer TimeoutAnswer = Answer::OK;
    // Captions that replace those of the set's buttons, in order ("" keeps a caption), for a
    // box whose answers are actions rather than OK or Cancel.
    std::vector<std::string> ButtonTexts{};
};

// The answer of the box's default button.
Answer DefaultAnswer(const MessageBoxRequest& r);
// The answer that a box takes when no one is there to answer: Cancel where the box offers it,
// since it stops a command and keeps what is there; otherwise the default button's.
Answer UnattendedAnswer(const MessageBoxRequest& r);
// The caption of an answer's button ("OK", "Cancel", "Yes" ...).
const char* AnswerText(Answer a);
// The caption of the button that gives the answer in this box: its own text where the box
// names one, otherwise the answer's.
std::string AnswerCaption(const MessageBoxRequest& r, Answer a);

class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;
    virtual Answer Show(const MessageBoxRequest& request) = 0;
    // Whether the last box shown closed by its timeout rather than by a person.
    virtual bool LastTimedOut() const { return false; }
    // A box that waits on something: while it is up, ready() is asked every intervalMs, and
    // once it answers true the box closes by itself and nothing is answered. Without a way to
    // wait, ready() is asked once before the box is shown.
    virtual std::optional<Answer> ShowUntil(const MessageBoxRequest& request,
                                            const std::function<bool()>& ready,
                                            int /*intervalMs*/) {
        if (ready()) return std::nullopt;
        return Show(request);
    }
};

// What the engine paints on the main screen. Indices are record indices i (rows), pair
// indices k, or board indices b.
class RowDisplay {
  public:
    virtual ~RowDisplay() = default;
    virtual void SetOnOffLight(int i, Color c) = 0;          // shpOnOffLight: background and fill
    virtual void SetTimePairBackground(int k, Color c) = 0;  // txtStartTime(k) and txtEndTime(k)
    virtual void SetDayHrEvenOddBackground(int i, Color c) = 0;
    virtual void SetManualBackground(int i, Color c) = 0;
    virtual void SetInvertBackground(int i, Color c) = 0;
    virtual void SetInvertCaption(int i, const std::string& text) = 0;
    virtual void SetTotalTimeBackground(int i, Color c) = 0;
    virtual void SetTotalTimeCaption(int i, const std::string& text) = 0;
    virtual void SetCounterBackground(int i, Color c) = 0;
    virtual void SetCounterCaption(int i, const std::string& text) = 0;
    virtual void SetStateDisplayCaption(int b,
                                        const std::string& text) = 0;  // mnuStateDisplayState
    virtual void SetInputDisplayCaption(int b,
                                        const std::string& text) = 0;  // mnuStateDisplayInput
    // The window-level displays of the tick: minimised state, the clock panel of the status
    // bar and the floating time window (created on first use).
    virtual bool IsMinimized() const = 0;
    virtual void SetStatusTime(const std::string& text) = 0;
    virtual void SetTimeWindowCaption(const std::string& text) = 0;
};

// Told at the end of every tick, after the rows and the log: what else publishes the state
// (a remote status, a service manager's watchdog) hangs here.
class TickObserver {
  public:
    virtual ~TickObserver() = default;
    virtual void TickCompleted() = 0;
};

// The port space, as In8255 and Out8255 see it.
class Ports {
  public:
    virtual ~Ports() = default;
    virtual int16_t In8255(int16_t port) = 0;
    virtual int16_t Out8255(int16_t port, int16_t value) = 0;
    // False once the port space is known to be out of reach (reads give 0, writes are lost).
    virtual bool Reachable() const { return true; }
};

// Modal file dialogs. Filters are in the system's form, "Run File (*.run)|*.run"; an empty
// answer means the user cancelled.
struct FileDialogRequest {
    std::string Title;
    std::string Filter;
    std::string InitialDirectory;
    std::string FileName;
    int Flags = 0;  // 0x1000 the file must exist, 2 prompt before overwriting
};

class FileDialogs {
  public:
    virtual ~FileDialogs() = default;
    virtual std::optional<std::string> ShowOpen(const FileDialogRequest& request) = 0;
    virtual std::optional<std::string> ShowSave(const FileDialogRequest& request) = 0;
};

// The saves of the configuration store that other subsystems ask for. The store's access
// layer implements it.
class ConfigurationStore {
  public:
    virtual ~ConfigurationStore() = default;
    // Stores LogFileName; false when the store did not take it. A quiet save shows no box: it
    // tries again a value whose failure has been told already.
    virtual bool ConfigurationLogFileNameSave(bool quiet) = 0;
    virtual void ConfigurationDataFileNameSave() = 0;
    virtual void ConfigurationDataFilePathSave() = 0;
    virtual void ConfigurationFlagLoggingSave() = 0;
    virtual void ConfigurationFlagRunNoBoardsSave() = 0;
};

}  // namespace vantrellion
