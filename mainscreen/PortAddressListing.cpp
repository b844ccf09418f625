#include "mainscreen/PortAddressListing.h"

#include <cstdio>

#include "core/CheckTimeControl.h"
#include "logging/LogFileAppend.h"
#include "logging/LogFileName.h"

namespace vantrellion {

std::string PortListingLine(int address, uint8_t value) {
    char hex[8];
    std::snprintf(hex, sizeof hex, "%X", static_cast<unsigned>(address));
    std::string line = "Decimal: " + std::to_string(address) + " Hex: " + hex + " :";
    for (int bit = 0; bit <= 7; ++bit) {
        if (bit > 0) line += ' ';
        line += (value & (1 << bit)) != 0 ? std::to_string(bit + 1) : std::string("-");
    }
    return line;
}

void mnuToolListAddress_H200_H3FF(System& s) {
    const CheckTimeHold hold(s);
    std::string text;
    auto add = [&text](const std::string& line) {
        if (!text.empty()) text += "\r\n";
        text += line;
    };
    add("-------Begin H200-H279----------------------------");
    // Errors are passed over from here on: a value that does not fit a byte leaves the last
    // one in place, as a failed assignment would.
    uint8_t value = 0;
    // The range runs one port beyond its name, to hex 400, inside the last block.
    for (int address = 512; address <= 1024; ++address) {
        if (address == 640) {
            add("-------End   H200-H279----------------------------");
            add("-------Begin H280-H3FF----------------------------");
        }
        const int16_t read = s.ports().In8255(static_cast<int16_t>(address));
        if (read >= 0 && read <= 255) value = static_cast<uint8_t>(read);
        add(PortListingLine(address, value));
    }
    add("-------End   H280-H3FF----------------------------");
    // One append of the whole listing; a file that cannot be written loses it silently.
    AppendLogLine(MakeLogFileName(s), text);
}

}  // namespace vantrellion
