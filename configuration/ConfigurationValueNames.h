// The value names of the configuration key that are composed or listed: board and relay numbers
// count from 1 and are appended in plain decimal ("BaseAddress1", "Brd1RNam8",
// "ColorRelayGroup3"), and the ten named colours in the order in which they are loaded and saved.
#pragma once

#include <array>
#include <string>

#include "core/SharedState.h"

namespace vantrellion {

struct NamedColor {
    const char* Name;
    Color ModRelay::*Member;
};

inline constexpr std::array<NamedColor, 10> NamedColors{{
    {"ColorRelayON", &ModRelay::ColorRelayON},
    {"ColorRelayOFF", &ModRelay::ColorRelayOFF},
    {"ColorTimeON", &ModRelay::ColorTimeON},
    {"ColorTimeOFF", &ModRelay::ColorTimeOFF},
    {"ColorManualON", &ModRelay::ColorManualON},
    {"ColorManualOFF", &ModRelay::ColorManualOFF},
    {"ColorInputON", &ModRelay::ColorInputON},
    {"ColorInputOFF", &ModRelay::ColorInputOFF},
    {"ColorTTimeBkgrnd", &ModRelay::ColorTTimeBkgrnd},
    {"ColorNameBkgrnd", &ModRelay::ColorNameBkgrnd},
}};

// The 16-bit numbers of a board, in the order in which they are loaded and saved.
struct BoardNumber {
    const char* Stem;
    int16_t BoardRecord::*Member;
};

inline constexpr std::array<BoardNumber, 6> BoardNumbers{{
    {"BaseAddress", &BoardRecord::BaseAddress},
    {"InputAddress", &BoardRecord::InputAddress},
    {"CntlAddress", &BoardRecord::CntlAddress},
    {"PortConfigValue", &BoardRecord::PortConfigValue},
    {"LogBoard", &BoardRecord::LogBoard},
    {"ResetOnExit", &BoardRecord::ResetOnExit},
}};

// stem + (board index + 1): "ChipSetType1" for board 0.
inline std::string BoardValueName(const char* stem, int board) {
    return stem + std::to_string(board + 1);
}

// "Brd" + board + "RNam" + relay, both counted from 1.
inline std::string RelayNameValueName(int board, int relay) {
    return "Brd" + std::to_string(board + 1) + "RNam" + std::to_string(relay + 1);
}

// "ColorRelayGroup" + (group index + 1).
inline std::string GroupColorValueName(int group) {
    return "ColorRelayGroup" + std::to_string(group + 1);
}

// The remote status (MQTT) settings, each a text.
inline constexpr const char* MqttUrlValueName = "MqttUrl";
inline constexpr const char* MqttUserValueName = "MqttUser";
inline constexpr const char* MqttPasswordFileValueName = "MqttPasswordFile";
inline constexpr const char* MqttBaseTopicValueName = "MqttBaseTopic";
inline constexpr const char* MqttDiscoveryValueName = "MqttDiscovery";
inline constexpr const char* MqttRemoteControlValueName = "MqttRemoteControl";

}  // namespace vantrellion
