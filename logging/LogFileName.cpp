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
    ModRelay& m = s.modRelay;
    const std::string name = LogFileNameForDate(s.clock().ShortDate());
    // A name the store did not take (held by another program) is stored again at the next
    // line, quietly, until it is taken; a new day's name is a new value and told as ever.
    if (name != m.LogFileName || m.LogFileNameUnsaved) {
        const bool retry = name == m.LogFileName;
        m.LogFileName = name;
        if (ConfigurationStore* c = s.platform.configuration)
            m.LogFileNameUnsaved = !c->ConfigurationLogFileNameSave(retry);
    }
    return s.modRelay.LogFilePath + s.modRelay.LogFileName;
}

}  // namespace vantrellion
