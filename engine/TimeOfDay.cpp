#include "engine/TimeOfDay.h"

#include <cctype>
#include <string_view>

#include "core/FatalError.h"

namespace vantrellion {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Reads one or two digits for the hour, or exactly two for minutes and seconds.
bool ReadNumber(std::string_view& t, size_t minDigits, size_t maxDigits, int& value) {
    size_t n = 0;
    value = 0;
    while (n < t.size() && n < maxDigits && IsDigit(t[n])) {
        value = value * 10 + (t[n] - '0');
        ++n;
    }
    if (n < minDigits) return false;
    t.remove_prefix(n);
    return true;
}

void SkipBlanks(std::string_view& t) {
    while (!t.empty() && t.front() == ' ')
        t.remove_prefix(1);
}

}  // namespace

// The grammar: optional blanks, an hour of one or two digits, ":", two digits of minutes,
// optionally ":" and two digits of seconds, then optionally "am" or "pm" in any case (blanks
// before it allowed), then optional blanks. Blanks around the text are accepted because the
// fields keep a text exactly as typed, and a leading blank is easy to type. Without am/pm the
// hour runs 0 to 23; with am/pm it runs 0 to 12, where 12 am is midnight and 12 pm noon.
std::optional<int> ParseTimeOfDay(const std::string& text) {
    // The forms the entry check writes, "H:MM", "HH:MM", "H:MM:SS" and "HH:MM:SS", read
    // directly: the engine reads every set pair's texts at every tick, and this keeps that
    // cheap. Anything else goes through the full grammar below, which gives the same value
    // for these forms.
    const size_t n = text.size();
    if (n >= 4 && n <= 8 && n != 6) {
        const char* c = text.data();
        const size_t h = (n == 4 || n == 7) ? 1 : 2;  // digits of the hour
        const bool withSeconds = n >= 7;
        const bool shaped =
            c[h] == ':' && IsDigit(c[h + 1]) && IsDigit(c[h + 2]) &&
            (!withSeconds || (c[h + 3] == ':' && IsDigit(c[h + 4]) && IsDigit(c[h + 5]))) &&
            IsDigit(c[0]) && (h == 1 || IsDigit(c[1]));
        if (shaped) {
            const int hour = h == 1 ? c[0] - '0' : (c[0] - '0') * 10 + (c[1] - '0');
            const int minute = (c[h + 1] - '0') * 10 + (c[h + 2] - '0');
            const int second = withSeconds ? (c[h + 4] - '0') * 10 + (c[h + 5] - '0') : 0;
            if (hour > 23 || minute > 59 || second > 59) return std::nullopt;
            return hour * 3600 + minute * 60 + second;
        }
    }

    std::string_view t(text);
    SkipBlanks(t);

    int hour = 0, minute = 0, second = 0;
    if (!ReadNumber(t, 1, 2, hour)) return std::nullopt;
    if (t.empty() || t.front() != ':') return std::nullopt;
    t.remove_prefix(1);
    if (!ReadNumber(t, 2, 2, minute)) return std::nullopt;
    if (!t.empty() && t.front() == ':') {
        t.remove_prefix(1);
        if (!ReadNumber(t, 2, 2, second)) return std::nullopt;
    }

    SkipBlanks(t);
    int meridiem = 0;  // 0 none, 1 am, 2 pm
    if (t.size() >= 2) {
        char a = static_cast<char>(std::tolower(static_cast<unsigned char>(t[0])));
        char m = static_cast<char>(std::tolower(static_cast<unsigned char>(t[1])));
        if (m == 'm' && (a == 'a' || a == 'p')) {
            meridiem = a == 'a' ? 1 : 2;
            t.remove_prefix(2);
        }
    }
    SkipBlanks(t);
    if (!t.empty()) return std::nullopt;

    if (minute > 59 || second > 59) return std::nullopt;
    if (meridiem == 0) {
        if (hour > 23) return std::nullopt;
    } else {
        if (hour > 12) return std::nullopt;
        if (hour == 12) hour = 0;
        if (meridiem == 2) hour += 12;
    }
    return hour * 3600 + minute * 60 + second;
}

int TimeOfDayOrFail(const std::string& text) {
    std::optional<int> t = ParseTimeOfDay(text);
    if (!t) throw FatalError(ErrTypeMismatch, "Type mismatch");
    return *t;
}

}  // namespace vantrellion
