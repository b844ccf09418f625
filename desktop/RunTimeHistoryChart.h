// The bar chart of a run-time history: for each day a group of bars, one per relay in its
// group colour, as high as the relay's on-hours, and a grey bar for the hours not logged, so
// that a day on which the program did not run stands out as one full grey bar. Relays that
// were never on in the range get no bar, so that the others keep their width.
#pragma once

#include <QChart>
#include <QImage>
#include <QString>

#include "history/HistoryReport.h"

namespace vantrellion {

// The series holds one bar set per relay with on-time, its property "lane" the relay's lane,
// then the "Not logged" set with lane -1; categories are the days as "11-14".
QChart* MakeHistoryChart(const RunTimeHistory& h, const HistoryLabels& labels);
inline constexpr int NotLoggedLane = -1;

// "Relay 1, 2026-11-14: 7.25 h", the text shown for a hovered bar of a lane.
QString HistoryBarText(const RunTimeHistory& h, const HistoryLabels& labels, int lane, int day);

// The chart drawn into a picture of that size, on white.
QImage RenderHistoryChart(const RunTimeHistory& h, const HistoryLabels& labels, QSize size);
bool WriteHistoryChartPng(const RunTimeHistory& h, const HistoryLabels& labels, const QString& path,
                          QSize size);

}  // namespace vantrellion
