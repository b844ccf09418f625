// A typed or stored text without the blanks and tabs around it.
#pragma once

#include <string>

namespace vantrellion {

inline std::string TrimmedText(const std::string& text) {
    const size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

}  // namespace vantrellion
