#include "desktop/RunTimeHistoryChart.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QCoreApplication>
#include <QGraphicsLayout>
#include <QGraphicsScene>
#include <QPainter>
#include <QValueAxis>

#include "desktop/QtConvert.h"

namespace vantrellion {

namespace {

double Hours(LocalSeconds s) {
    return static_cast<double>(s) / 3600.0;
}

QString DayLabel(LocalSeconds day) {
    return QString::fromStdString(IsoDate(day).substr(5));
}

}  // namespace

QChart* MakeHistoryChart(const RunTimeHistory& h, const HistoryLabels& labels) {
    auto* chart = new QChart();
    chart->setObjectName("chtRunTimeHistory");
    chart->setTitle(QString("On-hours per day, %1 to %2")
                        .arg(QString::fromStdString(IsoDate(h.Range.From)),
                             QString::fromStdString(
                                 IsoDate(h.Days.empty() ? h.Range.From : h.Days.back().Start))));
    auto* series = new QBarSeries(chart);
    series->setObjectName("serOnHours");
    const int relays = ShownRelays(h);
    for (int n = 0; n < relays; ++n) {
        if (h.RelayOn[n].empty()) continue;
        auto* set = new QBarSet(Q(labels.RelayNames[n]));
        set->setProperty("lane", n);
        set->setObjectName(QString("setRelay%1").arg(n + 1));
        set->setColor(ToQColor(labels.GroupColors[n]));
        // Group colours are pale (one is white by default): an outline keeps a bar visible.
        set->setBorderColor(QColor(60, 60, 60));
        for (const HistoryDay& d : h.Days)
            set->append(Hours(d.RelayOnSeconds[n]));
        series->append(set);
    }
    auto* gap = new QBarSet("Not logged");
    gap->setObjectName("setNotLogged");
    gap->setProperty("lane", NotLoggedLane);
    gap->setBrush(QBrush(QColor(150, 150, 150), Qt::BDiagPattern));
    gap->setBorderColor(QColor(110, 110, 110));
    for (const HistoryDay& d : h.Days)
        gap->append(Hours(d.GapSeconds));
    series->append(gap);
    chart->addSeries(series);

    auto* days = new QBarCategoryAxis(chart);
    for (const HistoryDay& d : h.Days)
        days->append(DayLabel(d.Start) + (d.FileFound ? "" : " no log"));
    if (h.Days.size() > 16) days->setLabelsAngle(-90);
    chart->addAxis(days, Qt::AlignBottom);
    series->attachAxis(days);
    auto* hours = new QValueAxis(chart);
    hours->setRange(0, 24);
    hours->setTickCount(7);
    hours->setLabelFormat("%d");
    hours->setTitleText("Hours");
    chart->addAxis(hours, Qt::AlignLeft);
    series->attachAxis(hours);
    chart->legend()->setAlignment(Qt::AlignBottom);
    return chart;
}

QString HistoryBarText(const RunTimeHistory& h, const HistoryLabels& labels, int lane, int day) {
    if (day < 0 || static_cast<size_t>(day) >= h.Days.size() || lane >= MaxLoggedLanes) return {};
    const HistoryDay& d = h.Days[static_cast<size_t>(day)];
    const bool gap = lane < 0;
    const QString name = gap ? QString("Not logged") : Q(labels.RelayNames[lane]);
    const LocalSeconds s = gap ? d.GapSeconds : d.RelayOnSeconds[lane];
    return QString("%1, %2: %3 h")
        .arg(name, QString::fromStdString(IsoDate(d.Start)), QString::fromStdString(HoursText(s)));
}

QImage RenderHistoryChart(const RunTimeHistory& h, const HistoryLabels& labels, QSize size) {
    // The chart is laid out in a scene of its own, without a view or a window, so that the
    // picture does not depend on what is on the screen.
    QGraphicsScene scene;
    QChart* chart = MakeHistoryChart(h, labels);
    scene.addItem(chart);
    chart->setGeometry(QRectF(QPointF(0, 0), QSizeF(size)));
    // Only the chart's pending layout requests run here, no timers: the tick does not run
    // inside an export.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    if (chart->layout()) chart->layout()->activate();
    QImage image(size, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    scene.render(&p, QRectF(QPointF(0, 0), QSizeF(size)), QRectF(QPointF(0, 0), QSizeF(size)));
    return image;
}

bool WriteHistoryChartPng(const RunTimeHistory& h, const HistoryLabels& labels, const QString& path,
                          QSize size) {
    return RenderHistoryChart(h, labels, size).save(path, "PNG");
}

}  // namespace vantrellion
