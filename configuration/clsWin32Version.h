// clsWin32Version: the family of the operating system, as the start-up check asks for it.
// The program's own platform answers "95", the family that the check accepts; any other
// system answers "Unknown", which the check refuses; "" when the system cannot be asked.
#pragma once

#include <string>

namespace vantrellion {

std::string getVersion32();

}  // namespace vantrellion
