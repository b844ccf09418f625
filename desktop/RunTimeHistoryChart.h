// The bar chart of a run-time history: for each day a group of bars, one per relay in its
// group colour, as high as the relay's on-hours, and a grey bar for the hours not logged, so
// that a day on which the program did not run stands out as one full grey bar.
#pragma once

#include <QChart>
#include <QImage>
#include <QString>

#include "history/HistoryReport.h"

namespace vantrellion {

// The chart's parts by name: the series holds one bar set per relay, then the "Not logged"
// set; categories are the days as "11-14".
QChart* MakeHistoryChart(const RunTimeHistory& h, const HistoryLabels& labels);

// "Relay 1, 2026-11-14: 7.25 h", the text shown for a hovered bar.
QString HistoryBarText(const RunTimeHistory& h, const HistoryLabels& labels, int set, int day);

// The chart drawn into a picture of that size, on white.
QImage RenderHistoryChart(const RunTimeHistory& h, const HistoryLabels& labels, QSize size);
bool WriteHistoryChartPng(const RunTimeHistory& h, const HistoryLabels& labels, const QString& path,
                          QSize size);

}  // namespace vantrellion
