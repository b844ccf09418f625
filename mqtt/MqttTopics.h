// The topics of the bridge under its base topic, the node of the discovery configs, and the
// commands that arrive on relay/N/set and relay/N/stop. Relays and inputs count from 1 in
// topics, as on the screen.
#pragma once

#include <optional>
#include <string>

namespace vantrellion {

std::string RelayStateTopic(const std::string& base, int relay);       // relay/N/state
std::string RelayAttributesTopic(const std::string& base, int relay);  // relay/N/attributes
std::string RelayCounterTopic(const std::string& base, int relay);     // relay/N/counter
std::string RelayOnSecondsTopic(const std::string& base, int relay);   // relay/N/on_seconds
std::string RelaySetTopic(const std::string& base, int relay);         // relay/N/set
std::string RelayStopTopic(const std::string& base, int relay);        // relay/N/stop
std::string InputStateTopic(const std::string& base, int input);       // input/N/state
std::string StatusTopic(const std::string& base);                      // status

// Home Assistant's own status topic, and the discovery config topics.
inline constexpr const char* HomeAssistantStatusTopic = "homeassistant/status";
std::string SwitchConfigTopic(const std::string& node, int relay);
std::string BinarySensorConfigTopic(const std::string& node, int input);

// The node of the discovery topics and unique ids, from the base topic: letters, digits, "_"
// and "-" kept, every other character "_" ("vantrellion/glass house" gives
// "vantrellion_glass_house").
std::string DiscoveryNodeId(const std::string& base);

// The topic filters that the bridge subscribes to for commands.
std::string SetCommandFilter(const std::string& base);   // relay/+/set
std::string StopCommandFilter(const std::string& base);  // relay/+/stop

enum class MqttCommandKind { Manual, HardStop };

struct MqttCommand {
    MqttCommandKind Kind = MqttCommandKind::Manual;
    int Record = 0;  // record index, from 0
    bool On = false;
};

// A command from its topic and payload: relay N from 1 to relays, payload "ON" or "OFF"
// (blanks around it and letter case do not matter). nullopt with the reason in error for a
// topic or payload that is no command.
std::optional<MqttCommand> ParseMqttCommand(const std::string& base, const std::string& topic,
                                            const std::string& payload, int relays,
                                            std::string& error);

}  // namespace vantrellion
