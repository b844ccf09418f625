// The serial ports of this machine that a relay module is usually plugged into.
#pragma once

#include <string>
#include <vector>

namespace vantrellion {

// /dev/ttyUSB* and /dev/ttyACM*, sorted.
std::vector<std::string> UsbSerialDevices();

}  // namespace vantrellion
