// How the schedule preview and the run-time history name a relay: in their tables, CSV files,
// pictures and windows, on the screen and on the command line alike.
#pragma once

#include <string>

namespace vantrellion {

// "R1": the heading of relay record `record`'s column (from 0; board 2's first relay is R9).
std::string RelayColumnHeading(int record);

// The name shown for a relay: its own name when it has one (not empty, not only blanks), else
// "Relay n" with n counted from 1 over all boards.
std::string RelayShownName(const std::string& name, int record);

// The line of a table's legend that says which relay a heading stands for: "  R1  Pump\n".
std::string RelayLegendLine(int record, const std::string& shownName);

}  // namespace vantrellion
