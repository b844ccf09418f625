// The command vantrellion-history without its drawing: the arguments, the range of days, the
// log directory, the table on standard output and the CSV file. The chart picture is drawn by
// the caller's writer, so that this stays free of Qt.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "history/HistoryReport.h"

namespace vantrellion {

// vantrellion-history [LOGDIR] [--from DATE] [--to DATE] [--csv FILE] [--png FILE]
struct HistoryCommand {
    std::string LogDirectory;  // empty: the configured one
    std::string From, To;      // "2026-11-01"; empty: the defaults
    std::string CsvFile, PngFile;
    bool Help = false;
    bool Version = false;
};

extern const char* const HistoryUsage;

// Reads the arguments (without the program name). False with a message for the user when they
// are not understood.
bool ParseHistoryCommand(const std::vector<std::string>& args, HistoryCommand& out,
                         std::string& error);

// Writes the chart picture of a history to a file; false when it cannot.
using HistoryPngWriter =
    std::function<bool(const RunTimeHistory&, const HistoryLabels&, const std::string& path)>;

// Runs the command: the days from From to To (by default the 31 days up to today, as the
// window shows them), read from the given log directory or from the one configured in the
// store of machineDirectory; prints the table to out and problems to err, writes the files.
// Returns the exit status: 0 done, 1 a file could not be written, 2 wrong arguments.
int RunHistoryCommand(const HistoryCommand& c, const std::string& machineDirectory,
                      LocalSeconds now, std::string& out, std::string& err,
                      const HistoryPngWriter& writePng);

}  // namespace vantrellion
