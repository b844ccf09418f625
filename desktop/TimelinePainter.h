// Draws a Timeline: the relay names at the left, one lane per relay filled with its group
// colour where it is on, a time axis with days and hours above, and the spans of which
// nothing is known shaded over all lanes. The same drawing goes to the screen, to PNG and to
// SVG files, so that a picture matches what the window shows.
#pragma once

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QRect>
#include <QSize>
#include <QString>
#include <QWidget>
#include <optional>

#include "core/Timeline.h"

namespace vantrellion {

// Where the parts of a timeline go inside an area. PaintTimeline and the hit tests share it,
// so a point under the mouse maps to exactly what was drawn there.
struct TimelineLayout {
    QRect Area;
    QRect Names;  // the column of relay names
    QRect Axis;   // the day and hour labels above the lanes
    QRect Plot;   // the lanes; x runs from Range.From to Range.To
    int LaneCount = 0;
    TimeSpan Range;

    QRect LaneRect(int lane) const;
    // The x of a time, clamped to the plot; the time at an x.
    int XOf(LocalSeconds t) const;
    LocalSeconds TimeAt(int x) const;
    // The lane under a point, or -1 outside the lanes (names column included, so hovering a
    // name also finds its lane).
    int LaneAt(QPoint pos) const;
};

TimelineLayout LayoutTimeline(const QRect& area, const Timeline& t, const QFontMetrics& fm);

void PaintTimeline(QPainter& p, const QRect& area, const Timeline& t);
QImage RenderTimeline(const Timeline& t, QSize size);
bool WriteTimelinePng(const Timeline& t, const QString& path, QSize size);
bool WriteTimelineSvg(const Timeline& t, const QString& path, QSize size);

// "YYYY-MM-DD HH:MM:SS" of a local time.
QString TimelineTimeText(LocalSeconds t);

class TimelineWidget : public QWidget {
  public:
    explicit TimelineWidget(QWidget* parent = nullptr);
    void SetTimeline(Timeline t);
    const Timeline& CurrentTimeline() const { return timeline_; }
    TimelineLayout Layout() const;
    // The tool tip the widget shows at a point (LaneSwitchTimesText), empty where there is no
    // lane.
    QString ToolTipAt(QPoint pos) const;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent*) override;
    bool event(QEvent* e) override;

  private:
    Timeline timeline_;
};

}  // namespace vantrellion
