// The platform interfaces of the core, served by Qt: clock, check timer, event pump, message
// boxes and file dialogs.
#pragma once

#include <QObject>
#include <QTimer>
#include <QWidget>

#include "core/Platform.h"

namespace vantrellion {

// The system's clock in local time. The time zone is loaded at the start and again at each
// new hour (so a change of the machine's zone shows within the hour), and the local date and
// time are worked out once per second: the several reads of one tick cost no system call and
// all see the same second.
class QtClock : public Clock {
  public:
    QtClock();
    DateTime Now() override;
    // Milliseconds since boot, 32 bits read as signed: wraps negative after 2^31 ms.
    int64_t MonotonicMs() override;

  private:
    int64_t second_ = -1;  // the second since the epoch that now_ stands for
    int zoneHour_ = -1;    // the local hour at which the time zone was last loaded
    DateTime now_;
};

// tmrCheckTime: a 900 ms single-thread timer. Enabling it restarts the count, so the interval
// is the gap between the end of one tick and the start of the next.
class QtCheckTimer : public CheckTimer {
  public:
    QtCheckTimer();
    void SetEnabled(bool enabled) override;
    bool IsEnabled() const override;
    QTimer* Timer() { return &timer_; }

  private:
    QTimer timer_;
};

// Qt has no query for queued input, so the tick's yield always processes pending events.
class QtEventPump : public EventPump {
  public:
    bool InputPending() override { return true; }
    void ProcessPendingEvents() override;
};

class QtMessageBoxes : public MessageBoxes {
  public:
    Answer Show(const MessageBoxRequest& request) override;
    std::optional<Answer> ShowUntil(const MessageBoxRequest& request,
                                    const std::function<bool()>& ready, int intervalMs) override;
    bool LastTimedOut() const override { return timedOut_; }

  private:
    bool timedOut_ = false;
};

class QtFileDialogs : public FileDialogs {
  public:
    // Where a dialog starts when the request names no directory: the user's documents
    // folder, never the process's working directory.
    std::string startDirectory;
    std::optional<std::string> ShowOpen(const FileDialogRequest& request) override;
    std::optional<std::string> ShowSave(const FileDialogRequest& request) override;
};

// "Run File (*.run)|*.run|Text File (*.txt)|*.txt" as Qt's "Run File (*.run);;Text File (*.txt)".
QString QtFilterFromSystemFilter(const std::string& filter);

// The user's documents folder with a trailing "/", created if missing.
std::string UserDocumentsDirectory();

}  // namespace vantrellion
