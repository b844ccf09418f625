#include "logging/EventLog.h"

#include "core/CheckTimeControl.h"
#include "logging/LogFileAppend.h"
#include "logging/LogFileName.h"

namespace vantrellion {

std::string EventLogLine(const DateTime& now, const std::string& shortDate,
                         const std::string& firstText, const std::string& secondText) {
    return TimeText(now.SecondsOfDay()) + " " + shortDate + " " + firstText + " " + secondText;
}

void WriteEventLog(System& s, const std::string& firstText, const std::string& secondText) {
    if (s.modRelay.LoggingOnOff != -1) return;
    const CheckTimeHold hold(s);
    const std::string path = MakeLogFileName(s);
    AppendLogLine(path,
                  EventLogLine(s.clock().Now(), s.clock().ShortDate(), firstText, secondText));
}

}  // namespace vantrellion
