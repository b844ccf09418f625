#include "core/Timeline.h"

namespace vantrellion {

namespace {

// Days since 1970-01-01 of a proleptic Gregorian date, and back (the civil-calendar
// algorithms with 400-year eras).
int64_t DaysFromCivil(int64_t y, int m, int d) {
    y -= m <= 2;
    const int64_t era = (y >= 0 ? y : y - 399) / 400;
    const int64_t yoe = y - era * 400;
    const int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

void CivilFromDays(int64_t z, int& y, int& m, int& d) {
    z += 719468;
    const int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const int64_t doe = z - era * 146097;
    const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const int64_t mp = (5 * doy + 2) / 153;
    d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
    m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    y = static_cast<int>(yoe + era * 400 + (m <= 2));
}

int64_t FloorDiv(int64_t a, int64_t b) {
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)));
}

}  // namespace

LocalSeconds ToLocalSeconds(const DateTime& d) {
    return DaysFromCivil(d.Year, d.Month, d.Day) * 86400 + d.SecondsOfDay();
}

DateTime FromLocalSeconds(LocalSeconds t) {
    const int64_t days = FloorDiv(t, 86400);
    const int64_t secs = t - days * 86400;
    DateTime d;
    CivilFromDays(days, d.Year, d.Month, d.Day);
    d.Hour = static_cast<int>(secs / 3600);
    d.Minute = static_cast<int>(secs / 60 % 60);
    d.Second = static_cast<int>(secs % 60);
    // 1970-01-01 was a Thursday, weekday 5 when Sunday is 1.
    d.Weekday = static_cast<int>(((days + 4) % 7 + 7) % 7) + 1;
    return d;
}

}  // namespace vantrellion
