#include "engine/PairTimes.h"

#include "core/FatalError.h"
#include "logging/EventLog.h"

namespace vantrellion {

namespace {

int RelayOf(int k) {
    return k / PairsPerRelay;
}

int KnownTime(System& s, int k, const TimeField& field) {
    if (!field.IsSunTime()) return field.SecondsOrFail();
    const RelaySun& kept = s.frmRelay.SunOfDay[RelayOf(k)];
    const auto t = kept.Place ? SunTimeOnDay(field.Sun(), kept.Sun) : std::nullopt;
    // Only reached after PairTimesKnown: a sun time without a time that day is never asked for.
    if (!t) throw FatalError(ErrTypeMismatch, "Type mismatch");
    return *t;
}

std::string WhyNoTime(System& s, int i) {
    const RelaySun& kept = s.frmRelay.SunOfDay[i];
    if (!kept.Place) return "no location is set (Latitude and Longitude in File, Configuration)";
    return SunPhaseReason(kept.Sun.Phase);
}

}  // namespace

const SunDay* RelaySunOfDay(System& s, int i, const DateTime& today) {
    RelaySun& kept = s.frmRelay.SunOfDay[i];
    const std::optional<GeoLocation>& place = s.modRelay.Location;
    const bool sameDay =
        kept.Year == today.Year && kept.Month == today.Month && kept.Day == today.Day;
    if (!sameDay || kept.Place != place) {
        if (!sameDay) kept.Told = false;
        kept.Year = today.Year;
        kept.Month = today.Month;
        kept.Day = today.Day;
        kept.Place = place;
        if (place) kept.Sun = SunTimesFor(today.Year, today.Month, today.Day, *place);
    }
    return kept.Place ? &kept.Sun : nullptr;
}

std::optional<int> ResolveTimeField(System& s, int i, const TimeField& field,
                                    const DateTime& today) {
    if (!field.IsSunTime()) return field.SecondsOrFail();
    return field.SecondsOn(RelaySunOfDay(s, i, today));
}

bool PairTimesKnown(System& s, int i, int k, const DateTime& today, bool tell) {
    const TimeField& start = s.frmRelay.StartTime[k];
    const TimeField& end = s.frmRelay.EndTime[k];
    if (!start.IsSunTime() && !end.IsSunTime()) return true;
    if (ResolveTimeField(s, i, start, today) && ResolveTimeField(s, i, end, today)) return true;
    RelaySun& kept = s.frmRelay.SunOfDay[i];
    if (tell && !kept.Told) {
        kept.Told = true;
        WriteEventLog(s, "Sun",
                      "Relay " + std::to_string(i + 1) + " time pair " +
                          std::to_string(k % PairsPerRelay + 1) + " (" + start.Text() + " to " +
                          end.Text() + ") does not switch today: " + WhyNoTime(s, i));
    }
    return false;
}

int KnownStart(System& s, int k) {
    return KnownTime(s, k, s.frmRelay.StartTime[k]);
}

int KnownEnd(System& s, int k) {
    return KnownTime(s, k, s.frmRelay.EndTime[k]);
}

}  // namespace vantrellion
