#include "desktop/TimelinePainter.h"

#include <QEvent>
#include <QFile>
#include <QHelpEvent>
#include <QPaintEvent>
#include <QSvgGenerator>
#include <QToolTip>
#include <algorithm>
#include <array>

#include "core/DateTimeText.h"
#include "core/LaneSwitchTimes.h"
#include "desktop/QtConvert.h"

namespace vantrellion {

namespace {

constexpr int Margin = 4;
constexpr int LaneInset = 2;  // white above and below a lane's fill, so neighbours stay apart
constexpr LocalSeconds Day = 86400;

const QColor Background{Qt::white};
const QColor LaneOff{244, 244, 244};
const QColor GridHour{215, 215, 215};
const QColor GridDay{110, 110, 110};
const QColor TextColor{Qt::black};
const QColor GapShade{120, 120, 120, 110};
const QColor DayOffShade{150, 190, 235};  // a day off: the relay stays off by the list
const QColor PausedShade{240, 200, 120};  // a pause: the relay stays off until its end

LocalSeconds FloorTo(LocalSeconds t, LocalSeconds step) {
    LocalSeconds q = t / step;
    if (t % step != 0 && t < 0) --q;
    return q * step;
}

QString WeekdayName(int weekday) {
    static const std::array<const char*, 7> names{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    return QString::fromLatin1(names[static_cast<size_t>((weekday - 1 + 7) % 7)]);
}

QString DayLabel(LocalSeconds t, bool withWeekday) {
    const DateTime d = FromLocalSeconds(t);
    QString date = QString::asprintf("%04d-%02d-%02d", d.Year, d.Month, d.Day);
    return withWeekday ? WeekdayName(d.Weekday) + QLatin1Char(' ') + date : date;
}

// The smallest step of the list whose ticks lie at least minPixels apart; 0 if none does.
LocalSeconds PickStep(const TimelineLayout& l, std::initializer_list<LocalSeconds> steps,
                      int minPixels) {
    const LocalSeconds len = l.Range.Length();
    for (LocalSeconds s : steps) {
        if (static_cast<double>(s) * l.Plot.width() / static_cast<double>(len) >= minPixels)
            return s;
    }
    return 0;
}

void PaintAxis(QPainter& p, const TimelineLayout& l) {
    const QFontMetrics fm = p.fontMetrics();
    const LocalSeconds from = l.Range.From, to = l.Range.To;
    const int lineH = fm.height();
    const int dayTextY = l.Axis.top() + fm.ascent() + 1;
    const int hourTextY = dayTextY + lineH + 1;

    // Hours: ticks and labels at a step that leaves room for "00:00" between them.
    const int hourLabelW = fm.horizontalAdvance(QStringLiteral("00:00")) + 8;
    const LocalSeconds hourStep =
        PickStep(l, {900, 1800, 3600, 2 * 3600, 3 * 3600, 6 * 3600, 12 * 3600}, hourLabelW);
    if (hourStep > 0) {
        for (LocalSeconds t = FloorTo(from, hourStep); t <= to; t += hourStep) {
            if (t < from || t % Day == 0) continue;
            const int x = l.XOf(t);
            p.setPen(GridHour);
            p.drawLine(x, l.Plot.top(), x, l.Plot.bottom());
            const int secs = static_cast<int>(t - FloorTo(t, Day));
            const QString text = QString::asprintf("%02d:%02d", secs / 3600, secs / 60 % 60);
            // A label that would run past the right edge is left out rather than cut.
            if (x + (fm.horizontalAdvance(text) + 1) / 2 > l.Plot.right()) continue;
            p.setPen(TextColor);
            p.drawText(x - fm.horizontalAdvance(text) / 2, hourTextY, text);
        }
    }

    // Days: a strong line at every midnight that has room, labels as often as they fit.
    const bool roomForWeekday =
        PickStep(l, {Day}, fm.horizontalAdvance(QStringLiteral("Wed 0000-00-00")) + 10) > 0;
    const int dayLabelW = fm.horizontalAdvance(roomForWeekday ? QStringLiteral("Wed 0000-00-00")
                                                              : QStringLiteral("0000-00-00")) +
                          10;
    const LocalSeconds labelStep = PickStep(
        l, {Day, 2 * Day, 7 * Day, 14 * Day, 28 * Day, 91 * Day, 182 * Day, 364 * Day}, dayLabelW);
    const bool everyDayLine = PickStep(l, {Day}, 4) > 0;
    const LocalSeconds firstDay = FloorTo(from, Day);
    for (LocalSeconds t = firstDay; t < to; t += Day) {
        const bool labelled = labelStep > 0 && (t / Day) % (labelStep / Day) == 0;
        if (t > from && (everyDayLine || labelled)) {
            const int x = l.XOf(t);
            p.setPen(GridDay);
            if (hourStep > 0) {
                // The line leaves a gap for the midnight's "00:00" in the row of the hours.
                p.drawLine(x, l.Axis.top(), x, hourTextY - fm.ascent() - 1);
                p.drawLine(x, hourTextY + fm.descent() + 1, x, l.Plot.bottom());
            } else {
                p.drawLine(x, l.Axis.top(), x, l.Plot.bottom());
            }
            if (hourStep > 0) {
                p.setPen(TextColor);
                p.drawText(x - fm.horizontalAdvance(QStringLiteral("00:00")) / 2, hourTextY,
                           QStringLiteral("00:00"));
            }
        }
        // A day that starts before the range is labelled at the left edge when there is room
        // before the next midnight.
        const bool partialFirst = t < from && labelStep > 0 && labelStep == Day &&
                                  l.XOf(t + Day) - l.Plot.left() >= dayLabelW;
        if (!(labelled && t >= from) && !partialFirst) continue;
        const int x = std::max(l.XOf(t), l.Plot.left()) + 3;
        if (x + dayLabelW - 10 > l.Plot.right() + 1) continue;
        p.setPen(TextColor);
        p.drawText(x, dayTextY, DayLabel(t, roomForWeekday));
    }
}

void PaintLaneBackgrounds(QPainter& p, const TimelineLayout& l) {
    for (int i = 0; i < l.LaneCount; ++i) {
        const QRect band = l.LaneRect(i).adjusted(0, LaneInset, 0, -LaneInset);
        p.fillRect(QRect(l.Plot.left(), band.top(), l.Plot.width(), band.height()), LaneOff);
    }
}

void PaintLanes(QPainter& p, const TimelineLayout& l, const Timeline& t) {
    const QFontMetrics fm = p.fontMetrics();
    for (int i = 0; i < l.LaneCount; ++i) {
        const TimelineLane& lane = t.Lanes[static_cast<size_t>(i)];
        const QRect r = l.LaneRect(i);
        const QRect fillBand = r.adjusted(0, LaneInset, 0, -LaneInset);
        const QColor on = ToQColor(lane.GroupColor);
        const QColor edge = on.darker(170);
        for (const TimeSpan& s : lane.On) {
            if (s.To <= l.Range.From || s.From >= l.Range.To) continue;
            const int x1 = l.XOf(s.From);
            const int x2 = std::max(l.XOf(s.To), x1 + 1);
            const QRect span(x1, fillBand.top(), x2 - x1, fillBand.height());
            p.fillRect(span, on);
            // A darker edge, so that pale group colours (white is a default) stand out
            // from the lane.
            p.setPen(edge);
            if (span.width() >= 3) {
                p.drawRect(span.adjusted(0, 0, -1, -1));
            } else {
                p.drawLine(span.left(), span.top(), span.left(), span.bottom());
            }
        }
        p.setPen(TextColor);
        const QRect nameRect(l.Names.left() + 2, r.top(), l.Names.width() - 8, r.height());
        p.drawText(nameRect, Qt::AlignVCenter | Qt::AlignLeft,
                   fm.elidedText(Q(lane.Name), Qt::ElideRight, nameRect.width()));
    }
}

// Days off and pauses shade the lane where they hold the relay, each with its own hatch, so
// that an off stretch there reads as held and not as a schedule that does nothing.
void PaintHolds(QPainter& p, const TimelineLayout& l, const Timeline& t) {
    auto shade = [&](const std::vector<TimeSpan>& spans, const QRect& band, const QColor& c,
                     Qt::BrushStyle hatch) {
        for (const TimeSpan& s : spans) {
            if (s.To <= l.Range.From || s.From >= l.Range.To) continue;
            const int x1 = l.XOf(s.From);
            const int x2 = std::max(l.XOf(s.To), x1 + 1);
            const QRect r(x1, band.top(), x2 - x1, band.height());
            p.fillRect(r, c);
            p.fillRect(r, QBrush(c.darker(160), hatch));
        }
    };
    for (int i = 0; i < l.LaneCount; ++i) {
        const TimelineLane& lane = t.Lanes[static_cast<size_t>(i)];
        const QRect band = l.LaneRect(i).adjusted(0, LaneInset, 0, -LaneInset);
        shade(lane.DaysOff, band, DayOffShade, Qt::FDiagPattern);
        shade(lane.Paused, band, PausedShade, Qt::HorPattern);
    }
}

void PaintGaps(QPainter& p, const TimelineLayout& l, const Timeline& t) {
    for (const TimeSpan& g : t.Gaps) {
        if (g.To <= l.Range.From || g.From >= l.Range.To) continue;
        const int x1 = l.XOf(g.From);
        const int x2 = std::max(l.XOf(g.To), x1 + 1);
        const QRect r(x1, l.Plot.top(), x2 - x1, l.Plot.height());
        p.fillRect(r, GapShade);
        p.fillRect(r, QBrush(GridDay, Qt::BDiagPattern));
    }
}

}  // namespace

QRect TimelineLayout::LaneRect(int lane) const {
    if (LaneCount <= 0) return {};
    const int top = Plot.top() + lane * Plot.height() / LaneCount;
    const int bottom = Plot.top() + (lane + 1) * Plot.height() / LaneCount;
    return QRect(Names.left(), top, Plot.right() - Names.left() + 1, bottom - top);
}

int TimelineLayout::XOf(LocalSeconds t) const {
    const LocalSeconds len = Range.Length();
    if (len <= 0) return Plot.left();
    t = std::clamp(t, Range.From, Range.To);
    return Plot.left() + static_cast<int>(static_cast<double>(t - Range.From) * Plot.width() /
                                          static_cast<double>(len));
}

LocalSeconds TimelineLayout::TimeAt(int x) const {
    if (Plot.width() <= 0) return Range.From;
    x = std::clamp(x, Plot.left(), Plot.left() + Plot.width());
    return Range.From +
           static_cast<LocalSeconds>(static_cast<double>(x - Plot.left()) *
                                     static_cast<double>(Range.Length()) / Plot.width());
}

int TimelineLayout::LaneAt(QPoint pos) const {
    if (LaneCount <= 0 || pos.y() < Plot.top() || pos.y() > Plot.bottom()) return -1;
    if (pos.x() < Names.left() || pos.x() > Plot.right()) return -1;
    for (int i = 0; i < LaneCount; ++i) {
        const QRect r = LaneRect(i);
        if (pos.y() >= r.top() && pos.y() <= r.bottom()) return i;
    }
    return -1;
}

TimelineLayout LayoutTimeline(const QRect& area, const Timeline& t, const QFontMetrics& fm) {
    TimelineLayout l;
    l.Area = area;
    l.Range = t.Range;
    l.LaneCount = static_cast<int>(t.Lanes.size());
    const QRect inner = area.adjusted(Margin, Margin, -Margin, -Margin);
    int nameW = 40;
    for (const TimelineLane& lane : t.Lanes)
        nameW = std::max(nameW, fm.horizontalAdvance(Q(lane.Name)) + 12);
    nameW = std::min(nameW, std::max(40, inner.width() / 3));
    const int axisH = 2 * fm.height() + 6;
    l.Names = QRect(inner.left(), inner.top() + axisH, nameW, std::max(0, inner.height() - axisH));
    l.Axis = QRect(inner.left() + nameW, inner.top(), std::max(0, inner.width() - nameW), axisH);
    l.Plot = QRect(l.Axis.left(), l.Names.top(), l.Axis.width(), l.Names.height());
    return l;
}

void PaintTimeline(QPainter& p, const QRect& area, const Timeline& t) {
    p.save();
    p.setClipRect(area);
    p.fillRect(area, Background);
    const TimelineLayout l = LayoutTimeline(area, t, p.fontMetrics());
    if (l.Plot.width() > 0 && l.Plot.height() > 0 && t.Range.Length() > 0) {
        PaintLaneBackgrounds(p, l);
        PaintAxis(p, l);
        PaintHolds(p, l, t);
        PaintLanes(p, l, t);
        PaintGaps(p, l, t);
        p.setPen(GridDay);
        p.setBrush(Qt::NoBrush);
        p.drawRect(l.Plot.adjusted(0, 0, -1, -1));
    }
    p.restore();
}

QImage RenderTimeline(const Timeline& t, QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Background);
    QPainter p(&image);
    PaintTimeline(p, QRect(QPoint(0, 0), size), t);
    p.end();
    return image;
}

bool WriteTimelinePng(const Timeline& t, const QString& path, QSize size) {
    return RenderTimeline(t, size).save(path, "PNG");
}

bool WriteTimelineSvg(const Timeline& t, const QString& path, QSize size) {
    {
        // QSvgGenerator reports no write error; check first that the file can be written.
        QFile probe(path);
        if (!probe.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
    }
    QSvgGenerator gen;
    gen.setFileName(path);
    gen.setSize(size);
    gen.setViewBox(QRect(QPoint(0, 0), size));
    gen.setTitle(QStringLiteral("Vantrellion timeline"));
    QPainter p;
    if (!p.begin(&gen)) return false;
    PaintTimeline(p, QRect(QPoint(0, 0), size), t);
    return p.end();
}

QString TimelineTimeText(LocalSeconds t) {
    return Q(DateTimeText(t));
}

TimelineWidget::TimelineWidget(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void TimelineWidget::SetTimeline(Timeline t) {
    timeline_ = std::move(t);
    updateGeometry();  // the lane count sets the height it needs
    update();
}

TimelineLayout TimelineWidget::Layout() const {
    return LayoutTimeline(rect(), timeline_, fontMetrics());
}

QString TimelineWidget::ToolTipAt(QPoint pos) const {
    const TimelineLayout l = Layout();
    const int lane = l.LaneAt(pos);
    if (lane < 0) return {};
    return Q(LaneSwitchTimesText(timeline_, static_cast<size_t>(lane), l.TimeAt(pos.x())));
}

QSize TimelineWidget::sizeHint() const {
    const int lanes = std::max<int>(1, static_cast<int>(timeline_.Lanes.size()));
    return {900, 2 * fontMetrics().height() + 14 + lanes * (fontMetrics().height() + 12)};
}

QSize TimelineWidget::minimumSizeHint() const {
    // Every lane at least as high as its name, so that the names at the left never overlap.
    const int lanes = std::max<int>(1, static_cast<int>(timeline_.Lanes.size()));
    return {300, 2 * fontMetrics().height() + 14 + lanes * (fontMetrics().height() + 2)};
}

void TimelineWidget::paintEvent(QPaintEvent*) {
    QPainter p(this);
    PaintTimeline(p, rect(), timeline_);
}

bool TimelineWidget::event(QEvent* e) {
    if (e->type() == QEvent::ToolTip) {
        auto* help = static_cast<QHelpEvent*>(e);
        const QString text = ToolTipAt(help->pos());
        if (text.isEmpty()) {
            QToolTip::hideText();
            e->ignore();
        } else {
            QToolTip::showText(help->globalPos(), text, this);
        }
        return true;
    }
    return QWidget::event(e);
}

}  // namespace vantrellion
