// vantrellion-history [LOGDIR] [--from DATE] [--to DATE] [--csv FILE] [--png FILE]
//
// Prints the on-hours of each relay per day, read from the daily log files, with the hours
// not logged and the restarts; writes the same figures as CSV and the bar chart as a PNG
// picture. LOGDIR defaults to the configured log directory; the range to the 31 days up to
// today. Dates are written 2026-11-01.
#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include "core/MachineDirectory.h"
#include "desktop/RunTimeHistoryChart.h"
#include "history/HistoryReport.h"
#include "history/HistorySettings.h"

namespace {

using namespace vantrellion;

const char* const Usage =
    "usage: vantrellion-history [LOGDIR] [--from DATE] [--to DATE] [--csv FILE] [--png FILE]\n"
    "  LOGDIR       directory of the daily logs (default: the configured log directory)\n"
    "  --from DATE  first day, as 2026-11-01 (default: 30 days before --to)\n"
    "  --to DATE    last day (default: today)\n"
    "  --csv FILE   write the figures per day as CSV\n"
    "  --png FILE   write the bar chart as a PNG picture\n";

LocalSeconds LocalNow() {
    const std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    DateTime d;
    d.Year = tm.tm_year + 1900;
    d.Month = tm.tm_mon + 1;
    d.Day = tm.tm_mday;
    d.Hour = tm.tm_hour;
    d.Minute = tm.tm_min;
    d.Second = tm.tm_sec;
    return ToLocalSeconds(d);
}

int Fail(const std::string& message) {
    std::fprintf(stderr, "vantrellion-history: %s\n", message.c_str());
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    std::string logDir, from, to, csv, png;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        auto value = [&](std::string& into) {
            if (i + 1 >= argc) return false;
            into = argv[++i];
            return true;
        };
        if (a == "-h" || a == "--help") {
            std::fputs(Usage, stdout);
            return 0;
        } else if (a == "--from") {
            if (!value(from)) return Fail("--from needs a date\n" + std::string(Usage));
        } else if (a == "--to") {
            if (!value(to)) return Fail("--to needs a date\n" + std::string(Usage));
        } else if (a == "--csv") {
            if (!value(csv)) return Fail("--csv needs a file name");
        } else if (a == "--png") {
            if (!value(png)) return Fail("--png needs a file name");
        } else if (a.size() > 1 && a[0] == '-') {
            return Fail("unknown option " + a + "\n" + Usage);
        } else if (logDir.empty()) {
            logDir = a;
        } else {
            return Fail("only one log directory can be given\n" + std::string(Usage));
        }
    }

    const LocalSeconds now = LocalNow();
    LocalSeconds last = DayStart(now), first = 0;
    if (!to.empty() && !ParseIsoDate(to, last)) return Fail("not a date: " + to);
    if (from.empty())
        first = last - 30 * SecondsPerDay;
    else if (!ParseIsoDate(from, first))
        return Fail("not a date: " + from);
    if (last < first) return Fail("--to lies before --from");

    const HistorySettings settings = ReadHistorySettings(DefaultMachineDirectory());
    if (logDir.empty())
        logDir = settings.LogDirectory;
    else if (logDir.back() != '/')
        logDir += '/';

    const RunTimeHistory h = ReadRunTimeHistory({logDir, first, last, now});
    std::fputs(("Log directory: " + logDir + "\n").c_str(), stdout);
    std::fputs(HistoryTableText(h, settings.Labels).c_str(), stdout);

    int status = 0;
    if (!csv.empty() && !WriteHistoryFile(csv, HistoryCsv(h, settings.Labels))) {
        std::fprintf(stderr, "vantrellion-history: cannot write %s\n", csv.c_str());
        status = 1;
    }
    if (!png.empty()) {
        // The chart is drawn without a screen.
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        QApplication app(argc, argv);
        if (!WriteHistoryChartPng(h, settings.Labels, QString::fromLocal8Bit(png.c_str()),
                                  QSize(1200, 600))) {
            std::fprintf(stderr, "vantrellion-history: cannot write %s\n", png.c_str());
            status = 1;
        }
    }
    return status;
}
