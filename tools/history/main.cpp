// vantrellion-history [LOGDIR] [--from DATE] [--to DATE] [--csv FILE] [--png FILE]
//
// Prints the on-hours of each relay per day, read from the daily log files, with the hours
// not logged and the restarts; writes the same figures as CSV and the bar chart as a PNG
// picture. LOGDIR defaults to the configured log directory; the range to the 31 days up to
// today. Dates are written 2026-11-01.
#include <QApplication>
#include <cstdio>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

#include "core/MachineDirectory.h"
#include "desktop/RunTimeHistoryChart.h"
#include "history/HistoryCommand.h"

namespace {

vantrellion::LocalSeconds LocalNow() {
    const std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    vantrellion::DateTime d;
    d.Year = tm.tm_year + 1900;
    d.Month = tm.tm_mon + 1;
    d.Day = tm.tm_mday;
    d.Hour = tm.tm_hour;
    d.Minute = tm.tm_min;
    d.Second = tm.tm_sec;
    return vantrellion::ToLocalSeconds(d);
}

}  // namespace

int main(int argc, char** argv) {
    using namespace vantrellion;
    HistoryCommand command;
    std::string error;
    if (!ParseHistoryCommand(std::vector<std::string>(argv + 1, argv + argc), command, error)) {
        std::fprintf(stderr, "vantrellion-history: %s\n%s", error.c_str(), HistoryUsage);
        return 2;
    }
    // The chart is drawn without a screen, and Qt is started only when a picture is asked for.
    std::unique_ptr<QApplication> app;
    auto writePng = [&](const RunTimeHistory& h, const HistoryLabels& labels,
                        const std::string& path) {
        if (!app) {
            if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
                qputenv("QT_QPA_PLATFORM", "offscreen");
            app = std::make_unique<QApplication>(argc, argv);
        }
        return WriteHistoryChartPng(h, labels, QString::fromLocal8Bit(path.c_str()),
                                    QSize(1200, 600));
    };
    std::string out, err;
    const int status =
        RunHistoryCommand(command, DefaultMachineDirectory(), LocalNow(), out, err, writePng);
    std::fputs(out.c_str(), stdout);
    for (size_t start = 0, end; start < err.size(); start = end + 1) {
        end = err.find('\n', start);
        std::fprintf(stderr, "vantrellion-history: %s\n", err.substr(start, end - start).c_str());
    }
    return status;
}
