// USB HID relay cards (vendor 16c0, product 05df, product string "USBRelayN" for N relays).
// Output reports of 9 bytes, report id 0 first: "00 FF n" switches relay n (from 1) on,
// "00 FD n" off, "00 FE" all on, "00 FC" all off. The state comes in a feature report: the
// card's 8 bytes are its serial number (5 bytes), two unused bytes, then the relay bits; a
// transport that puts the report id in front moves them all one byte on.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "boardio/BoardDriver.h"

namespace vantrellion {

using HidReport = std::array<uint8_t, 9>;

// The reports that take a card from before to after, relays 1 to count; the state not known
// (known false) sends every relay's report.
std::vector<HidReport> HidRelayReports(uint8_t before, uint8_t after, int count, bool known);
// The relay bits and serial number in a feature report of len bytes; false when too short.
bool HidRelayState(const uint8_t* report, int len, uint8_t& bits, std::string& serial);

// The card as the driver sees it: hidapi in the program, a fake in the tests.
class HidRelayTransport {
  public:
    virtual ~HidRelayTransport() = default;
    // hid_write and hid_get_feature_report: the bytes moved, or -1.
    virtual int Write(const uint8_t* data, size_t length) = 0;
    virtual int GetFeature(uint8_t* data, size_t length) = 0;
    virtual std::string Error() = 0;
};

std::unique_ptr<BoardLink> MakeHidRelayBoard(std::unique_ptr<HidRelayTransport> t, int relays);

}  // namespace vantrellion
