#include "core/ScheduleText.h"

#include <algorithm>
#include <cctype>
#include <ostream>

#include "core/FatalError.h"
#include "core/TextEncoding.h"

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

constexpr int NotATime = -1;

// The grammar: optional blanks, an hour of one or two digits, ":", two digits of minutes,
// optionally ":" and two digits of seconds, then optionally "am" or "pm" in any case (blanks
// before it allowed), then optional blanks. Blanks around the text are accepted because the
// fields keep a text exactly as typed, and a leading blank is easy to type. Without am/pm the
// hour runs 0 to 23; with am/pm it runs 0 to 12, where 12 am is midnight and 12 pm noon.
//
// The result is seconds since midnight, or NotATime. A plain int rather than an optional: this runs
// for every set pair at every tick, and the optional's return through memory cost more than the
// parsing.
int ReadTimeOfDay(std::string_view text) {
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
            if (hour > 23 || minute > 59 || second > 59) return NotATime;
            return hour * 3600 + minute * 60 + second;
        }
    }

    std::string_view t(text);
    SkipBlanks(t);

    int hour = 0, minute = 0, second = 0;
    if (!ReadNumber(t, 1, 2, hour)) return NotATime;
    if (t.empty() || t.front() != ':') return NotATime;
    t.remove_prefix(1);
    if (!ReadNumber(t, 2, 2, minute)) return NotATime;
    if (!t.empty() && t.front() == ':') {
        t.remove_prefix(1);
        if (!ReadNumber(t, 2, 2, second)) return NotATime;
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
    if (!t.empty()) return NotATime;

    if (minute > 59 || second > 59) return NotATime;
    if (meridiem == 0) {
        if (hour > 23) return NotATime;
    } else {
        if (hour > 12) return NotATime;
        if (hour == 12) hour = 0;
        if (meridiem == 2) hour += 12;
    }
    return hour * 3600 + minute * 60 + second;
}

bool Upper(char c, char want) {
    return c == want || c == want - 'A' + 'a';
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// The parts of a decimal number: blanks around it, an optional sign, digits with at most one
// decimal point, at least one digit in all.
struct DecimalText {
    bool negative = false;
    std::string whole;     // digits before the point
    std::string fraction;  // digits after the point
};

bool SplitDecimal(std::string_view code, DecimalText& out) {
    size_t b = 0, e = code.size();
    while (b < e && IsBlank(code[b]))
        ++b;
    while (e > b && IsBlank(code[e - 1]))
        --e;
    if (b < e && (code[b] == '+' || code[b] == '-')) {
        out.negative = code[b] == '-';
        ++b;
    }
    bool point = false;
    for (size_t n = b; n < e; ++n) {
        char c = code[n];
        if (c == '.' && !point) {
            point = true;
        } else if (IsDigit(c)) {
            (point ? out.fraction : out.whole) += c;
        } else {
            return false;
        }
    }
    return !out.whole.empty() || !out.fraction.empty();
}

bool IsAny(std::string_view text, std::initializer_list<std::string_view> forms) {
    for (std::string_view form : forms)
        if (text == form) return true;
    return false;
}

}  // namespace

std::optional<int> ParseTimeOfDay(std::string_view text) {
    const int t = ReadTimeOfDay(text);
    if (t == NotATime) return std::nullopt;
    return t;
}

std::optional<SunTime> ParseSunTime(std::string_view text) {
    std::string_view t(text);
    SkipBlanks(t);
    while (!t.empty() && t.back() == ' ')
        t.remove_suffix(1);
    if (t.size() < 2 || !Upper(t[0], 'S')) return std::nullopt;
    SunTime result;
    if (Upper(t[1], 'R'))
        result.Event = SunEvent::Sunrise;
    else if (Upper(t[1], 'S'))
        result.Event = SunEvent::Sunset;
    else
        return std::nullopt;
    t.remove_prefix(2);
    if (t.empty()) return result;
    const bool negative = t.front() == '-';
    if (!negative && t.front() != '+') return std::nullopt;
    t.remove_prefix(1);
    int hours = 0, minutes = 0;
    if (!ReadNumber(t, 1, 2, hours) || t.empty() || t.front() != ':') return std::nullopt;
    t.remove_prefix(1);
    if (!ReadNumber(t, 2, 2, minutes) || !t.empty()) return std::nullopt;
    if (hours > 23 || minutes > 59) return std::nullopt;
    result.Offset = (hours * 3600 + minutes * 60) * (negative ? -1 : 1);
    return result;
}

std::optional<int> SunTimeOnDay(const SunTime& t, const SunDay& day) {
    if (day.Phase != SunPhase::RisesAndSets) return std::nullopt;
    const int event = t.Event == SunEvent::Sunrise ? day.Sunrise : day.Sunset;
    return std::clamp(event + t.Offset, 0, 86399);
}

// A code is numeric when it reads as a plain decimal number: blanks (space or tab) around it
// are allowed, then an optional "+" or "-", digits, and at most one decimal point, with at
// least one digit. So "5", "10", " 5", "5 ", "-3", "+3", "1.5", ".5" and "5." are numeric;
// "", " ", "  ", "-", ".", "1e", "$5", "&H" and every letter code are not. A blank typed in
// the field arrives as "0", and "00" is numeric as well. The field holds two characters at
// most, so in practice the values run from -9 to 99.
bool IsNumericCode(std::string_view code) {
    DecimalText d;
    return SplitDecimal(code, d);
}

// The code as a whole number of minutes: rounded to the nearest whole, a tie going to the
// even number ("1.5" gives 2, "2.5" gives 2, ".5" gives 0, "-1.5" gives -2). The rounding is
// done on the decimal digits, so no tie is lost to binary fractions. A value beyond 16 bits
// ends the program with an overflow; a text that is not numeric with a type mismatch.
int16_t NumericCodeValue(std::string_view code) {
    DecimalText d;
    if (!SplitDecimal(code, d)) throw FatalError(ErrTypeMismatch, "Type mismatch");

    int64_t whole = 0;
    for (char c : d.whole) {
        whole = whole * 10 + (c - '0');
        if (whole > INT16_MAX + 1) ThrowOverflow();
    }
    if (!d.fraction.empty()) {
        char first = d.fraction[0];
        bool restNonZero = d.fraction.find_first_not_of('0', 1) != std::string::npos;
        bool roundUp = first > '5' || (first == '5' && (restNonZero || whole % 2 == 1));
        if (roundUp) ++whole;
    }
    return CheckedInt16(d.negative ? -whole : whole);
}

bool IsDaysOfWeekText(std::string_view text) {
    return IsAny(text, {"Days", "ALL Days", "All Days", "ALL", "All", " ", ""}) ||
           IsNumericCode(text);
}

bool IsEvenOddCode(std::string_view text) {
    return IsAny(text, {"EO", "ED", "OD", "EH", "OH", "EM", "OM", "ES", "OS", "TH", "MH", "BH",
                        "3H", "XS", "SX", "SS", "  ", " ", ""}) ||
           IsNumericCode(text);
}

std::string EvenOddEntryForm(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return Utf8Prefix(upper, 2);
}

std::string TimeEntryForm(std::string_view text) {
    return Utf8Prefix(text, 8);
}

TimeField& TimeField::Set(std::string text) {
    text_ = std::move(text);
    if (text_.empty() || text_ == " ") {
        value_ = Blank;
    } else {
        const int t = ReadTimeOfDay(text_);
        value_ = t == NotATime ? Unreadable : t;
        if (t == NotATime) {
            if (const auto sun = ParseSunTime(text_)) {
                value_ = SunRelative;
                sun_ = *sun;
            }
        }
    }
    return *this;
}

std::optional<int32_t> TimeField::SecondsOn(const SunDay* sun) const {
    if (!IsSunTime()) return SecondsOrFail();
    if (!sun) return std::nullopt;
    return SunTimeOnDay(sun_, *sun);
}

std::optional<int> SameDayOrder(const TimeField& start, const TimeField& end) {
    auto sign = [](int a, int b) { return a < b ? -1 : a > b ? 1 : 0; };
    if (start.IsReadable() && end.IsReadable()) return sign(start.Value(), end.Value());
    if (start.IsSunTime() && end.IsSunTime() && start.Sun().Event == end.Sun().Event)
        return sign(start.Sun().Offset, end.Sun().Offset);
    return std::nullopt;
}

int32_t TimeField::SecondsOrFail() const {
    if (value_ < 0) throw FatalError(ErrTypeMismatch, "Type mismatch");
    return value_;
}

EvenOddCode& EvenOddCode::Set(std::string text) {
    text_ = std::move(text);
    rule_ = CodeRule::Plain;
    even_ = holdSunday_ = holdSaturday_ = overflow_ = false;
    minutes_ = 0;
    const std::string_view c = text_;
    if (c.size() == 2) {
        const char a = c[0], b = c[1];
        const bool evenOdd = a == 'E' || a == 'O';
        even_ = a == 'E';
        if (evenOdd && b == 'D') rule_ = CodeRule::EvenOddDay;
        if (evenOdd && b == 'H') rule_ = CodeRule::EvenOddHour;
        if (evenOdd && b == 'M') rule_ = CodeRule::EvenOddMinute;
        if (evenOdd && b == 'S') rule_ = CodeRule::EvenOddSecond;
        if (c == "SS" || c == "XS" || c == "SX") {
            rule_ = CodeRule::Weekend;
            holdSunday_ = c != "SX";
            holdSaturday_ = c != "XS";
        }
        if (c == "TH") rule_ = CodeRule::TopOfHour;
        if (c == "3H") rule_ = CodeRule::ThreeWindows;
        if (c == "MH") rule_ = CodeRule::MiddleOfHour;
        if (c == "BH") rule_ = CodeRule::BottomOfHour;
    }
    if (rule_ == CodeRule::Plain && IsNumericCode(c)) {
        rule_ = CodeRule::Cyclic;
        try {
            minutes_ = NumericCodeValue(c);
        } catch (const FatalError&) {
            overflow_ = true;
        }
    }
    return *this;
}

int16_t EvenOddCode::CycleMinutes() const {
    if (overflow_) ThrowOverflow();
    return minutes_;
}

DaysField& DaysField::Set(std::string text) {
    text_ = std::move(text);
    all_ = IsAny(text_, {"ALL Days", "All Days", "ALL", "All", " ", ""});
    digits_ = 0;
    for (char c : text_)
        if (c >= '1' && c <= '7') digits_ |= static_cast<uint8_t>(1u << (c - '0'));
    return *this;
}

bool PairsOverlap(const TimeField& startA, const TimeField& endA, const TimeField& startB,
                  const TimeField& endB) {
    const std::string &sa = startA, &ea = endA, &sb = startB, &eb = endB;
    return (sa > sb && sa < eb) || (ea < eb && ea > sb);
}

std::ostream& operator<<(std::ostream& out, const TimeField& f) {
    return out << '"' << f.Text() << '"';
}
std::ostream& operator<<(std::ostream& out, const EvenOddCode& c) {
    return out << '"' << c.Text() << '"';
}
std::ostream& operator<<(std::ostream& out, const DaysField& d) {
    return out << '"' << d.Text() << '"';
}

}  // namespace vantrellion
