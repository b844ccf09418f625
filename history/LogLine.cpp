#include "history/LogLine.h"

namespace vantrellion {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// "HH:MM:SS" at the start of text, each part in range; -1 when it is not there.
int ParseTime(std::string_view text) {
    if (text.size() < 8 || text[2] != ':' || text[5] != ':') return -1;
    for (int i : {0, 1, 3, 4, 6, 7})
        if (!IsDigit(text[i])) return -1;
    const int h = (text[0] - '0') * 10 + (text[1] - '0');
    const int m = (text[3] - '0') * 10 + (text[4] - '0');
    const int s = (text[6] - '0') * 10 + (text[7] - '0');
    if (h > 23 || m > 59 || s > 59) return -1;
    return h * 3600 + m * 60 + s;
}

// A port text of 15 characters, "1 - 3 - - - - 8": piece r is the digit r + 1 or "-", the
// pieces joined by single blanks. The bits, or -1 when the text is not of that form.
int ParsePortText(std::string_view text) {
    if (text.size() != 15) return -1;
    int bits = 0;
    for (int r = 0; r < 8; ++r) {
        const char c = text[r * 2];
        if (c == static_cast<char>('1' + r))
            bits |= 1 << r;
        else if (c != '-')
            return -1;
        if (r < 7 && text[r * 2 + 1] != ' ') return -1;
    }
    return bits;
}

// Reads "<text>" groups from the front of rest until none follows. False when a group is
// malformed or there are more than the lanes hold.
bool ParseGroups(std::string_view& rest, int& groups, uint32_t& bits) {
    while (!rest.empty() && rest.front() == '<') {
        if (groups == MaxLoggedGroups || rest.size() < 17 || rest[16] != '>') return false;
        const int b = ParsePortText(rest.substr(1, 15));
        if (b < 0) return false;
        bits |= static_cast<uint32_t>(b) << (groups * 8);
        ++groups;
        rest.remove_prefix(17);
    }
    return true;
}

LogLine ParseStateLine(int time, std::string_view rest) {
    LogLine out;
    out.Kind = LogLineKind::Damaged;
    out.SecondsOfDay = time;
    if (!ParseGroups(rest, out.RelayGroups, out.RelayBits)) return out;
    if (rest.substr(0, 4) != "R><I") return out;
    rest.remove_prefix(4);
    if (!ParseGroups(rest, out.InputGroups, out.InputBits)) return out;
    // The line ends in "I "; a line whose closing blank was trimmed is still whole.
    if (rest != "I " && rest != "I") return out;
    out.Kind = LogLineKind::State;
    return out;
}

// "<date> <first> <second>": the date is digits and separators, the first text one word.
LogLine ParseEventLine(int time, std::string_view rest) {
    LogLine out;
    out.Kind = LogLineKind::Damaged;
    out.SecondsOfDay = time;
    const size_t dateEnd = rest.find(' ');
    if (dateEnd == 0 || dateEnd == std::string_view::npos) return out;
    const std::string_view date = rest.substr(0, dateEnd);
    bool digit = false;
    for (char c : date) {
        if (IsDigit(c))
            digit = true;
        else if (c != '/' && c != '.' && c != '-')
            return out;
    }
    if (!digit) return out;
    rest.remove_prefix(dateEnd + 1);
    const size_t firstEnd = rest.find(' ');
    const std::string_view first = rest.substr(0, firstEnd);
    if (first.empty()) return out;
    out.Kind = LogLineKind::Event;
    out.Date = date;
    out.First = first;
    out.Second =
        firstEnd == std::string_view::npos ? std::string_view() : rest.substr(firstEnd + 1);
    return out;
}

}  // namespace

LogLine ParseLogLine(std::string_view line) {
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    LogLine out;
    if (line.empty()) {
        out.Kind = LogLineKind::Blank;
        return out;
    }
    // Control bytes (a NUL run after a power cut, a binary file by mistake) damage a line;
    // Latin-1 letters above 127 are ordinary text.
    bool control = false;
    for (char c : line)
        control = control || (static_cast<unsigned char>(c) < 32 && c != '\t');
    const int time = ParseTime(line);
    if (time < 0 || line.size() < 9 || line[8] != ' ') {
        if (control)
            out.Kind = LogLineKind::Damaged;
        else if (line.substr(0, 7) == "-------" || line.substr(0, 9) == "Decimal: ")
            out.Kind = LogLineKind::Listing;
        else
            out.Kind = LogLineKind::Foreign;
        return out;
    }
    if (control) {
        out.Kind = LogLineKind::Damaged;
        return out;
    }
    const std::string_view rest = line.substr(9);
    if (!rest.empty() && (rest.front() == '<' || rest.substr(0, 4) == "R><I"))
        return ParseStateLine(time, rest);
    return ParseEventLine(time, rest);
}

}  // namespace vantrellion
