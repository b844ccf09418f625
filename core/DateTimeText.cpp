#include "core/DateTimeText.h"

#include <cstdio>

#include "core/TrimmedText.h"

namespace vantrellion {

namespace {

bool IsLeapYear(int y) {
    return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
}

int DaysInMonth(int y, int m) {
    static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && IsLeapYear(y) ? 29 : days[m - 1];
}

// Exactly `n` digits at `pos`.
bool Digits(const std::string& t, size_t pos, size_t n, int& value) {
    value = 0;
    if (pos + n > t.size()) return false;
    for (size_t i = pos; i < pos + n; ++i) {
        if (t[i] < '0' || t[i] > '9') return false;
        value = value * 10 + (t[i] - '0');
    }
    return true;
}

}  // namespace

std::optional<LocalSeconds> ParseDateTimeText(const std::string& typed) {
    // 0123456789012345678
    // YYYY-MM-DD HH:MM:SS
    const std::string t = TrimmedText(typed);
    DateTime d;
    if (t.size() < 10 || t[4] != '-' || t[7] != '-' || !Digits(t, 0, 4, d.Year) ||
        !Digits(t, 5, 2, d.Month) || !Digits(t, 8, 2, d.Day)) {
        return std::nullopt;
    }
    if (t.size() > 10) {
        // The time: an hour of one or two digits, minutes, and seconds if given.
        const size_t hourDigits = t.size() > 12 && t[12] == ':' ? 1 : 2;
        const size_t minutes = 11 + hourDigits + 1;
        const bool seconds = t.size() == minutes + 5;
        if ((t.size() != minutes + 2 && !seconds) || (t[10] != ' ' && t[10] != 'T') ||
            !Digits(t, 11, hourDigits, d.Hour) || t[minutes - 1] != ':' ||
            !Digits(t, minutes, 2, d.Minute) ||
            (seconds && (t[minutes + 2] != ':' || !Digits(t, minutes + 3, 2, d.Second)))) {
            return std::nullopt;
        }
    }
    if (d.Year < 1970 || d.Month < 1 || d.Month > 12 || d.Day < 1 ||
        d.Day > DaysInMonth(d.Year, d.Month) || d.Hour > 23 || d.Minute > 59 || d.Second > 59) {
        return std::nullopt;
    }
    return ToLocalSeconds(d);
}

std::string DateTimeText(LocalSeconds t) {
    const DateTime d = FromLocalSeconds(t);
    char buf[32];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d", d.Year, d.Month, d.Day, d.Hour,
                  d.Minute, d.Second);
    return buf;
}

std::string DateText(LocalSeconds t) {
    return DateTimeText(t).substr(0, 10);
}

}  // namespace vantrellion
