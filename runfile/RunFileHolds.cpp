#include "runfile/RunFileHolds.h"

#include "core/DateTimeText.h"
#include "runfile/RunFileSave.h"

namespace vantrellion {

namespace {

constexpr int kDrivenRecords = (LastBoard + 1) * RelaysPerBoard;

std::string RelaysText(uint32_t relays) {
    std::string text;
    for (int i = 0; i < kDrivenRecords; ++i) {
        if (i > 0) text += ' ';
        const int r = i % RelaysPerBoard;
        text += (relays >> i & 1u) != 0 ? static_cast<char>('1' + r) : '-';
    }
    return text;
}

// The relays of a port text; a text not of that form does not read.
uint32_t ParseRelaysText(const std::string& text) {
    uint32_t relays = 0;
    const size_t pieces = (text.size() + 1) / 2;
    if (text.size() % 2 == 0 || pieces > 32) throw FieldReadError(ErrTextTypeMismatch);
    for (size_t i = 0; i < pieces; ++i) {
        const char c = text[i * 2];
        if (i + 1 < pieces && text[i * 2 + 1] != ' ') throw FieldReadError(ErrTextTypeMismatch);
        if (c == static_cast<char>('1' + i % RelaysPerBoard)) {
            relays |= 1u << i;
        } else if (c != '-') {
            throw FieldReadError(ErrTextTypeMismatch);
        }
    }
    return relays;
}

LocalSeconds ReadDateTime(FieldReader& in) {
    const auto t = ParseDateTimeText(in.ReadText());
    if (!t) throw FieldReadError(ErrTextTypeMismatch);
    return *t;
}

int ReadCount(FieldReader& in, int most) {
    const int n = in.ReadNumber();
    if (n < 0 || n > most) throw FieldReadError(ErrTextOverflow);
    return n;
}

}  // namespace

std::string HoldsSectionLines(const ScheduleHolds& holds) {
    bool paused = false;
    for (int i = 0; i < kDrivenRecords; ++i)
        paused = paused || holds.PausedUntil[i] != 0;
    if (holds.DaysOff.empty() && !paused) return "";

    std::string out = RunFileTextLine(HoldsSectionMark);
    out += RunFileNumberLine(static_cast<int16_t>(holds.DaysOff.size()));
    for (const DayOff& d : holds.DaysOff) {
        out += RunFileTextLine(DateText(d.First));
        out += RunFileTextLine(DateText(d.Last));
        out += RunFileFlagLine(d.EveryYear ? True : False);
        out += RunFileTextLine(RelaysText(d.Relays));
        out += RunFileTextLine(d.Note);
    }
    out += RunFileNumberLine(kDrivenRecords);
    for (int i = 0; i < kDrivenRecords; ++i)
        out += RunFileTextLine(holds.PausedUntil[i] == 0 ? "" : DateTimeText(holds.PausedUntil[i]));
    return out;
}

bool ReadHoldsSection(FieldReader& in, ScheduleHolds& holds) {
    if (in.ReadText() != HoldsSectionMark) return false;
    ScheduleHolds read;
    const int days = ReadCount(in, 10000);
    for (int n = 0; n < days; ++n) {
        DayOff d;
        d.First = ReadDateTime(in);
        d.Last = ReadDateTime(in);
        d.EveryYear = in.ReadNumber() == 1;
        d.Relays = ParseRelaysText(in.ReadText());
        d.Note = in.ReadText();
        if (d.Last < d.First && !d.EveryYear) throw FieldReadError(ErrTextTypeMismatch);
        read.DaysOff.push_back(d);
    }
    // Pause lines past this build's relays are read and dropped.
    const int pauses = ReadCount(in, 32);
    for (int i = 0; i < pauses; ++i) {
        const std::string until = in.ReadText();
        if (until.empty()) continue;
        const auto t = ParseDateTimeText(until);
        if (!t) throw FieldReadError(ErrTextTypeMismatch);
        if (i < kDrivenRecords) read.PausedUntil[i] = *t;
    }
    holds = read;
    return true;
}

}  // namespace vantrellion
