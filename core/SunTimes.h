// Sunrise and sunset for a place and a local calendar day, by the NOAA solar equations. The
// local time zone, daylight saving included, is the system's (the TZ rules that localtime_r and
// mktime apply).
#pragma once

#include <optional>
#include <string>

namespace vantrellion {

// A place on the earth in decimal degrees: latitude north positive, longitude east positive.
struct GeoLocation {
    double Latitude = 0;
    double Longitude = 0;
    bool operator==(const GeoLocation&) const = default;
};

inline constexpr double MaxLatitude = 90;
inline constexpr double MaxLongitude = 180;

// What the sun does on one day at one place.
enum class SunPhase {
    RisesAndSets,
    PolarDay,    // the sun stays above the horizon all day: no sunrise, no sunset
    PolarNight,  // the sun stays below the horizon all day
};

struct SunDay {
    SunPhase Phase = SunPhase::RisesAndSets;
    // Seconds from the local midnight at the start of the day to the event, in local time; for
    // a place far from its zone's meridian an event can fall outside 0 to 86399.
    int Sunrise = 0;
    int Sunset = 0;
};

// The sun on the local calendar day year-month-day at the place.
SunDay SunTimesFor(int year, int month, int day, const GeoLocation& place);

// Why the sun gives no time that day, for messages: "the sun does not set (polar day)".
std::string SunPhaseReason(SunPhase phase);

// A latitude or longitude typed as a decimal number in degrees ("52.52", "-13.405", blanks
// around it allowed), within -limit to +limit. Nothing otherwise.
std::optional<double> ParseDegrees(const std::string& text, double limit);

}  // namespace vantrellion
