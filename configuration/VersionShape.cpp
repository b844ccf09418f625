#include "configuration/VersionShape.h"

namespace vantrellion {

std::optional<int> VersionShapeDigit(const std::string& version, int position) {
    const auto bar = version.find('|');
    if (bar == std::string::npos || position < 1) return std::nullopt;
    const auto next = version.find('|', bar + 1);
    const std::string piece =
        version.substr(bar + 1, next == std::string::npos ? std::string::npos : next - bar - 1);
    if (piece.size() < static_cast<size_t>(position)) return std::nullopt;
    const char c = piece[position - 1];
    if (c < '0' || c > '9') return std::nullopt;
    return c - '0';
}

}  // namespace vantrellion
