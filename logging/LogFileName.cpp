#include "logging/LogFileName.h"

#include <algorithm>

namespace vantrellion {

namespace {

// The characters of text from position start (counted from 1), at most length of them; an
// empty text where start lies beyond the end.
std::string Mid(const std::string& text, size_t start, size_t length) {
    if (start > text.size()) return "";
    return text.substr(start - 1, length);
}

}  // namespace

std::string LogFileNameForDate(const std::string& shortDate) {
    std::string date = shortDate;
    std::replace(date.begin(), date.end(), '/', '_');
    return "Vantrellion_" + Mid(date, 7, 4) + "_" + Mid(date, 1, 5) + ".Log";
}

std::string MakeLogFileName(System& s) {
    const std::string name = LogFileNameForDate(s.clock().ShortDate());
    if (name != s.modRelay.LogFileName) {
        s.modRelay.LogFileName = name;
        if (s.platform.configuration) s.platform.configuration->ConfigurationLogFileNameSave();
    }
    return s.modRelay.LogFilePath + s.modRelay.LogFileName;
}

}  // namespace vantrellion
