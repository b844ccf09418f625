#include "mqtt/MqttTopics.h"

#include <algorithm>
#include <cctype>

namespace vantrellion {

namespace {

std::string Relay(const std::string& base, int relay, const char* leaf) {
    return base + "/relay/" + std::to_string(relay) + "/" + leaf;
}

}  // namespace

std::string RelayStateTopic(const std::string& base, int relay) {
    return Relay(base, relay, "state");
}
std::string RelayAttributesTopic(const std::string& base, int relay) {
    return Relay(base, relay, "attributes");
}
std::string RelayCounterTopic(const std::string& base, int relay) {
    return Relay(base, relay, "counter");
}
std::string RelayOnSecondsTopic(const std::string& base, int relay) {
    return Relay(base, relay, "on_seconds");
}
std::string RelaySetTopic(const std::string& base, int relay) {
    return Relay(base, relay, "set");
}
std::string RelayStopTopic(const std::string& base, int relay) {
    return Relay(base, relay, "stop");
}
std::string InputStateTopic(const std::string& base, int input) {
    return base + "/input/" + std::to_string(input) + "/state";
}
std::string StatusTopic(const std::string& base) {
    return base + "/status";
}

std::string SwitchConfigTopic(const std::string& node, int relay) {
    return "homeassistant/switch/" + node + "/relay" + std::to_string(relay) + "/config";
}
std::string BinarySensorConfigTopic(const std::string& node, int input) {
    return "homeassistant/binary_sensor/" + node + "/input" + std::to_string(input) + "/config";
}

std::string DiscoveryNodeId(const std::string& base) {
    std::string node = base;
    for (char& c : node) {
        const auto u = static_cast<unsigned char>(c);
        if (!(std::isalnum(u) && u < 0x80) && c != '_' && c != '-') c = '_';
    }
    return node;
}

std::string SetCommandFilter(const std::string& base) {
    return base + "/relay/+/set";
}
std::string StopCommandFilter(const std::string& base) {
    return base + "/relay/+/stop";
}

std::optional<MqttCommand> ParseMqttCommand(const std::string& base, const std::string& topic,
                                            const std::string& payload, int relays,
                                            std::string& error) {
    const std::string prefix = base + "/relay/";
    if (topic.rfind(prefix, 0) != 0) {
        error = "not a command topic";
        return std::nullopt;
    }
    const std::string rest = topic.substr(prefix.size());
    const size_t slash = rest.find('/');
    const std::string number = rest.substr(0, slash);
    const std::string leaf = slash == std::string::npos ? "" : rest.substr(slash + 1);
    MqttCommand c;
    if (leaf == "set") {
        c.Kind = MqttCommandKind::Manual;
    } else if (leaf == "stop") {
        c.Kind = MqttCommandKind::HardStop;
    } else {
        error = "not a command topic";
        return std::nullopt;
    }
    if (number.empty() || number.size() > 3 ||
        number.find_first_not_of("0123456789") != std::string::npos || std::stoi(number) < 1 ||
        std::stoi(number) > relays) {
        error = "no relay " + number + " (relays 1 to " + std::to_string(relays) + ")";
        return std::nullopt;
    }
    c.Record = std::stoi(number) - 1;
    std::string word = payload;
    word.erase(0, word.find_first_not_of(" \t\r\n"));
    word.erase(word.find_last_not_of(" \t\r\n") + 1);
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char ch) { return static_cast<char>(std::toupper(ch)); });
    if (word == "ON") {
        c.On = true;
    } else if (word == "OFF") {
        c.On = false;
    } else {
        error = "the payload is neither ON nor OFF";
        return std::nullopt;
    }
    return c;
}

}  // namespace vantrellion
