// The schedule preview window: the timeline of what the relays of the main screen's schedule
// will do, with a choice of span and start, the warnings, and export to PNG, SVG and CSV. The
// preview runs on a thread of its own over a snapshot of the schedule, so the window never
// holds up the tick; a new computation replaces one still running.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <atomic>
#include <memory>
#include <optional>
#include <thread>

#include "core/SharedState.h"
#include "desktop/TimelinePainter.h"
#include "preview/SchedulePreview.h"

namespace vantrellion {

class SchedulePreviewWindow : public QDialog {
  public:
    SchedulePreviewWindow(System& s, QWidget* parent = nullptr);
    ~SchedulePreviewWindow() override;

    // Takes a fresh snapshot of the schedule and computes the preview for the chosen span.
    // A start that is no date and time is told in the status line, and nothing is computed.
    void Recompute();
    // True while a computation runs.
    bool Busy() const { return worker_.joinable() && !done_; }
    const std::optional<PreviewResult>& Result() const { return result_; }

    // The exports ask for a file name through the system's file dialogs (AskExportFileName).
    // False when nothing was written (no result yet, cancelled, or the file could not be
    // written).
    bool ExportPng();
    bool ExportSvg();
    bool ExportCsv();

    QComboBox* span = nullptr;  // 1, 7 or 30 days
    QRadioButton* fromNow = nullptr;
    QRadioButton* fromDate = nullptr;
    QLineEdit* date = nullptr;  // the start when fromDate is chosen, as typed
    QPushButton* refresh = nullptr;
    TimelineWidget* timeline = nullptr;
    QListWidget* warnings = nullptr;
    QLabel* status = nullptr;

  private:
    void StopWorker();
    void ShowResult(PreviewResult result, double seconds);
    std::optional<std::string> AskFileName(const std::string& title, const std::string& filter,
                                           const std::string& extension);

    System& s_;
    std::thread worker_;
    std::shared_ptr<std::atomic<bool>> cancel_;
    bool done_ = true;
    std::optional<PreviewResult> result_;
};

}  // namespace vantrellion
