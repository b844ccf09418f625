#include "mainscreen/ServiceView.h"

#include <sys/stat.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "core/ResetRelayRecords.h"
#include "logging/LogFileName.h"
#include "mainscreen/RefreshTitleAndMenus.h"
#include "mainscreen/RowRefill.h"
#include "runfile/CrashRestart.h"
#include "runfile/RunFileLoad.h"

namespace vantrellion {

namespace {

int64_t ModificationStamp(const std::string& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) return -1;
    return static_cast<int64_t>(st.st_mtim.tv_sec) * 1000000000 + st.st_mtim.tv_nsec;
}

std::string ReadWhole(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

}  // namespace

std::optional<LoggedState> ParseStateLine(const System& s, const std::string& line) {
    static const std::regex head(R"(^(\d\d:\d\d:\d\d) <)");
    std::smatch m;
    if (!std::regex_search(line, m, head)) return std::nullopt;
    LoggedState state;
    state.Time = m[1];
    size_t at = state.Time.size() + 1;
    for (int b = 0; b <= LastBoard; ++b) {
        if (s.modRelay.Board[b].LogBoard == 0) continue;
        const size_t end = line.find('>', at);
        if (at >= line.size() || line[at] != '<' || end == std::string::npos) return std::nullopt;
        std::istringstream words(line.substr(at + 1, end - at - 1));
        std::string word;
        for (int r = 0; r <= LastRelay && words >> word; ++r)
            state.On[RecordIndex(b, r)] = word != "-";
        at = end + 1;
    }
    return state;
}

std::string LastStateLine(const std::string& logText) {
    static const std::regex stateLine(R"(^\d\d:\d\d:\d\d <.*)");
    std::string last;
    std::istringstream in(logText);
    for (std::string l; std::getline(in, l);) {
        if (!l.empty() && l.back() == '\r') l.pop_back();
        if (std::regex_match(l, stateLine)) last = l;
    }
    return last;
}

void ServiceView::LoadSchedule() {
    // The loader's boxes are held back: the view reads a file that the service may be writing,
    // and tries again at the next change rather than asking anyone.
    const bool deferring = s_.deferBoxes;
    const size_t boxesBefore = s_.deferredBoxes.size();
    s_.deferBoxes = true;
    ResetRelayRecords(s_);
    loaded_ =
        LoadRunFile(s_, s_.platform.machineDirectory, RestartFileName, false) == RunFileLoaded &&
        s_.deferredBoxes.size() == boxesBefore;
    s_.deferredBoxes.resize(boxesBefore);
    s_.deferBoxes = deferring;
    if (!loaded_) restartStamp_ = -1;
    ResetRowVisuals(s_);
    FillRowsFromRecords(s_);
}

void ServiceView::Refresh() {
    const int64_t stamp = ModificationStamp(s_.platform.machineDirectory + RestartFileName);
    if (stamp != restartStamp_) {
        restartStamp_ = stamp;
        LoadSchedule();
    }
    const std::string log = s_.modRelay.LogFilePath + LogFileNameForDate(s_.clock().ShortDate());
    if (const auto state = ParseStateLine(s_, LastStateLine(ReadWhole(log)))) {
        for (int i = 0; i < RelaySlots; ++i)
            if (state->On[i])
                s_.display().SetOnOffLight(
                    i, *state->On[i] ? s_.modRelay.ColorRelayON : s_.modRelay.ColorRelayOFF);
        s_.display().SetStatusTime(state->Time);
    }
    s_.screen().SetTitle(std::string(ServiceViewTitle) + " - " + AppTitle);
}

}  // namespace vantrellion
