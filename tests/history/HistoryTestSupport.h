// Daily log files for the history tests, written as the log writer writes them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/Timeline.h"
#include "engine/InputStates.h"
#include "history/RunTimeHistory.h"
#include "support/TempDir.h"

namespace vantrellion::test {

inline LocalSeconds Day(int y, int m, int d) {
    DateTime date;
    date.Year = y;
    date.Month = m;
    date.Day = d;
    return ToLocalSeconds(date);
}

inline LocalSeconds At(int h, int m, int s = 0) {
    return h * 3600 + m * 60 + s;
}

// "14:07:00 <1 - 3 - - - - 8>R><I<- 2 - - - - - ->I "
inline std::string StateLine(int secondsOfDay, uint8_t relays, uint8_t inputs) {
    return TimeText(secondsOfDay) + " <" + FormatPortBits({relays})[0] + ">R><I<" +
           FormatPortBits({inputs})[0] + ">I ";
}

// A day of state lines, one at second 0 of every minute from first to before end, with the
// bytes that states gives for the minute's time; each line closed by CR LF.
struct Bytes {
    uint8_t relays = 0, inputs = 0;
};
inline std::string StateLines(int first, int end, const std::function<Bytes(int)>& states) {
    std::string out;
    for (int t = first; t < end; t += 60) {
        const Bytes b = states(t);
        out += StateLine(t, b.relays, b.inputs) + "\r\n";
    }
    return out;
}

inline void WriteDay(const TempDir& dir, LocalSeconds day, const std::string& bytes) {
    dir.Write(LogFileNameOfDay(day), bytes);
}

inline RunTimeHistory ReadDays(const TempDir& dir, LocalSeconds first, LocalSeconds last,
                               LocalSeconds now = 4102444800 /* 2100 */) {
    return ReadRunTimeHistory({dir.Path(), first, last, now});
}

}  // namespace vantrellion::test
