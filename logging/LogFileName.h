// The name of today's log file.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// "Vantrellion_2026_11_14.Log" from the short date "11/14/2026": "/" becomes "_", the year
// part is the 4 characters from position 7 and the month-and-day part the 5 characters from
// position 1 (positions counted from 1, fixed for month/day/year; another date form gives a
// name cut at the same places). A name that differs from LogFileName is stored there and saved
// to the configuration at once. Returns LogFilePath + LogFileName, joined as they stand.
std::string MakeLogFileName(System& s);

// The file name alone, for a given short date text.
std::string LogFileNameForDate(const std::string& shortDate);

}  // namespace vantrellion
