#include "core/Platform.h"

#include <cstdio>

namespace vantrellion {

std::string ShortDateText(const DateTime& d) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02d/%02d/%04d", d.Month, d.Day, d.Year);
    return buf;
}

std::string TimeText(int secondsOfDay) {
    char buf[16];
    std::snprintf(buf, sizeof buf, "%02d:%02d:%02d", secondsOfDay / 3600, secondsOfDay / 60 % 60,
                  secondsOfDay % 60);
    return buf;
}

}  // namespace vantrellion
