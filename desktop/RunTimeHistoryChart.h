// The bar chart of a run-time history: for each day a group of bars, one per relay in its
// group colour, as high as the relay's on-hours, and a grey bar for the hours not logged, so
// that a day on which the program did not run stands out as one full grey bar. Relays that
// were never on in the range get no bar and no legend entry, so that the others keep their
// width. A title above, an axis of 0 to 24 hours on the left, the days below, the legend at
// the bottom. The chart is painted directly: it is a few hundred rectangles and lines.
#pragma once

#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

#include "history/HistoryReport.h"

namespace vantrellion {

inline constexpr int NotLoggedLane = -1;

struct HistoryBar {
    int Lane;  // a relay's lane, or NotLoggedLane
    int Day;   // index into the history's days
    double Hours;
    QRectF Rect;
};

// Where everything goes in a chart of a given size.
struct HistoryChartLayout {
    QRectF Title;
    QRectF Plot;  // 0 hours at its bottom, 24 at its top
    QRectF DayLabels;
    QRectF Legend;
    bool RotatedDayLabels = false;
    size_t DayLabelStep = 1;  // every how many days a label fits without overlapping
    std::vector<int> Lanes;   // the lanes with a bar: relays with on-time, then NotLoggedLane
    std::vector<HistoryBar> Bars;

    // The bar under a point, or null.
    const HistoryBar* BarAt(QPointF p) const;
};

HistoryChartLayout LayOutHistoryChart(const RunTimeHistory& h, const HistoryLabels& labels,
                                      QSizeF size, const QFont& font);
void PaintHistoryChart(QPainter& p, const RunTimeHistory& h, const HistoryLabels& labels,
                       const HistoryChartLayout& l);

// "Relay 1, 2026-11-14: 7.25 h", the text shown for a hovered bar of a lane.
QString HistoryBarText(const RunTimeHistory& h, const HistoryLabels& labels, int lane, int day);

// The chart drawn into a picture of that size, on white.
QImage RenderHistoryChart(const RunTimeHistory& h, const HistoryLabels& labels, QSize size);
bool WriteHistoryChartPng(const RunTimeHistory& h, const HistoryLabels& labels, const QString& path,
                          QSize size);

// The chart on screen. It tells which bar the mouse is over, and which bar is clicked.
class HistoryChartWidget : public QWidget {
  public:
    explicit HistoryChartWidget(QWidget* parent = nullptr);
    void SetHistory(RunTimeHistory h, HistoryLabels labels);
    const HistoryChartLayout& Layout() const { return layout_; }

    // Called with the bar the mouse enters, and with null when it leaves every bar.
    std::function<void(const HistoryBar*)> OnHover;
    std::function<void(const HistoryBar&)> OnClick;

  protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void leaveEvent(QEvent*) override;

  private:
    void Hover(const HistoryBar* bar);

    RunTimeHistory history_;
    HistoryLabels labels_;
    HistoryChartLayout layout_;
    const HistoryBar* hovered_ = nullptr;
};

}  // namespace vantrellion
