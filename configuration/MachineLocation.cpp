#include "configuration/MachineLocation.h"

#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"

namespace vantrellion {

namespace {

constexpr const char* LatitudeName = "Latitude";
constexpr const char* LongitudeName = "Longitude";

std::string ReadValue(System& s, const char* name) {
    const std::string v = RegReadWithSentinels(s, HKEY_LOCAL_MACHINE, ConfigKeyRead, name);
    return IsRegSentinel(v) ? "" : v;
}

bool IsBlankText(const std::string& text) {
    return text.find_first_not_of(' ') == std::string::npos;
}

std::optional<GeoLocation> LocationOf(const LocationTexts& t) {
    const auto lat = ParseDegrees(t.Latitude, MaxLatitude);
    const auto lon = ParseDegrees(t.Longitude, MaxLongitude);
    if (!lat || !lon) return std::nullopt;
    return GeoLocation{*lat, *lon};
}

}  // namespace

LocationTexts StoredLocationTexts(System& s) {
    return {ReadValue(s, LatitudeName), ReadValue(s, LongitudeName)};
}

void LoadMachineLocation(System& s) {
    s.modRelay.Location = LocationOf(StoredLocationTexts(s));
}

std::string LocationProblem(const LocationTexts& t) {
    const bool noLat = IsBlankText(t.Latitude), noLon = IsBlankText(t.Longitude);
    if (noLat && noLon) return "";
    if (noLat || noLon)
        return "Enter both Latitude and Longitude for sunrise and sunset times, or neither.";
    if (!ParseDegrees(t.Latitude, MaxLatitude))
        return "Latitude \"" + t.Latitude +
               "\" is not valid: enter degrees from -90 to 90, north positive (e.g. 52.52).";
    if (!ParseDegrees(t.Longitude, MaxLongitude))
        return "Longitude \"" + t.Longitude +
               "\" is not valid: enter degrees from -180 to 180, east positive (e.g. 13.405).";
    return "";
}

bool SaveMachineLocation(System& s, const LocationTexts& t) {
    const std::string problem = LocationProblem(t);
    if (!problem.empty()) {
        s.Message({problem, Buttons::OK, Icon::Exclamation, 1, "Entry Error"});
        return false;
    }
    if (IsBlankText(t.Latitude)) {
        for (const char* name : {LatitudeName, LongitudeName})
            if (!ReadValue(s, name).empty())
                RegDeleteValue(s, HKEY_LOCAL_MACHINE, ConfigKeyRead, name);
        s.modRelay.Location.reset();
        return true;
    }
    RegWriteValue(s, HKEY_LOCAL_MACHINE, ConfigKeyWrite, "String", LatitudeName, t.Latitude);
    RegWriteValue(s, HKEY_LOCAL_MACHINE, ConfigKeyWrite, "String", LongitudeName, t.Longitude);
    s.modRelay.Location = LocationOf(t);
    return true;
}

}  // namespace vantrellion
