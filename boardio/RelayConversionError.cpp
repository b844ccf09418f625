#include "boardio/RelayConversionError.h"

#include <string>

namespace vantrellion {

void ShowRelayConversionError(System& s, int relay, int mask) {
    s.Message(MessageBoxRequest{.Prompt = "Relay Conversion Error, RelayIN:" +
                                          std::to_string(relay) + " Result:" + std::to_string(mask),
                                .ButtonSet = Buttons::OK,
                                .Title = "Conversion Error"});
}

}  // namespace vantrellion
