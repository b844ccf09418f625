// The JSON payloads of the bridge: Home Assistant discovery configs and a relay's attributes.
#pragma once

#include <optional>
#include <string>

namespace vantrellion {

// The text as a JSON string, quotes included. Texts in memory are UTF-8 and go out as they
// stand; a text that is not valid UTF-8 is taken as Latin-1. Quotes, backslashes and control
// characters are escaped.
std::string JsonString(const std::string& text);

// What a discovery config says of one relay or input.
struct DiscoveryEntity {
    std::string Node;  // DiscoveryNodeId of the base topic
    std::string Base;  // the base topic
    int Number = 1;    // relay or input, from 1
    std::string Name;  // as shown, UTF-8
    std::string DeviceName;
    std::string Version;
};

// homeassistant/switch/<node>/relayN/config: state, availability and attributes topics, and
// the command topic only when remote control is on.
std::string SwitchConfigPayload(const DiscoveryEntity& e, bool remoteControl);
// homeassistant/binary_sensor/<node>/inputN/config.
std::string BinarySensorConfigPayload(const DiscoveryEntity& e);

// Why a relay is in its state, in the words of its attributes.
enum class RelayReason { Schedule, Manual, Inverted, Stopped };
const char* RelayReasonText(RelayReason reason);

// {"reason":"schedule","next_switch":"2026-11-16T14:07:00"}; next_switch is null when no
// switch is due within a day.
std::string RelayAttributesPayload(RelayReason reason, const std::optional<std::string>& next);

}  // namespace vantrellion
