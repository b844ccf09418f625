#include "core/SunTimes.h"

#include <charconv>
#include <cmath>
#include <ctime>

#include "core/Timeline.h"

namespace vantrellion {

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr double UnixEpochJulianDay = 2440587.5;
constexpr double J2000 = 2451545.0;
// The sun's centre at this altitude is rising or setting: the refraction at the horizon and the
// sun's half-diameter.
constexpr double HorizonZenith = 90.833;

double Rad(double deg) {
    return deg * Pi / 180.0;
}
double Deg(double rad) {
    return rad * 180.0 / Pi;
}

// The sun's declination (degrees) and the equation of time (minutes) at a UTC instant, by the
// NOAA equations in Julian centuries from J2000.
struct SolarPosition {
    double Declination;
    double EquationOfTime;
};

SolarPosition SolarPositionAt(double unixSeconds) {
    const double jc = (unixSeconds / 86400.0 + UnixEpochJulianDay - J2000) / 36525.0;
    const double meanLong = std::fmod(280.46646 + jc * (36000.76983 + jc * 0.0003032), 360.0);
    const double meanAnom = 357.52911 + jc * (35999.05029 - 0.0001537 * jc);
    const double ecc = 0.016708634 - jc * (0.000042037 + 0.0000001267 * jc);
    const double m = Rad(meanAnom);
    const double center = std::sin(m) * (1.914602 - jc * (0.004817 + 0.000014 * jc)) +
                          std::sin(2 * m) * (0.019993 - 0.000101 * jc) + std::sin(3 * m) * 0.000289;
    const double omega = Rad(125.04 - 1934.136 * jc);
    const double appLong = meanLong + center - 0.00569 - 0.00478 * std::sin(omega);
    const double meanObliq =
        23.0 + (26.0 + (21.448 - jc * (46.815 + jc * (0.00059 - jc * 0.001813))) / 60.0) / 60.0;
    const double obliq = Rad(meanObliq + 0.00256 * std::cos(omega));
    const double decl = std::asin(std::sin(obliq) * std::sin(Rad(appLong)));
    const double y = std::pow(std::tan(obliq / 2), 2);
    const double l0 = Rad(meanLong);
    const double eot = y * std::sin(2 * l0) - 2 * ecc * std::sin(m) +
                       4 * ecc * y * std::sin(m) * std::cos(2 * l0) -
                       0.5 * y * y * std::sin(4 * l0) - 1.25 * ecc * ecc * std::sin(2 * m);
    return {Deg(decl), 4 * Deg(eot)};
}

// The cosine of the event's hour angle; beyond -1 or 1 the sun does not cross the horizon.
double CosHourAngle(double latitude, double declination) {
    const double lat = Rad(latitude), decl = Rad(declination);
    return std::cos(Rad(HorizonZenith)) / (std::cos(lat) * std::cos(decl)) -
           std::tan(lat) * std::tan(decl);
}

// The UTC instant of the transit nearest to `anchor`, with the equation of time in minutes.
double TransitNear(double anchor, double longitude, double eot) {
    const double utcMinutes = std::fmod(std::fmod(anchor, 86400.0) + 86400.0, 86400.0) / 60.0;
    double delta = 720.0 - (utcMinutes + eot + 4 * longitude);  // minutes to true solar noon
    delta = std::fmod(std::fmod(delta + 720.0, 1440.0) + 1440.0, 1440.0) - 720.0;
    return anchor + delta * 60.0;
}

// The UTC instant of sunrise (rising) or sunset near the local noon `anchor`. The sun's
// position is taken again at the event found, three times, which settles to well under a
// second. Nothing when the sun does not cross the horizon there; `cosHa` tells which way.
std::optional<double> SunEvent(double anchor, const GeoLocation& place, bool rising,
                               double& cosHa) {
    double at = anchor;
    for (int pass = 0; pass < 4; ++pass) {
        const SolarPosition pos = SolarPositionAt(at);
        cosHa = CosHourAngle(place.Latitude, pos.Declination);
        if (cosHa < -1 || cosHa > 1) return std::nullopt;
        const double ha = Deg(std::acos(cosHa));
        const double transit = TransitNear(anchor, place.Longitude, pos.EquationOfTime);
        at = transit + (rising ? -ha : ha) * 4 * 60;
    }
    return at;
}

// Seconds of the UTC instant after the local midnight of `midnight` (a local date).
int LocalSecondsFrom(const DateTime& midnight, double instant) {
    const time_t t = static_cast<time_t>(std::llround(instant));
    tm local{};
    localtime_r(&t, &local);
    const DateTime at{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,    local.tm_hour,
                      local.tm_min,         local.tm_sec,     local.tm_wday + 1};
    return static_cast<int>(ToLocalSeconds(at) - ToLocalSeconds(midnight));
}

}  // namespace

SunDay SunTimesFor(int year, int month, int day, const GeoLocation& place) {
    // Local noon of the day is the anchor: the transit nearest to it is the day's.
    tm noon{};
    noon.tm_year = year - 1900;
    noon.tm_mon = month - 1;
    noon.tm_mday = day;
    noon.tm_hour = 12;
    noon.tm_isdst = -1;
    const double anchor = static_cast<double>(mktime(&noon));

    SunDay result;
    double cosHa = 0;
    const auto rise = SunEvent(anchor, place, true, cosHa);
    const auto set = rise ? SunEvent(anchor, place, false, cosHa) : std::nullopt;
    if (!rise || !set) {
        result.Phase = cosHa < -1 ? SunPhase::PolarDay : SunPhase::PolarNight;
        return result;
    }
    const DateTime midnight{year, month, day, 0, 0, 0, 0};
    result.Sunrise = LocalSecondsFrom(midnight, *rise);
    result.Sunset = LocalSecondsFrom(midnight, *set);
    return result;
}

std::string SunPhaseReason(SunPhase phase) {
    switch (phase) {
        case SunPhase::PolarDay:
            return "the sun does not set (polar day)";
        case SunPhase::PolarNight:
            return "the sun does not rise (polar night)";
        default:
            return "";
    }
}

std::optional<double> ParseDegrees(const std::string& text, double limit) {
    const size_t b = text.find_first_not_of(' ');
    if (b == std::string::npos) return std::nullopt;
    const size_t e = text.find_last_not_of(' ') + 1;
    const char* first = text.data() + b;
    if (*first == '+') ++first;
    double v = 0;
    const auto [end, ec] = std::from_chars(first, text.data() + e, v);
    if (ec != std::errc() || end != text.data() + e || !std::isfinite(v)) return std::nullopt;
    if (v < -limit || v > limit) return std::nullopt;
    return v;
}

}  // namespace vantrellion
