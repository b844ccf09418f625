#include "mqtt/MqttSettingsScreen.h"

#include "mqtt/MqttTopics.h"

namespace vantrellion {

std::string MqttSettingsProblem(const MqttSettings& settings) {
    std::string error;
    if (!settings.Url.empty() && !ParseMqttUrl(settings.Url, error)) return error;
    if (!settings.PasswordFile.empty() && !ReadMqttPasswordFile(settings.PasswordFile, error))
        return error;
    if (settings.BaseTopic.find_first_of("+#") != std::string::npos)
        return "the base topic may not hold + or #";
    return "";
}

MqttConnectionTest::MqttConnectionTest(const MqttSettings& settings) : url_(settings.Url) {
    const std::string problem = MqttSettingsProblem(settings);
    if (settings.Url.empty()) {
        answer_ = "No broker is named";
        return;
    }
    if (!problem.empty()) {
        answer_ = "Not tried: " + problem;
        return;
    }
    std::string error;
    MqttConnectionOptions o;
    o.Broker = *ParseMqttUrl(settings.Url, error);
    // An id of its own, so that the test does not push the running bridge off the broker.
    o.ClientId = "vantrellion-" + DiscoveryNodeId(EffectiveBaseTopic(settings)) + "-test";
    o.User = settings.User;
    if (!settings.PasswordFile.empty())
        o.Password = ReadMqttPasswordFile(settings.PasswordFile, error).value_or("");
    connection_ = std::make_unique<MqttConnection>(std::move(o));
    if (!connection_->Start(error)) {
        answer_ = "Failed: " + error;
        connection_.reset();
    }
}

MqttConnectionTest::~MqttConnectionTest() = default;

std::optional<std::string> MqttConnectionTest::Poll(int64_t elapsedMs, int64_t timeoutMs) {
    if (answer_) return answer_;
    for (const MqttEvent& e : connection_->TakeEvents()) {
        if (e.What == MqttEvent::Kind::Connected) answer_ = "Connected to " + url_;
        if (e.What == MqttEvent::Kind::Failed || e.What == MqttEvent::Kind::Lost)
            answer_ = "Failed: " + e.Text;
        if (answer_) break;
    }
    if (!answer_ && elapsedMs >= timeoutMs) answer_ = "No answer from " + url_;
    if (answer_) connection_.reset();  // leaves the broker again
    return answer_;
}

}  // namespace vantrellion
