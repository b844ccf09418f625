// The date and time texts that a user types and reads: the From of the schedule preview (its
// window and its command line) and the days of the run-time history's command line all take
// the same forms, and all print the same way.
#pragma once

#include <optional>
#include <string>

#include "core/Timeline.h"

namespace vantrellion {

// The forms a date is typed in, for usage texts and messages.
inline constexpr const char* DateTimeForms =
    "YYYY-MM-DD, \"YYYY-MM-DD HH:MM\" or \"YYYY-MM-DD HH:MM:SS\"";

// "2026-11-28", "2026-11-28 06:30" or "2026-11-28 06:30:00" ("T" may stand for the blank, the
// hour may have one digit, blanks around the text are ignored): a real calendar day from year
// 1970 and a time of day in 24-hour form, taken exactly as typed; a date alone is its
// midnight. Nothing otherwise.
std::optional<LocalSeconds> ParseDateTimeText(const std::string& text);

// "2026-11-28 06:30:00".
std::string DateTimeText(LocalSeconds t);
// "2026-11-28".
std::string DateText(LocalSeconds t);

}  // namespace vantrellion
