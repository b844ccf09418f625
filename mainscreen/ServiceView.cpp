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

// A stamp of a file that changes with its modification time, its size and, for a file
// replaced by a rename, its inode: a line appended within the file system's time granularity
// still changes it. -1 when the file is missing.
int64_t ModificationStamp(const std::string& path) {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) return -1;
    const int64_t ns = static_cast<int64_t>(st.st_mtim.tv_sec) * 1000000000 + st.st_mtim.tv_nsec;
    return ns ^ (static_cast<int64_t>(st.st_ino) << 32) ^ static_cast<int64_t>(st.st_size);
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
    // The view reads a file that the service may be writing: a load that is not clean is tried
    // again at the next change rather than told to anyone.
    ResetRelayRecords(s_);
    loaded_ = LoadRunFileCleanly(s_, s_.platform.machineDirectory, RestartFileName);
    if (!loaded_) restartStamp_ = -1;
    ResetRowVisuals(s_);
    FillRowsFromRecords(s_);
}

void ServiceView::Refresh() {
    s_.screen().SetTitle(std::string(ServiceViewTitle) + " - " + AppTitle);
    const int64_t stamp = ModificationStamp(s_.platform.machineDirectory + RestartFileName);
    if (stamp != restartStamp_) {
        restartStamp_ = stamp;
        LoadSchedule();
        logRead_.clear();  // the rows were reset: their lights come from the log again
    }
    // The service writes a state line once a minute: the log is read again only when it has
    // changed (or a new day's log has begun).
    const std::string log = s_.modRelay.LogFilePath + LogFileNameForDate(s_.clock().ShortDate());
    const int64_t logStamp = ModificationStamp(log);
    if (log == logRead_ && logStamp == logStamp_) return;
    logRead_ = log;
    logStamp_ = logStamp;
    if (const auto state = ParseStateLine(s_, LastStateLine(ReadWhole(log)))) {
        for (int i = 0; i < RelaySlots; ++i)
            if (state->On[i])
                s_.display().SetOnOffLight(
                    i, *state->On[i] ? s_.modRelay.ColorRelayON : s_.modRelay.ColorRelayOFF);
        s_.display().SetStatusTime(state->Time);
    }
}

}  // namespace vantrellion
