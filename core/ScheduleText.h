// The schedule's fields as typed values. Each keeps the text that the screen shows and the Run
// File holds, byte for byte, and the value that the engine evaluates, worked out once by one
// parser whenever the text is set: at field entry and at load. The engine, the row totals, the
// preview and the overlap check read the values and never parse a text again.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

#include "core/SunTimes.h"

namespace vantrellion {

// Seconds since midnight of a time text: "HH:MM:SS", "HH:MM", "H:MM", "H:MM:SS", each
// optionally followed by "am" or "pm" (with or without a blank, either case). Nothing when the
// text is not a time of day.
std::optional<int> ParseTimeOfDay(std::string_view text);

// A time relative to the sun: "SR" (sunrise) or "SS" (sunset), either case, optionally followed
// by a signed offset "+H:MM" or "-H:MM" (hours 0 to 23, minutes 00 to 59), e.g. "SS+0:30",
// "sr-1:15". Blanks around the text are accepted, as for a clock time.
enum class SunEvent : uint8_t { Sunrise, Sunset };
struct SunTime {
    SunEvent Event = SunEvent::Sunrise;
    int Offset = 0;  // seconds, signed
    bool operator==(const SunTime&) const = default;
};
std::optional<SunTime> ParseSunTime(std::string_view text);

// The time of day of a sun time on a day whose sun is `day`: the event plus the offset, held
// to the same day, so that an offset past midnight gives 00:00:00 or 23:59:59. Nothing when
// the sun does not rise or set that day.
std::optional<int> SunTimeOnDay(const SunTime& t, const SunDay& day);

// True when a code or days text reads as a plain decimal number ("## Cyclic Minutes"): blanks
// around it, an optional sign, digits with at most one decimal point, at least one digit.
bool IsNumericCode(std::string_view code);
// The number as a 16-bit integer, rounded to the nearest whole with ties to even; a value
// beyond 16 bits ends the program with an overflow, a text that is no number with a type
// mismatch.
int16_t NumericCodeValue(std::string_view code);

// The texts the days field accepts: "Days", "ALL Days", "All Days", "ALL", "All", " ", "" or
// a number (digits 1 to 7 stand for Sunday to Saturday).
bool IsDaysOfWeekText(std::string_view text);
// The codes the even/odd field accepts, as stored: the letter codes, two blanks, one blank,
// nothing, or a number.
bool IsEvenOddCode(std::string_view text);
// What the even/odd field stores of a typed text: upper-cased and cut to two characters.
std::string EvenOddEntryForm(std::string_view text);
// What a time field stores of a typed text: cut to eight characters.
std::string TimeEntryForm(std::string_view text);

// A start or end time of a pair.
class TimeField {
  public:
    static constexpr int32_t Blank = -1;        // "" or " ": no time
    static constexpr int32_t Unreadable = -2;   // a text that is no time of day
    static constexpr int32_t SunRelative = -3;  // sunrise or sunset with an offset: Sun()

    TimeField() = default;
    TimeField(std::string text) { Set(std::move(text)); }
    TimeField(const char* text) { Set(text); }
    TimeField& operator=(std::string text) { return Set(std::move(text)); }
    TimeField& operator=(const char* text) { return Set(text); }

    const std::string& Text() const { return text_; }
    operator const std::string&() const { return text_; }
    bool IsBlank() const { return value_ == Blank; }
    // A clock time: Value() holds its seconds.
    bool IsReadable() const { return value_ >= 0; }
    bool IsSunTime() const { return value_ == SunRelative; }
    // A time that field entry takes: a clock time or a sun time.
    bool IsTime() const { return IsReadable() || IsSunTime(); }
    const SunTime& Sun() const { return sun_; }
    // Seconds since midnight, Blank, Unreadable or SunRelative.
    int32_t Value() const { return value_; }
    // The engine's reading of a clock time: a set text that is no time ends the program
    // ("Type mismatch"). A sun time is read through SecondsOn.
    int32_t SecondsOrFail() const;
    // The time of day on a day whose sun is `sun` (null: no location known). Nothing for a
    // sun time without a location or on a day without that event; a clock time ignores `sun`.
    std::optional<int32_t> SecondsOn(const SunDay* sun) const;

    bool operator==(const TimeField& other) const { return text_ == other.text_; }
    bool operator==(const std::string& text) const { return text_ == text; }
    bool operator==(const char* text) const { return text_ == text; }

  private:
    TimeField& Set(std::string text);
    std::string text_;
    int32_t value_ = Blank;
    SunTime sun_;
};

// Whether the start of a pair comes before its end on every day: both clock times, or both
// relative to the same sun event. -1, 0 or 1 as start is earlier, equal or later; nothing when
// the order depends on the day (a clock time against a sun time, sunrise against sunset).
std::optional<int> SameDayOrder(const TimeField& start, const TimeField& end);

// The rule that a relay's even/odd code selects.
enum class CodeRule : uint8_t {
    Plain,  // "EO", "  " and every text that is no code
    EvenOddDay,
    EvenOddHour,
    EvenOddMinute,
    EvenOddSecond,
    Weekend,       // "SS", "XS", "SX"
    TopOfHour,     // "TH"
    ThreeWindows,  // "3H"
    MiddleOfHour,  // "MH"
    BottomOfHour,  // "BH"
    Cyclic,        // a number of minutes
};

// The even/odd code of a relay. Codes compare exactly and with case.
class EvenOddCode {
  public:
    EvenOddCode() = default;
    EvenOddCode(std::string text) { Set(std::move(text)); }
    EvenOddCode(const char* text) { Set(text); }
    EvenOddCode& operator=(std::string text) { return Set(std::move(text)); }
    EvenOddCode& operator=(const char* text) { return Set(text); }

    const std::string& Text() const { return text_; }
    operator const std::string&() const { return text_; }
    CodeRule Rule() const { return rule_; }
    // For the even/odd rules: true for the even code of its kind.
    bool Even() const { return even_; }
    // For the weekend rule: whether the first pair is held back on that weekday (1 or 7).
    bool HeldOn(int weekday) const {
        return (weekday == 1 && holdSunday_) || (weekday == 7 && holdSaturday_);
    }
    bool IsCyclic() const { return rule_ == CodeRule::Cyclic; }
    // The cyclic minutes; a number beyond 16 bits ends the program with an overflow.
    int16_t CycleMinutes() const;

    bool operator==(const EvenOddCode& other) const { return text_ == other.text_; }
    bool operator==(const std::string& text) const { return text_ == text; }
    bool operator==(const char* text) const { return text_ == text; }

  private:
    EvenOddCode& Set(std::string text);
    std::string text_;
    CodeRule rule_ = CodeRule::Plain;
    bool even_ = false;
    bool holdSunday_ = false, holdSaturday_ = false;
    bool overflow_ = false;
    int16_t minutes_ = 0;
};

// The days of the week on which a relay follows its pairs.
class DaysField {
  public:
    DaysField() = default;
    DaysField(std::string text) { Set(std::move(text)); }
    DaysField(const char* text) { Set(text); }
    DaysField& operator=(std::string text) { return Set(std::move(text)); }
    DaysField& operator=(const char* text) { return Set(text); }

    const std::string& Text() const { return text_; }
    operator const std::string&() const { return text_; }
    // True on every day for the all-days texts; otherwise when the weekday's digit (Sunday = 1)
    // stands anywhere in the text.
    bool Matches(int weekday) const {
        return all_ || (weekday >= 1 && weekday <= 7 && (digits_ >> weekday & 1) != 0);
    }

    bool operator==(const DaysField& other) const { return text_ == other.text_; }
    bool operator==(const std::string& text) const { return text_ == text; }
    bool operator==(const char* text) const { return text_ == text; }

  private:
    DaysField& Set(std::string text);
    std::string text_;
    bool all_ = true;
    uint8_t digits_ = 0;
};

// Whether pair a overlaps pair b, both set. The times are compared as texts, character by
// character, so "8:00" counts as later than "10:00"; equal starts or equal ends alone are no
// overlap. Field entry warns by this rule, and the preview reports by it.
bool PairsOverlap(const TimeField& startA, const TimeField& endA, const TimeField& startB,
                  const TimeField& endB);

std::ostream& operator<<(std::ostream& out, const TimeField& f);
std::ostream& operator<<(std::ostream& out, const EvenOddCode& c);
std::ostream& operator<<(std::ostream& out, const DaysField& d);

}  // namespace vantrellion
