#include "desktop/RunTimeHistoryChart.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPaintEvent>
#include <algorithm>
#include <cmath>

#include "desktop/QtConvert.h"

namespace vantrellion {

namespace {

constexpr double Pad = 8;
constexpr double Swatch = 12;
constexpr int HourStep = 4;  // a grid line and a label every four hours
const QColor BarOutline{60, 60, 60};
const QColor NotLoggedFill{150, 150, 150};
const QColor NotLoggedOutline{110, 110, 110};
const QColor Grid{220, 220, 220};

double Hours(LocalSeconds s) {
    return static_cast<double>(s) / 3600.0;
}

QString DayLabel(const HistoryDay& d) {
    return QString::fromStdString(IsoDate(d.Start).substr(5)) +
           (d.FileFound ? QString() : QStringLiteral(" no log"));
}

QString Title(const RunTimeHistory& h) {
    return QString("On-hours per day, %1 to %2")
        .arg(QString::fromStdString(IsoDate(h.Range.From)),
             QString::fromStdString(IsoDate(h.Days.empty() ? h.Range.From : h.Days.back().Start)));
}

QString LaneName(const HistoryLabels& labels, int lane) {
    return lane == NotLoggedLane ? QStringLiteral("Not logged") : Q(labels.RelayNames[lane]);
}

QFont TitleFont(QFont f) {
    f.setBold(true);
    return f;
}

void SetBarLook(QPainter& p, int lane, const HistoryLabels& labels, bool outlined) {
    if (lane == NotLoggedLane) {
        p.setBrush(QBrush(NotLoggedFill, Qt::BDiagPattern));
        p.setPen(outlined ? QPen(NotLoggedOutline) : QPen(Qt::NoPen));
    } else {
        p.setBrush(ToQColor(labels.GroupColors[lane]));
        // Group colours are pale (one is white by default): an outline keeps a bar visible.
        p.setPen(outlined ? QPen(BarOutline) : QPen(Qt::NoPen));
    }
}

// The legend's entries flowed into rows across the width; calls place(lane, swatch, text
// origin) for each and returns the height used.
template <typename Place>
double FlowLegend(const std::vector<int>& lanes, const HistoryLabels& labels,
                  const QFontMetricsF& fm, QRectF area, Place place) {
    const double rowH = std::max(fm.height(), Swatch) + 4;
    double x = area.left(), y = area.top();
    for (int lane : lanes) {
        const double w = Swatch + 4 + fm.horizontalAdvance(LaneName(labels, lane)) + 16;
        if (x > area.left() && x + w > area.right()) {
            x = area.left();
            y += rowH;
        }
        place(lane, QRectF(x, y + (rowH - Swatch) / 2, Swatch, Swatch),
              QPointF(x + Swatch + 4, y + (rowH - fm.height()) / 2 + fm.ascent()));
        x += w;
    }
    return lanes.empty() ? 0 : y + rowH - area.top();
}

}  // namespace

const HistoryBar* HistoryChartLayout::BarAt(QPointF p) const {
    for (const HistoryBar& b : Bars) {
        // A bar of a few hours is still easy to point at: its whole column counts.
        const QRectF column(b.Rect.left(), Plot.top(), b.Rect.width(), Plot.height());
        if (column.contains(p)) return &b;
    }
    return nullptr;
}

HistoryChartLayout LayOutHistoryChart(const RunTimeHistory& h, const HistoryLabels& labels,
                                      QSizeF size, const QFont& font) {
    HistoryChartLayout l;
    const QFontMetricsF fm(font), titleFm(TitleFont(font));
    const int relays = ShownRelays(h);
    for (int n = 0; n < relays; ++n)
        if (!h.RelayOn[n].empty()) l.Lanes.push_back(n);
    l.Lanes.push_back(NotLoggedLane);

    const double width = std::max(size.width(), 4 * Pad), height = std::max(size.height(), 4 * Pad);
    l.Title = QRectF(Pad, Pad, width - 2 * Pad, titleFm.height());
    const QRectF legendArea(Pad, 0, width - 2 * Pad, height);
    const double legendH = FlowLegend(l.Lanes, labels, fm, legendArea, [](int, QRectF, QPointF) {});
    l.Legend = QRectF(Pad, height - Pad - legendH, width - 2 * Pad, legendH);

    l.RotatedDayLabels = h.Days.size() > 16;
    double labelW = 0;
    for (const HistoryDay& d : h.Days)
        labelW = std::max(labelW, fm.horizontalAdvance(DayLabel(d)));
    const double dayLabelsH = (l.RotatedDayLabels ? labelW : fm.height()) + 6;
    const double axisW = fm.height() + 6 + fm.horizontalAdvance(QStringLiteral("24")) + 6;

    const double top = l.Title.bottom() + Pad;
    const double bottom = std::max(top + 1, l.Legend.top() - Pad - dayLabelsH);
    l.Plot =
        QRectF(QPointF(Pad + axisW, top), QPointF(std::max(Pad + axisW + 1, width - Pad), bottom));
    l.DayLabels = QRectF(l.Plot.left(), l.Plot.bottom(), l.Plot.width(), dayLabelsH);

    if (h.Days.empty()) return l;
    const double groupW = l.Plot.width() / static_cast<double>(h.Days.size());
    const double labelExtent = l.RotatedDayLabels ? fm.height() : labelW;
    l.DayLabelStep = static_cast<size_t>(std::max(1.0, std::ceil((labelExtent + 4) / groupW)));
    const double barW = groupW * 0.8 / static_cast<double>(l.Lanes.size());
    for (size_t d = 0; d < h.Days.size(); ++d) {
        const HistoryDay& day = h.Days[d];
        for (size_t i = 0; i < l.Lanes.size(); ++i) {
            const int lane = l.Lanes[i];
            const double hours =
                Hours(lane == NotLoggedLane ? day.GapSeconds : day.RelayOnSeconds[lane]);
            const double barH = std::clamp(hours, 0.0, 24.0) / 24.0 * l.Plot.height();
            const double x = l.Plot.left() + static_cast<double>(d) * groupW + groupW * 0.1 +
                             static_cast<double>(i) * barW;
            l.Bars.push_back(
                {lane, static_cast<int>(d), hours, QRectF(x, l.Plot.bottom() - barH, barW, barH)});
        }
    }
    return l;
}

void PaintHistoryChart(QPainter& p, const RunTimeHistory& h, const HistoryLabels& labels,
                       const HistoryChartLayout& l) {
    p.save();
    const QFontMetricsF fm(p.font());
    p.setRenderHint(QPainter::Antialiasing, false);

    const QFont font = p.font();
    p.setFont(TitleFont(font));
    p.setPen(Qt::black);
    p.drawText(l.Title, Qt::AlignHCenter | Qt::AlignVCenter, Title(h));
    p.setFont(font);

    // The hours: grid lines and labels, and the axis title turned up along the left edge.
    for (int hour = 0; hour <= 24; hour += HourStep) {
        const double y = l.Plot.bottom() - hour / 24.0 * l.Plot.height();
        p.setPen(Grid);
        if (hour > 0) p.drawLine(QPointF(l.Plot.left(), y), QPointF(l.Plot.right(), y));
        p.setPen(Qt::black);
        const QString text = QString::number(hour);
        p.drawText(QPointF(l.Plot.left() - 6 - fm.horizontalAdvance(text), y + fm.ascent() / 2 - 1),
                   text);
    }
    p.save();
    p.translate(Pad + fm.ascent(), l.Plot.center().y());
    p.rotate(-90);
    const QString hoursTitle = QStringLiteral("Hours");
    p.drawText(QPointF(-fm.horizontalAdvance(hoursTitle) / 2, 0), hoursTitle);
    p.restore();

    for (const HistoryBar& b : l.Bars) {
        if (b.Rect.height() <= 0) continue;
        SetBarLook(p, b.Lane, labels, b.Rect.width() >= 3);
        p.drawRect(b.Rect);
    }
    p.setPen(Qt::black);
    p.drawLine(l.Plot.bottomLeft(), l.Plot.bottomRight());
    p.drawLine(l.Plot.bottomLeft(), l.Plot.topLeft());

    // The days: as many labels as fit without overlapping, under the middle of their group.
    if (!h.Days.empty()) {
        const double groupW = l.Plot.width() / static_cast<double>(h.Days.size());
        for (size_t d = 0; d < h.Days.size(); d += l.DayLabelStep) {
            const QString text = DayLabel(h.Days[d]);
            const double x = l.Plot.left() + (static_cast<double>(d) + 0.5) * groupW;
            if (l.RotatedDayLabels) {
                p.save();
                p.translate(x + fm.ascent() / 2 - 1,
                            l.DayLabels.top() + 4 + fm.horizontalAdvance(text));
                p.rotate(-90);
                p.drawText(QPointF(0, 0), text);
                p.restore();
            } else {
                p.drawText(QPointF(x - fm.horizontalAdvance(text) / 2,
                                   l.DayLabels.top() + 3 + fm.ascent()),
                           text);
            }
        }
    }

    FlowLegend(l.Lanes, labels, fm, l.Legend, [&](int lane, QRectF swatch, QPointF origin) {
        SetBarLook(p, lane, labels, true);
        p.drawRect(swatch);
        p.setPen(Qt::black);
        p.drawText(origin, LaneName(labels, lane));
    });
    p.restore();
}

QString HistoryBarText(const RunTimeHistory& h, const HistoryLabels& labels, int lane, int day) {
    if (day < 0 || static_cast<size_t>(day) >= h.Days.size() || lane >= MaxLoggedLanes) return {};
    const HistoryDay& d = h.Days[static_cast<size_t>(day)];
    const bool gap = lane < 0;
    const QString name = LaneName(labels, gap ? NotLoggedLane : lane);
    const LocalSeconds s = gap ? d.GapSeconds : d.RelayOnSeconds[lane];
    return QString("%1, %2: %3 h")
        .arg(name, QString::fromStdString(IsoDate(d.Start)), QString::fromStdString(HoursText(s)));
}

QImage RenderHistoryChart(const RunTimeHistory& h, const HistoryLabels& labels, QSize size) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter p(&image);
    PaintHistoryChart(p, h, labels, LayOutHistoryChart(h, labels, QSizeF(size), p.font()));
    return image;
}

bool WriteHistoryChartPng(const RunTimeHistory& h, const HistoryLabels& labels, const QString& path,
                          QSize size) {
    return RenderHistoryChart(h, labels, size).save(path, "PNG");
}

HistoryChartWidget::HistoryChartWidget(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setAutoFillBackground(true);
    QPalette pal = palette();
    pal.setColor(QPalette::Window, Qt::white);
    setPalette(pal);
}

void HistoryChartWidget::SetHistory(RunTimeHistory h, HistoryLabels labels) {
    history_ = std::move(h);
    labels_ = std::move(labels);
    hovered_ = nullptr;
    layout_ = LayOutHistoryChart(history_, labels_, QSizeF(size()), font());
    update();
}

void HistoryChartWidget::paintEvent(QPaintEvent*) {
    QPainter p(this);
    PaintHistoryChart(p, history_, labels_, layout_);
}

void HistoryChartWidget::resizeEvent(QResizeEvent*) {
    hovered_ = nullptr;
    layout_ = LayOutHistoryChart(history_, labels_, QSizeF(size()), font());
}

void HistoryChartWidget::mouseMoveEvent(QMouseEvent* e) {
    Hover(layout_.BarAt(e->position()));
}

void HistoryChartWidget::mousePressEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton) return;
    if (const HistoryBar* bar = layout_.BarAt(e->position()); bar && OnClick) OnClick(*bar);
}

void HistoryChartWidget::leaveEvent(QEvent*) {
    Hover(nullptr);
}

void HistoryChartWidget::Hover(const HistoryBar* bar) {
    if (bar == hovered_) return;
    hovered_ = bar;
    if (OnHover) OnHover(bar);
}

}  // namespace vantrellion
