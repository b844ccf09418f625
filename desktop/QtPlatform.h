// The platform interfaces of the core, served by Qt: clock, check timer, event pump, message
// boxes and file dialogs.
#pragma once

#include <QObject>
#include <QTimer>
#include <QWidget>

#include "core/Platform.h"
#include "core/SystemClock.h"

namespace vantrellion {

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
