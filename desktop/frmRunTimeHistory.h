// frmRunTimeHistory: what the relays did, read from the daily logs. A range of days, a bar
// chart of the on-hours per relay and day (with the hours not logged), the value of the bar
// under the mouse, a summary of what the reader met, and export of the chart as PNG and of the
// figures as CSV. Below, the day view: one lane per relay over one day, with the gaps shaded;
// a click on a bar shows its day there. The window reads the logs when it opens, when Show is
// pressed and when the day changes; the tick goes on meanwhile.
#pragma once

#include <QDateEdit>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <functional>
#include <string>

#include "core/ExportFileName.h"
#include "core/SharedState.h"
#include "desktop/RunTimeHistoryChart.h"
#include "desktop/TimelinePainter.h"
#include "history/HistoryReport.h"

namespace vantrellion {

class frmRunTimeHistory : public QDialog {
    Q_OBJECT
  public:
    explicit frmRunTimeHistory(System& s, QWidget* parent = nullptr);

    QDateEdit* dtpFrom;
    QDateEdit* dtpTo;
    QPushButton* cmdShow;
    QPushButton* cmdExportPng;
    QPushButton* cmdExportCsv;
    HistoryChartWidget* chtHistory;
    QLabel* lblHover;
    QLabel* lblSummary;
    QDateEdit* dtpDay;
    QPushButton* cmdExportDayPng;
    TimelineWidget* tlDay;

    const RunTimeHistory& History() const { return history_; }
    const HistoryLabels& Labels() const { return labels_; }

    // Reads the logs of the chosen days and redraws.
    void cmdShow_Click();
    void cmdExportPng_Click();
    void cmdExportCsv_Click();
    // Reads the log of the day in dtpDay into the day view.
    void dtpDay_Change();
    void cmdExportDayPng_Click();

  private:
    std::string LogDirectory() const;
    void ShowBarValue(const HistoryBar* bar);
    // Asks for the file (AskExportFileName) and writes it; tells a write that failed.
    bool Save(const ExportFileRequest& request,
              const std::function<bool(const std::string&)>& write);

    System& s_;
    RunTimeHistory history_;
    HistoryLabels labels_;
    RunTimeHistory dayHistory_;
};

}  // namespace vantrellion
