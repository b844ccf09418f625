#include "service/ServiceConsole.h"

#include <unistd.h>

namespace vantrellion {

std::string OneLine(const std::string& text) {
    std::string line;
    bool blank = false;
    for (const char c : text) {
        if (c == '\r' || c == '\n') {
            blank = true;
            continue;
        }
        if (blank && !line.empty() && line.back() != ' ') line += ' ';
        blank = false;
        line += c;
    }
    return line;
}

void ServiceMessage(int priority, const std::string& text) {
    // One write per line, so that lines of different sources never mix.
    const std::string line = "<" + std::to_string(priority) + ">" + OneLine(text) + "\n";
    [[maybe_unused]] const ssize_t n = ::write(STDERR_FILENO, line.data(), line.size());
}

int BoxPriority(Icon icon) {
    if (icon == Icon::Critical) return PriorityError;
    if (icon == Icon::Exclamation) return PriorityWarning;
    return PriorityInfo;
}

}  // namespace vantrellion
