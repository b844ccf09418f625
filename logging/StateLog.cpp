#include "logging/StateLog.h"

#include "logging/LogFileAppend.h"
#include "logging/LogFileName.h"

namespace vantrellion {

std::string StateLogLine(const System& s, const DateTime& now, const PortTexts& relayTexts,
                         const PortTexts& inputTexts) {
    std::string line = TimeText(now.SecondsOfDay()) + " ";
    for (int b = 0; b <= LastBoard; ++b) {
        if (s.modRelay.Board[b].LogBoard != 0) line += "<" + relayTexts[b] + ">";
    }
    line += "R><I";
    for (int b = 0; b <= LastBoard; ++b) {
        const BoardRecord& board = s.modRelay.Board[b];
        if (board.InputAddress != 0 && board.LogBoard != 0) line += "<" + inputTexts[b] + ">";
    }
    line += "I ";
    return line;
}

void WriteStateLog(System& s, const PortTexts& relayTexts, const PortTexts& inputTexts) {
    if (s.modRelay.LoggingOnOff != -1) return;
    // At most one line per minute number, at the first tick of a new minute. Only the number
    // counts, so a start in minute 0 waits for minute 1, and an hour without ticks looks like
    // the same minute.
    const int16_t minute = static_cast<int16_t>(s.clock().Now().Minute);
    if (minute == s.frmRelay.LastLogMinute) return;
    s.frmRelay.LastLogMinute = minute;
    const std::string line = StateLogLine(s, s.clock().Now(), relayTexts, inputTexts);
    AppendLogLine(MakeLogFileName(s), line);
}

}  // namespace vantrellion
