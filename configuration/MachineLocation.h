// The machine's location for sunrise and sunset times: the values Latitude and Longitude of the
// configuration key, decimal degrees as text (north and east positive). Both set, or neither.
#pragma once

#include <string>

#include "core/SharedState.h"

namespace vantrellion {

// Where the user sets the location, for the messages that ask for it.
inline constexpr const char* LocationPlace =
    "Latitude and Longitude in the configuration screen (File, Configuration)";

struct LocationTexts {
    std::string Latitude, Longitude;
};

// The stored texts, "" for a value that is missing.
LocationTexts StoredLocationTexts(System& s);

// Reads the location into ModRelay::Location. A value that is missing, not a number or out of
// its range leaves the machine without a location.
void LoadMachineLocation(System& s);

// What is wrong with the two texts as a location, "" when they can be stored: two numbers in
// their ranges, or both blank (no location).
std::string LocationProblem(const LocationTexts& texts);

// Stores the texts as the user entered them (both blank removes the values) and takes the
// location into use. Texts that cannot be used are told in a box and not stored; false then.
bool SaveMachineLocation(System& s, const LocationTexts& texts);

}  // namespace vantrellion
