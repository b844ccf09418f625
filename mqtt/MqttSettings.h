// The bridge's settings as the store keeps them (MqttUrl, MqttUser, MqttPasswordFile,
// MqttBaseTopic, MqttDiscovery, MqttRemoteControl), the broker's URL taken apart, and the
// password read from a file that only its owner may read.
#pragma once

#include <optional>
#include <string>

#include "core/SharedState.h"

namespace vantrellion {

struct MqttSettings {
    std::string Url;  // "" : no bridge, and no socket is opened
    std::string User;
    std::string PasswordFile;
    std::string BaseTopic;  // "" : vantrellion/<machine name>
    bool Discovery = true;
    bool RemoteControl = false;
};

struct MqttBroker {
    std::string Host;
    int Port = 1883;
    bool Tls = false;
};

// "mqtt://host[:port]" (1883) or "mqtts://host[:port]" (8883); an IPv6 address stands in
// brackets. nullopt with the reason in error for anything else.
std::optional<MqttBroker> ParseMqttUrl(const std::string& url, std::string& error);

// The password: the file's first line. A file that its group or others may read is refused,
// as is one that cannot be read; nullopt with the reason in error.
std::optional<std::string> ReadMqttPasswordFile(const std::string& path, std::string& error);

// The name of this machine (its host name), "vantrellion" when it has none.
std::string MachineName();
// "vantrellion/<machine name>".
std::string DefaultMqttBaseTopic();
// The base topic to use: the setting without a trailing "/", else the default.
std::string EffectiveBaseTopic(const MqttSettings& settings);

// The keys of the configuration store; missing keys give the defaults above.
MqttSettings LoadMqttSettings(System& s);
void SaveMqttSettings(System& s, const MqttSettings& settings);

}  // namespace vantrellion
