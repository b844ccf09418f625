#include "mqtt/MqttPayloads.h"

#include <cstdio>

#include "core/TextEncoding.h"
#include "mqtt/MqttTopics.h"

namespace vantrellion {

namespace {

std::string Field(const char* name, const std::string& jsonValue) {
    return std::string("\"") + name + "\":" + jsonValue;
}

std::string Device(const DiscoveryEntity& e) {
    return "{" + Field("identifiers", "[" + JsonString(e.Node) + "]") + "," +
           Field("name", JsonString(e.DeviceName)) + "," +
           Field("manufacturer", JsonString("Vantrellion")) + "," +
           Field("model", JsonString("Vantrellion")) + "," +
           Field("sw_version", JsonString(e.Version)) + "}";
}

}  // namespace

std::string JsonString(const std::string& text) {
    const std::string utf8 = IsValidUtf8(text) ? text : Latin1ToUtf8(text);
    std::string out = "\"";
    for (const char c : utf8) {
        const auto u = static_cast<unsigned char>(c);
        if (c == '"') {
            out += "\\\"";
        } else if (c == '\\') {
            out += "\\\\";
        } else if (c == '\n') {
            out += "\\n";
        } else if (c == '\r') {
            out += "\\r";
        } else if (c == '\t') {
            out += "\\t";
        } else if (u < 0x20 || u == 0x7f) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\u%04x", u);
            out += escaped;
        } else {
            out += c;
        }
    }
    return out + "\"";
}

std::string SwitchConfigPayload(const DiscoveryEntity& e, bool remoteControl) {
    std::string json =
        "{" + Field("unique_id", JsonString(e.Node + "_relay" + std::to_string(e.Number))) + "," +
        Field("name", JsonString(e.Name)) + "," +
        Field("state_topic", JsonString(RelayStateTopic(e.Base, e.Number)));
    if (remoteControl)
        json += "," + Field("command_topic", JsonString(RelaySetTopic(e.Base, e.Number)));
    json += "," + Field("availability_topic", JsonString(StatusTopic(e.Base))) + "," +
            Field("json_attributes_topic", JsonString(RelayAttributesTopic(e.Base, e.Number))) +
            "," + Field("payload_on", JsonString("ON")) + "," +
            Field("payload_off", JsonString("OFF")) + "," + Field("device", Device(e)) + "}";
    return json;
}

std::string BinarySensorConfigPayload(const DiscoveryEntity& e) {
    return "{" + Field("unique_id", JsonString(e.Node + "_input" + std::to_string(e.Number))) +
           "," + Field("name", JsonString(e.Name)) + "," +
           Field("state_topic", JsonString(InputStateTopic(e.Base, e.Number))) + "," +
           Field("availability_topic", JsonString(StatusTopic(e.Base))) + "," +
           Field("payload_on", JsonString("ON")) + "," + Field("payload_off", JsonString("OFF")) +
           "," + Field("device", Device(e)) + "}";
}

const char* RelayReasonText(RelayReason reason) {
    switch (reason) {
        case RelayReason::Manual:
            return "manual";
        case RelayReason::Inverted:
            return "inverted";
        case RelayReason::Stopped:
            return "stopped";
        case RelayReason::Schedule:
            break;
    }
    return "schedule";
}

std::string RelayAttributesPayload(RelayReason reason, const std::optional<std::string>& next) {
    return "{" + Field("reason", JsonString(RelayReasonText(reason))) + "," +
           Field("next_switch", next ? JsonString(*next) : std::string("null")) + "}";
}

}  // namespace vantrellion
