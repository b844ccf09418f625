#include "configuration/ProgramLocation.h"

#include "boardio/LibraryPorts.h"

namespace vantrellion {

std::string ProgramDirectory() {
    return ExecutableDirectory();
}

std::string ProgramName() {
    std::string name = ExecutablePath();
    if (const auto slash = name.rfind('/'); slash != std::string::npos) name.erase(0, slash + 1);
    if (const auto dot = name.rfind('.'); dot != std::string::npos && dot > 0) name.erase(dot);
    return name;
}

}  // namespace vantrellion
