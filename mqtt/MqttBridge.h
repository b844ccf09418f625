// The bridge between the running schedule and an MQTT broker. It is told at the end of every
// tick: there it takes what the network thread has received, carries out the commands that
// are allowed, and publishes each value that has changed since it was last published
// (retained), so that between changes nothing is sent. After every (re)connect it publishes
// everything again.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/SharedState.h"
#include "core/Timeline.h"
#include "mqtt/MqttConnection.h"
#include "mqtt/MqttPayloads.h"
#include "mqtt/MqttSettings.h"
#include "preview/NextSwitches.h"

namespace vantrellion {

// Told each line that the bridge has to say, with its syslog priority (3 error, 4 warning,
// 6 information). The bridge also writes its event lines into the daily log.
using MqttNotice = std::function<void(int priority, const std::string& text)>;

// The relays that the engine drives, as topics count them.
inline constexpr int MqttRelays = (LastBoard + 1) * RelaysPerBoard;

class MqttBridge : public TickObserver {
  public:
    MqttBridge(System& s, MqttSettings settings, MqttNotice notice);
    ~MqttBridge() override;

    // Starts the network thread and joins the tick's observers (left again when the bridge
    // goes). False, with the reason told, when the settings cannot be used (no URL, a bad URL,
    // a password file that others may read).
    bool Start();
    // Publishes "offline" and leaves the broker.
    void Stop();
    void TickCompleted() override;

    const std::string& BaseTopic() const { return base_; }

  private:
    void Handle(const MqttEvent& e);
    void HandleCommand(const MqttEvent& e);
    void Tell(int priority, const std::string& text);
    void PublishChanges();
    void MeasureOnTime();
    std::optional<std::string> NextSwitchText(int record, LocalSeconds now) const;
    std::map<std::string, std::string> CurrentMessages();

    System& s_;
    MqttSettings settings_;
    MqttNotice notice_;
    std::string base_;
    std::string node_;
    std::string deviceName_;
    std::unique_ptr<MqttConnection> connection_;
    bool everConnected_ = false;
    bool lost_ = false;
    std::map<std::string, std::string> published_;         // topic to the payload last sent
    std::array<std::string, MqttRelays> discoveredNames_;  // the names the configs were made with

    // The on-time today of each relay, measured from the states read back at the ticks.
    std::array<int64_t, MqttRelays> onMs_{};
    std::array<int64_t, MqttRelays> onSecondsShown_{};
    std::array<int64_t, MqttRelays> onSecondsShownAt_{};
    std::array<int16_t, MqttRelays> lastState_{};
    int64_t lastTickMs_ = -1;
    int lastDay_ = -1;

    NextSwitches next_;  // for the next switch time of each relay's attributes
};

// The reason of a relay's state: stopped before manual before inverted before the schedule.
RelayReason ReasonOf(const RelayRecord& r);

}  // namespace vantrellion
