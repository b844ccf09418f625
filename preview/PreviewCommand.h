// The command-line preview: vantrellion-preview RUNFILE [--from "YYYY-MM-DD HH:MM:SS"]
// [--days N] [--location LAT,LON] [--csv FILE] [--svg FILE] [--png FILE]. It reads the Run
// File, takes relay names, colours and the location for sun times from the configuration store
// when there is one (--location stands in for the store's), prints the on-time of each day
// and writes the switch times and the pictures asked for.
#pragma once

#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "core/SunTimes.h"
#include "core/Timeline.h"

namespace vantrellion {

inline constexpr int PreviewExitOk = 0;
inline constexpr int PreviewExitFileError = 1;  // an unreadable Run File, an unwritable output
inline constexpr int PreviewExitUsage = 2;      // bad or missing arguments

inline constexpr int PreviewMaxDays = 3660;

struct PreviewOptions {
    std::string RunFile;
    std::optional<LocalSeconds> From;  // now when not given
    int Days = 7;
    std::optional<GeoLocation> Location;  // the store's when not given
    std::string Csv, Svg, Png;
    bool Help = false;
    bool Version = false;
};

// The options, or the message that says what is wrong with them.
struct ParsedPreviewOptions {
    PreviewOptions Options;
    std::string Error;
};
ParsedPreviewOptions ParsePreviewOptions(const std::vector<std::string>& args);

std::string PreviewUsage();

// What the command needs from outside the core: the machine directory (for the store), the
// local time and tick count of now, and the picture writers (the core draws nothing itself).
struct PreviewEnvironment {
    std::string MachineDirectory;
    LocalSeconds Now = 0;
    int64_t TickNow = 0;
    std::function<bool(const Timeline&, const std::string&)> WritePng;
    std::function<bool(const Timeline&, const std::string&)> WriteSvg;
};

// Runs the command; args are the arguments after the program name. Returns the exit status.
int RunPreviewCommand(const std::vector<std::string>& args, const PreviewEnvironment& env,
                      std::ostream& out, std::ostream& err);

}  // namespace vantrellion
