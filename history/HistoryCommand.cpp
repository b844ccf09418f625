#include "history/HistoryCommand.h"

#include <sys/stat.h>

#include "core/DateTimeText.h"
#include "core/ExportFileName.h"
#include "history/HistorySettings.h"

namespace vantrellion {

const char* const HistoryUsage =
    "usage: vantrellion-history [LOGDIR] [--from DATE] [--to DATE] [--csv FILE] [--png FILE]\n"
    "  LOGDIR       directory of the daily logs (default: the configured log directory)\n"
    "  --from DATE  first day, as 2026-11-01 (default: 30 days before --to)\n"
    "  --to DATE    last day (default: today)\n"
    "  --csv FILE   write the figures per day as CSV (\".csv\" added to a name without an\n"
    "               extension)\n"
    "  --png FILE   write the bar chart as a PNG picture (\".png\" added likewise)\n"
    "  A DATE is YYYY-MM-DD, \"YYYY-MM-DD HH:MM\" or \"YYYY-MM-DD HH:MM:SS\" (its day counts).\n"
    "  --version    print the version and end\n";

bool ParseHistoryCommand(const std::vector<std::string>& args, HistoryCommand& out,
                         std::string& error) {
    out = HistoryCommand{};
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        std::string* value = a == "--from"  ? &out.From
                             : a == "--to"  ? &out.To
                             : a == "--csv" ? &out.CsvFile
                             : a == "--png" ? &out.PngFile
                                            : nullptr;
        if (value) {
            if (i + 1 >= args.size() || args[i + 1].empty()) {
                error = a + " needs a value";
                return false;
            }
            *value = args[++i];
        } else if (a == "-h" || a == "--help") {
            out.Help = true;
        } else if (a == "--version") {
            out.Version = true;
        } else if (a.size() > 1 && a[0] == '-') {
            error = "unknown option " + a;
            return false;
        } else if (out.LogDirectory.empty() && !a.empty()) {
            out.LogDirectory = a;
        } else {
            error = "only one log directory can be given";
            return false;
        }
    }
    return true;
}

int RunHistoryCommand(const HistoryCommand& c, const std::string& machineDirectory,
                      LocalSeconds now, std::string& out, std::string& err,
                      const HistoryPngWriter& writePng) {
    if (c.Help) {
        out += HistoryUsage;
        return 0;
    }
    if (c.Version) {
        out += std::string("vantrellion-history ") + ProgramVersionText + "\n";
        return 0;
    }
    LocalSeconds last = DayStart(now), first = 0;
    if (!c.To.empty() && !ParseIsoDate(c.To, last)) {
        err += "not a date: " + c.To + " (give " + DateTimeForms + ")\n";
        return 2;
    }
    if (c.From.empty())
        first = last - 30 * SecondsPerDay;
    else if (!ParseIsoDate(c.From, first)) {
        err += "not a date: " + c.From + " (give " + DateTimeForms + ")\n";
        return 2;
    }
    if (last < first) {
        err += "--to lies before --from\n";
        return 2;
    }

    const std::string csvFile = c.CsvFile.empty() ? "" : WithExtension(c.CsvFile, ".csv");
    const std::string pngFile = c.PngFile.empty() ? "" : WithExtension(c.PngFile, ".png");
    if (!csvFile.empty() && !pngFile.empty() && NameTheSameFile(csvFile, pngFile)) {
        err += "--csv and --png name the same file: " + csvFile + "\n";
        return 2;
    }

    const HistorySettings settings = ReadHistorySettings(machineDirectory);
    std::string dir = c.LogDirectory.empty() ? settings.LogDirectory : c.LogDirectory;
    if (!c.LogDirectory.empty() && dir.back() != '/') dir += '/';
    struct stat st {};
    if (::stat(dir.c_str(), &st) != 0 || !S_ISDIR(st.st_mode)) {
        err += "no such log directory: " + dir + "\n";
        return 1;
    }

    const RunTimeHistory h = ReadRunTimeHistory({dir, first, last, now});
    out += "Log directory: " + dir + "\n" + HistoryTableText(h, settings.Labels);
    int status = 0;
    if (!csvFile.empty() && !WriteHistoryFile(csvFile, HistoryCsv(h, settings.Labels))) {
        err += "cannot write " + csvFile + "\n";
        status = 1;
    }
    if (!pngFile.empty() && !writePng(h, settings.Labels, pngFile)) {
        err += "cannot write " + pngFile + "\n";
        status = 1;
    }
    return status;
}

}  // namespace vantrellion
