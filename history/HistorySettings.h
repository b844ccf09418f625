// What the run-time history takes from the stored configuration when it runs outside the
// program (the command line): the log directory, the relay names and the group colours.
#pragma once

#include <string>

#include "core/SharedState.h"
#include "history/HistoryReport.h"

namespace vantrellion {

struct HistorySettings {
    std::string LogDirectory;  // with its closing "/"
    HistoryLabels Labels;
};

// Reads store.db of the machine directory without changing it. Where there is no store, or a
// value is missing or unreadable, the defaults stand: the machine directory for the logs,
// "Relay n" and the default group colours.
HistorySettings ReadHistorySettings(const std::string& machineDirectory);

}  // namespace vantrellion
