#include "configuration/clsWin32Version.h"

#include <sys/utsname.h>

#include <cstring>

namespace vantrellion {

std::string getVersion32() {
    utsname u{};
    if (uname(&u) != 0) return "";
    return std::strcmp(u.sysname, "Linux") == 0 ? "95" : "Unknown";
}

}  // namespace vantrellion
