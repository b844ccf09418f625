// Relay boards on GPIO lines. The driver's logic (which line is which bit, active-low,
// initial values) works on a small line backend: libgpiod in the program, a fake in tests.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "boardio/BoardDriver.h"

namespace vantrellion {

class GpioLines {
  public:
    virtual ~GpioLines() = default;
    // Requests the output lines with their first levels, and the input lines.
    virtual bool Request(const std::vector<unsigned>& outputs, const std::vector<int>& levels,
                         const std::vector<unsigned>& inputs, std::string& error) = 0;
    virtual bool SetOutputs(const std::vector<int>& levels, std::string& error) = 0;
    virtual bool GetOutputs(std::vector<int>& levels, std::string& error) = 0;
    virtual bool GetInputs(std::vector<int>& levels, std::string& error) = 0;
    virtual void Release() = 0;
};

struct GpioOptions {
    std::vector<unsigned> outputs;  // line of relay 0, 1, ...
    std::vector<unsigned> inputs;   // line of input 0, 1, ...
    bool activeLow = false;         // a relay is on while its line is low
};

// Requests the lines with the levels that give wanted (bit r relay r), so that opening never
// switches a relay through a default level. Null with error when the request fails.
std::unique_ptr<BoardLink> MakeGpioBoard(std::unique_ptr<GpioLines> lines, const GpioOptions& o,
                                         uint8_t wanted, std::string& error);

}  // namespace vantrellion
