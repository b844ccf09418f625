// The logic of the remote status settings window: the check of the values before a save, and
// "Test connection", which tries the broker on the connection's own thread and is asked for
// its answer from the window's timer, so that the window (and the tick) never waits on it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "mqtt/MqttConnection.h"
#include "mqtt/MqttSettings.h"

namespace vantrellion {

// "" when the values can be saved; else what is wrong, for a box. An empty URL is fine: it
// turns the remote status off.
std::string MqttSettingsProblem(const MqttSettings& settings);

class MqttConnectionTest {
  public:
    // Starts one attempt with the settings (password file included).
    explicit MqttConnectionTest(const MqttSettings& settings);
    ~MqttConnectionTest();
    // nullopt while the attempt goes on; then the answer: "Connected to ..." or what failed.
    // After timeoutMs since the start without an answer, that there was none.
    std::optional<std::string> Poll(int64_t elapsedMs, int64_t timeoutMs = 10000);

  private:
    std::unique_ptr<MqttConnection> connection_;
    std::string url_;
    std::optional<std::string> answer_;
};

}  // namespace vantrellion
