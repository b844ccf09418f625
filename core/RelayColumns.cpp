#include "core/RelayColumns.h"

namespace vantrellion {

std::string RelayColumnHeading(int record) {
    return "R" + std::to_string(record + 1);
}

std::string RelayShownName(const std::string& name, int record) {
    if (name.find_first_not_of(' ') != std::string::npos) return name;
    return "Relay " + std::to_string(record + 1);
}

std::string RelayLegendLine(int record, const std::string& shownName) {
    return "  " + RelayColumnHeading(record) + "  " + shownName + "\n";
}

}  // namespace vantrellion
