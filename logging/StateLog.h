// The once-a-minute state line of the log.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

void WriteStateLog(System& s, const PortTexts& relayTexts, const PortTexts& inputTexts);

}  // namespace vantrellion
