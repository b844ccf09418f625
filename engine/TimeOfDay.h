// Reading a time text as a time of day, as the entry check admits it: "HH:MM:SS", "HH:MM",
// "H:MM", "H:MM:SS", each optionally followed by "am" or "pm" (with or without a blank,
// either case).
#pragma once

#include <optional>
#include <string>

namespace vantrellion {

// Seconds since midnight, or nothing when the text is not a time of day.
std::optional<int> ParseTimeOfDay(const std::string& text);

// The same for the engine: a text that cannot be read is an error that ends the program
// (FatalError "Type mismatch", 13).
int TimeOfDayOrFail(const std::string& text);

}  // namespace vantrellion
