#include "core/CsvText.h"

namespace vantrellion {

std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string out = "\"";
    for (char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    return out + "\"";
}

std::string CsvLine(const std::vector<std::string>& fields) {
    std::string line;
    for (size_t n = 0; n < fields.size(); ++n) {
        if (n > 0) line += ',';
        line += CsvField(fields[n]);
    }
    return line + "\r\n";
}

}  // namespace vantrellion
