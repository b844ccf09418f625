#include "core/MachineDirectory.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace vantrellion {

std::string DefaultMachineDirectory() {
    std::string base;
    if (const char* xdg = std::getenv("XDG_DATA_HOME"); xdg && *xdg == '/') {
        base = xdg;
    } else if (const char* home = std::getenv("HOME"); home && *home) {
        base = std::string(home) + "/.local/share";
    } else {
        base = "/tmp";
    }
    while (base.size() > 1 && base.back() == '/')
        base.pop_back();
    return base + "/vantrellion/";
}

bool EnsureDirectory(const std::string& path) {
    std::error_code ec;
    std::filesystem::create_directories(path, ec);
    return std::filesystem::is_directory(path, ec);
}

}  // namespace vantrellion
