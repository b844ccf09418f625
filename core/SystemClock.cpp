#include "core/SystemClock.h"

namespace vantrellion {

SystemClock::SystemClock() {
    tzset();
}

DateTime SystemClock::Now() {
    timespec ts{};
    clock_gettime(CLOCK_REALTIME, &ts);
    if (ts.tv_sec == second_) return now_;
    second_ = ts.tv_sec;
    tm local{};
    localtime_r(&ts.tv_sec, &local);  // uses the zone as loaded; no look at the zone file
    // A change of the zone (summer time, a new zone file) is looked for once an hour.
    if (local.tm_hour != zoneHour_) {
        tzset();
        localtime_r(&ts.tv_sec, &local);
        zoneHour_ = local.tm_hour;
    }
    // tm counts Sunday = 0; the system counts Sunday = 1 to Saturday = 7.
    now_ = DateTime{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,    local.tm_hour,
                    local.tm_min,         local.tm_sec,     local.tm_wday + 1};
    return now_;
}

}  // namespace vantrellion
