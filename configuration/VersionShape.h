// The shape part of a version text such as "FV.2001.05.01|.b0.r7.t5": behind the "|", the
// highest board index stands at character 3, the highest relay index at character 6 and the
// highest time-pair index at character 9 (counted from 1), one digit each.
#pragma once

#include <optional>
#include <string>

namespace vantrellion {

inline constexpr int ShapeBoardPosition = 3;
inline constexpr int ShapeRelayPosition = 6;
inline constexpr int ShapeTimePairPosition = 9;

// The digit at a position of the second "|"-piece of the version text, or nothing when there
// is no such piece, it is too short, or the character is not a digit.
std::optional<int> VersionShapeDigit(const std::string& version, int position);

}  // namespace vantrellion
