#include "service/ServiceStatus.h"

namespace vantrellion {

int RelaysOn(const System& s) {
    int on = 0;
    for (const RelayRecord& r : s.frmRelay.Relay)
        if (r.OldState == 1) ++on;
    return on;
}

std::string ServiceStatusText(int relaysOn, std::optional<LocalSeconds> next) {
    std::string text = std::to_string(relaysOn) + (relaysOn == 1 ? " relay on" : " relays on");
    if (!next) return text + ", no switch within a day";
    return text + ", next switch at " + TimeText(static_cast<int>(*next % 86400));
}

}  // namespace vantrellion
