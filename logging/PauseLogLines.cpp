#include "logging/PauseLogLines.h"

#include "core/DateTimeText.h"
#include "logging/EventLog.h"

namespace vantrellion {

namespace {

std::string RelayWord(int record) {
    return "Relay " + std::to_string(record + 1) + " ";
}

std::string Quoted(const std::string& name) {
    return " \"" + name + "\"";
}

// "Relay n " at the front of text: n - 1, and text after it; -1 when it is not there.
int TakeRelay(std::string_view& text) {
    constexpr std::string_view word = "Relay ";
    if (text.substr(0, word.size()) != word) return -1;
    text.remove_prefix(word.size());
    int n = 0;
    size_t digits = 0;
    while (digits < text.size() && digits < 3 && text[digits] >= '0' && text[digits] <= '9')
        n = n * 10 + (text[digits++] - '0');
    if (digits == 0 || n < 1 || digits >= text.size() || text[digits] != ' ') return -1;
    text.remove_prefix(digits + 1);
    return n - 1;
}

}  // namespace

std::string PauseStartText(int record, LocalSeconds until, const std::string& name) {
    return RelayWord(record) + "paused until " + DateTimeText(until) + Quoted(name);
}

std::string PauseEndText(int record, bool early, const std::string& name) {
    return RelayWord(record) + (early ? "pause ended early" : "follows its schedule again") +
           Quoted(name);
}

void LogPauseStart(System& s, int record, LocalSeconds until) {
    WriteEventLog(s, PauseEventWord,
                  PauseStartText(record, until, s.frmRelay.Relay[record].DisplayName));
}

void LogPauseEnd(System& s, int record, bool early) {
    WriteEventLog(s, ResumeEventWord,
                  PauseEndText(record, early, s.frmRelay.Relay[record].DisplayName));
}

std::optional<PauseLogEntry> ParsePauseEvent(std::string_view first, std::string_view second) {
    const bool start = first == PauseEventWord;
    if (!start && first != ResumeEventWord) return std::nullopt;
    PauseLogEntry e;
    e.Start = start;
    e.Record = TakeRelay(second);
    if (e.Record < 0) return std::nullopt;
    if (!start) return e;
    constexpr std::string_view until = "paused until ";
    if (second.substr(0, until.size()) != until) return std::nullopt;
    second.remove_prefix(until.size());
    const auto t = ParseDateTimeText(std::string(second.substr(0, 19)));
    if (!t) return std::nullopt;
    e.Until = *t;
    return e;
}

}  // namespace vantrellion
