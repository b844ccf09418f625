#include "preview/PreviewCommand.h"

#include <sys/stat.h>

#include <charconv>
#include <fstream>
#include <memory>

#include "configuration/KeyValueStore.h"
#include "configuration/StringTable.h"
#include "configuration/clsConfiguration.h"
#include "core/DateTimeText.h"
#include "core/ExportFileName.h"
#include "core/ResetRelayRecords.h"
#include "preview/PreviewReport.h"
#include "preview/SchedulePreview.h"
#include "runfile/RunFileLoad.h"
#include "runfile/RunFileProblemText.h"

namespace vantrellion {

namespace {

constexpr const char* Program = "vantrellion-preview";

// The boxes that loading a Run File or the store would show go to the error stream, with
// the first button as the answer. While held, they are kept instead: a Run File that does not
// load is told in plain words, not in its boxes.
class StreamMessages : public MessageBoxes {
  public:
    explicit StreamMessages(std::ostream& err) : err_(err) {}
    Answer Show(const MessageBoxRequest& r) override {
        std::string prompt = r.Prompt;
        for (char& c : prompt)
            if (c == '\r' || c == '\n') c = ' ';
        const std::string line = (r.Title.empty() ? "" : r.Title + ": ") + prompt;
        if (held)
            kept.push_back(line);
        else
            err_ << Program << ": " << line << "\n";
        return r.ButtonSet == Buttons::YesNo || r.ButtonSet == Buttons::YesNoCancel ? Answer::Yes
                                                                                    : Answer::OK;
    }
    void Release() {
        held = false;
        for (const std::string& line : kept)
            err_ << Program << ": " << line << "\n";
        kept.clear();
    }
    bool held = false;
    std::vector<std::string> kept;

  private:
    std::ostream& err_;
};

bool IsRegularFile(const std::string& path) {
    struct stat st {};
    return ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

// The group colours of a first run, for a machine without a store; its relays are named as
// the run-time history names relays without names ("Relay 1").
void DefaultConfiguration(ModRelay& m) {
    for (int g = 0; g < 8; ++g)
        m.ColorRelayGroup[static_cast<size_t>(g)] =
            StringTableColor(StringId::DefaultGroupColor + g);
}

bool WriteText(const std::string& path, const std::string& text) {
    std::ofstream f(path, std::ios::binary | std::ios::trunc);
    if (!f) return false;
    f << text;
    f.flush();
    return static_cast<bool>(f);
}

// "LAT,LON" in decimal degrees.
std::optional<GeoLocation> ParseLocation(const std::string& text) {
    const size_t comma = text.find(',');
    if (comma == std::string::npos) return std::nullopt;
    const auto lat = ParseDegrees(text.substr(0, comma), MaxLatitude);
    const auto lon = ParseDegrees(text.substr(comma + 1), MaxLongitude);
    if (!lat || !lon) return std::nullopt;
    return GeoLocation{*lat, *lon};
}

}  // namespace

std::string PreviewUsage() {
    return std::string("usage: ") + Program +
           " RUNFILE [--from \"YYYY-MM-DD HH:MM:SS\"] [--days N] [--location LAT,LON]\n"
           "       [--csv FILE] [--svg FILE] [--png FILE]\n"
           "  Shows what the relays of the schedule in RUNFILE will do, worked out second by "
           "second\n"
           "  by the program's own engine: the on-time of each relay per day, and warnings.\n"
           "  --from   the first second of the preview (default: now), as " +
           DateTimeForms +
           "\n"
           "  --days   the number of days, 1 to " +
           std::to_string(PreviewMaxDays) +
           " (default: 7)\n"
           "  --location  latitude and longitude in degrees, north and east positive, for\n"
           "           sunrise and sunset times, e.g. 52.52,13.405 (default: the configuration's)\n"
           "  --csv    write every switch time as CSV\n"
           "  --svg, --png   write the timeline as a picture\n"
           "  --version      print the version and end\n"
           "  A FILE named without an extension gets the type's: \".csv\", \".svg\", \".png\".\n";
}

ParsedPreviewOptions ParsePreviewOptions(const std::vector<std::string>& args) {
    ParsedPreviewOptions parsed;
    PreviewOptions& o = parsed.Options;
    auto fail = [&](const std::string& message) {
        parsed.Error = message;
        return parsed;
    };
    for (size_t n = 0; n < args.size(); ++n) {
        const std::string& a = args[n];
        if (a == "--help" || a == "-h") {
            o.Help = true;
            return parsed;
        }
        if (a == "--version") {
            o.Version = true;
            return parsed;
        }
        if (a == "--from" || a == "--days" || a == "--location" || a == "--csv" || a == "--svg" ||
            a == "--png") {
            if (n + 1 >= args.size()) return fail("option " + a + " needs a value");
            const std::string& v = args[++n];
            if (a == "--from") {
                o.From = ParseDateTimeText(v);
                if (!o.From)
                    return fail("bad date \"" + v + "\" for --from: give " + DateTimeForms);
            } else if (a == "--days") {
                int days = 0;
                const auto [end, ec] = std::from_chars(v.data(), v.data() + v.size(), days);
                if (ec != std::errc() || end != v.data() + v.size() || days < 1 ||
                    days > PreviewMaxDays) {
                    return fail("bad number of days \"" + v + "\": give 1 to " +
                                std::to_string(PreviewMaxDays));
                }
                o.Days = days;
            } else if (a == "--location") {
                o.Location = ParseLocation(v);
                if (!o.Location)
                    return fail("bad location \"" + v +
                                "\" for --location: give LAT,LON in degrees, latitude -90 to 90 "
                                "and longitude -180 to 180");
            } else {
                if (v.empty()) return fail("option " + a + " needs a file name");
                (a == "--csv"   ? o.Csv
                 : a == "--svg" ? o.Svg
                                : o.Png) = WithExtension(v, "." + a.substr(2));
            }
        } else if (a.size() > 1 && a[0] == '-') {
            return fail("unknown option " + a);
        } else if (o.RunFile.empty()) {
            o.RunFile = a;
        } else {
            return fail("only one Run File can be previewed, \"" + a + "\" is a second");
        }
    }
    if (o.RunFile.empty()) return fail("no Run File given");
    const std::pair<const char*, const std::string*> outputs[] = {
        {"--csv", &o.Csv}, {"--svg", &o.Svg}, {"--png", &o.Png}};
    for (size_t a = 0; a < std::size(outputs); ++a) {
        for (size_t b = a + 1; b < std::size(outputs); ++b) {
            const std::string &first = *outputs[a].second, &second = *outputs[b].second;
            if (!first.empty() && !second.empty() && NameTheSameFile(first, second))
                return fail(std::string(outputs[a].first) + " and " + outputs[b].first +
                            " name the same file \"" + first + "\"");
        }
    }
    return parsed;
}

int RunPreviewCommand(const std::vector<std::string>& args, const PreviewEnvironment& env,
                      std::ostream& out, std::ostream& err) {
    const ParsedPreviewOptions parsed = ParsePreviewOptions(args);
    if (!parsed.Error.empty()) {
        err << Program << ": " << parsed.Error << "\n" << PreviewUsage();
        return PreviewExitUsage;
    }
    const PreviewOptions& o = parsed.Options;
    if (o.Help) {
        out << PreviewUsage();
        return PreviewExitOk;
    }
    if (o.Version) {
        out << Program << " " << ProgramVersionText << "\n";
        return PreviewExitOk;
    }

    StreamMessages messages(err);
    System s;
    s.platform.messages = &messages;
    s.platform.machineDirectory = env.MachineDirectory;
    DefaultConfiguration(s.modRelay);
    // The store is read only when it is there: the preview never creates one.
    std::unique_ptr<KeyValueStore> store;
    const std::string storePath = env.MachineDirectory + "store.db";
    if (!env.MachineDirectory.empty() && IsRegularFile(storePath)) {
        store = std::make_unique<KeyValueStore>(storePath);
        s.platform.store = store.get();
        ConfigurationLoadFromReg(s);
        s.platform.store = nullptr;
    }

    if (o.Location) s.modRelay.Location = o.Location;

    ResetRelayRecords(s);
    const size_t slash = o.RunFile.rfind('/');
    const std::string dir = slash == std::string::npos ? "" : o.RunFile.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? o.RunFile : o.RunFile.substr(slash + 1);
    RunFileLoadProblem problem;
    messages.held = true;
    if (LoadRunFile(s, dir, name, false, &problem) != RunFileLoaded) {
        err << Program << ": " << RunFileProblemText(o.RunFile, problem) << "\n";
        return PreviewExitFileError;
    }
    messages.Release();

    PreviewRequest request;
    request.From = o.From.value_or(env.Now);
    request.Length = static_cast<LocalSeconds>(o.Days) * 86400;
    request.StartTick = TickCountAt(request.From, env.Now, env.TickNow);
    const PreviewResult result = RunPreview(TakeSnapshot(s), request);
    out << OnTimeTable(result);

    int status = PreviewExitOk;
    auto failed = [&](const std::string& what, const std::string& path) {
        err << Program << ": cannot write the " << what << " to \"" << path << "\"\n";
        status = PreviewExitFileError;
    };
    if (!o.Csv.empty() && !WriteText(o.Csv, PreviewCsv(result))) failed("switch times", o.Csv);
    const Timeline timeline = PreviewTimeline(result);
    if (!o.Png.empty() && !(env.WritePng && env.WritePng(timeline, o.Png)))
        failed("picture", o.Png);
    if (!o.Svg.empty() && !(env.WriteSvg && env.WriteSvg(timeline, o.Svg)))
        failed("picture", o.Svg);
    return status;
}

}  // namespace vantrellion
