// Inputs, counters and the port display texts.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// Sets InputState, counts rising edges where the counter is on, colours lblCounter.
void ShowInputStates(System& s, const PortBytes& inputBytes);
// "1 2 - - - - 7 8": the digit r + 1 where bit r is set, "-" otherwise.
PortTexts FormatPortBits(const PortBytes& bytes);
std::string FormatPortByte(uint8_t byte);
// The captions of mnuStateDisplayState and mnuStateDisplayInput.
void ShowStateTexts(System& s, const PortTexts& relayTexts, const PortTexts& inputTexts);

}  // namespace vantrellion
