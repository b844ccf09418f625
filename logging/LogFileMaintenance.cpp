#include "logging/LogFileMaintenance.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

namespace vantrellion {

namespace {

bool StartsWithNoCase(const std::string& text, const std::string& prefix) {
    if (text.size() < prefix.size()) return false;
    return std::equal(prefix.begin(), prefix.end(), text.begin(), [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) ==
               std::tolower(static_cast<unsigned char>(b));
    });
}

bool EndsWithNoCase(const std::string& text, const std::string& suffix) {
    if (text.size() < suffix.size()) return false;
    return StartsWithNoCase(text.substr(text.size() - suffix.size()), suffix);
}

}  // namespace

bool MatchesLogFilePattern(const std::string& fileName) {
    // The "*" may be empty: "Vantrellion.log" matches.
    const std::string head = "Vantrellion", tail = ".log";
    return fileName.size() >= head.size() + tail.size() && StartsWithNoCase(fileName, head) &&
           EndsWithNoCase(fileName, tail);
}

std::vector<std::string> ListLogFiles(const std::string& directory) {
    namespace fs = std::filesystem;
    std::vector<std::string> names;
    std::error_code ec;
    for (auto it = fs::directory_iterator(directory, ec); !ec && it != fs::directory_iterator();
         it.increment(ec)) {
        std::error_code typeError;
        if (!it->is_regular_file(typeError)) continue;
        const std::string name = it->path().filename().string();
        if (MatchesLogFilePattern(name)) names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::string DirectoryWithSeparator(const std::string& directory) {
    if (directory.empty() || directory.back() == '/') return directory;
    return directory + "/";
}

std::string LogFileDeletePath(const std::string& directory, const std::string& fileName) {
    return DirectoryWithSeparator(directory) + fileName;
}

FileDialogRequest LogFileOpenRequest(const System& s) {
    FileDialogRequest r;
    r.Title = "Select LogFile";
    r.Filter = "Log File (*.log)|*.log|Text File (*.txt)|*.txt|All File (*.*)|*.*";
    r.InitialDirectory = s.modRelay.LogFilePath;
    r.FileName = s.modRelay.LogFilePath + s.modRelay.LogFileName;
    r.Flags = 4097;  // the file must exist; read-only box checked
    return r;
}

MessageBoxRequest UnreadableLogFileBox() {
    MessageBoxRequest r;
    r.Title = "MS Scripting Runtime Not Installed";
    r.Prompt =
        "Sorry,\r\n    Required Microsoft Runtime is Missing\r\n     (The Scripting Runtime comes "
        "with IE4 and above)";
    return r;
}

MessageBoxRequest DefaultErrorBox(const std::string& description, int number,
                                  const std::string& source) {
    MessageBoxRequest r;
    r.Title = "";
    r.Prompt = description + "\r\n" + std::to_string(number) + "\r\n" + source;
    return r;
}

}  // namespace vantrellion
