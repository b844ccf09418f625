// One line of a daily log, taken apart: a state line (the relay and input bits of every
// logged board), an event line (Open, Save, ReStart ...), a line of the port address listing,
// or something else. Lines of other writers and damaged lines are told apart so that a reader
// can count them; nothing here throws.
#pragma once

#include <cstdint>
#include <string_view>

namespace vantrellion {

// Up to four boards of eight relays or inputs in one state line.
inline constexpr int MaxLoggedGroups = 4;
inline constexpr int MaxLoggedLanes = MaxLoggedGroups * 8;

enum class LogLineKind {
    State,    // "14:07:00 <1 - 3 - - - - 8>R><I<- 2 - - - - - ->I "
    Event,    // "09:15:02 11/14/2026 Open c:\farm\greenhouse.run"
    Listing,  // the port address listing: "-------Begin ..." and "Decimal: 512 Hex: 200 :..."
    Blank,    // an empty line
    Foreign,  // text of another writer: it does not start as a line of the log does
    Damaged,  // starts with a time but is cut, garbled or holds control bytes
};

struct LogLine {
    LogLineKind Kind = LogLineKind::Foreign;
    int SecondsOfDay = 0;  // State and Event
    // State: the number of "<...>" groups before "R><I" (relays) and after it (inputs), and
    // their bits, group g's relay r at bit g * 8 + r.
    int RelayGroups = 0;
    int InputGroups = 0;
    uint32_t RelayBits = 0;
    uint32_t InputBits = 0;
    // Event: the date as written, the first text and the second text (which may hold blanks).
    // Views into the line given to ParseLogLine.
    std::string_view Date, First, Second;
};

// line without its line end (a trailing CR is ignored).
LogLine ParseLogLine(std::string_view line);

}  // namespace vantrellion
