#include "mqtt/MqttBridge.h"

#include <algorithm>
#include <cstdio>

#include "logging/EventLog.h"
#include "mainscreen/RowCommands.h"
#include "mqtt/MqttTopics.h"
#include "preview/SchedulePreview.h"

namespace vantrellion {

namespace {

constexpr int kPriorityError = 3;
constexpr int kPriorityWarning = 4;
constexpr int kPriorityInfo = 6;

// Commands that arrive this soon after a connect are taken for a broker's backlog.
constexpr int64_t kSettleMs = 1000;
// While a relay is on, its on-time is published at most this often.
constexpr int64_t kOnSecondsEveryMs = 60000;
// A gap between ticks longer than this (a suspend) is not counted as on-time.
constexpr int64_t kLongestTickGapMs = 60000;

const char* OnOff(bool on) {
    return on ? "ON" : "OFF";
}

std::string IsoText(LocalSeconds t) {
    const DateTime d = FromLocalSeconds(t);
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", d.Year, d.Month, d.Day,
                  d.Hour, d.Minute, d.Second);
    return text;
}

}  // namespace

RelayReason ReasonOf(const RelayRecord& r) {
    if (r.HardStop == True) return RelayReason::Stopped;
    if (r.Manual == True) return RelayReason::Manual;
    if (r.Invert != 0) return RelayReason::Inverted;
    return RelayReason::Schedule;
}

MqttBridge::MqttBridge(System& s, MqttSettings settings, MqttNotice notice)
    : s_(s), settings_(std::move(settings)), notice_(std::move(notice)) {
    base_ = EffectiveBaseTopic(settings_);
    node_ = DiscoveryNodeId(base_);
    deviceName_ = std::string(AppTitle) + " " + MachineName();
    lastState_.fill(-1);
}

MqttBridge::~MqttBridge() {
    Stop();
    auto& observers = s_.platform.tickObservers;
    observers.erase(std::remove(observers.begin(), observers.end(), this), observers.end());
}

void MqttBridge::Tell(int priority, const std::string& text) {
    if (notice_) notice_(priority, "MQTT: " + text);
}

bool MqttBridge::Start() {
    std::string error;
    const auto broker = ParseMqttUrl(settings_.Url, error);
    if (!broker) {
        Tell(kPriorityError, error + "; no remote status");
        return false;
    }
    MqttConnectionOptions o;
    o.Broker = *broker;
    o.ClientId = "vantrellion-" + node_;
    o.User = settings_.User;
    if (!settings_.PasswordFile.empty()) {
        const auto password = ReadMqttPasswordFile(settings_.PasswordFile, error);
        if (!password) {
            Tell(kPriorityError, error + "; no remote status");
            return false;
        }
        o.Password = *password;
    }
    o.WillTopic = StatusTopic(base_);
    o.WillPayload = "offline";
    // Commands are listened to also when remote control is off, so that each one refused is
    // told.
    o.Subscriptions = {SetCommandFilter(base_), StopCommandFilter(base_)};
    if (settings_.Discovery) o.Subscriptions.push_back(HomeAssistantStatusTopic);
    connection_ = std::make_unique<MqttConnection>(std::move(o));
    if (!connection_->Start(error)) {
        Tell(kPriorityError, error + "; no remote status");
        connection_.reset();
        return false;
    }
    Tell(kPriorityInfo,
         "connecting to " + settings_.Url + " as " + base_ +
             (settings_.RemoteControl ? ", remote control on" : ", remote control off"));
    s_.platform.tickObservers.push_back(this);
    return true;
}

void MqttBridge::Stop() {
    if (!connection_) return;
    connection_->Stop(StatusTopic(base_), "offline");
    connection_.reset();
}

void MqttBridge::TickCompleted() {
    if (!connection_) return;
    MeasureOnTime();
    for (const MqttEvent& e : connection_->TakeEvents())
        Handle(e);
    if (connection_->Connected()) PublishChanges();
}

void MqttBridge::Handle(const MqttEvent& e) {
    switch (e.What) {
        case MqttEvent::Kind::Connected:
            // Everything is sent again: the broker may have lost what it kept.
            published_.clear();
            if (lost_ || everConnected_) {
                Tell(kPriorityInfo, "back in contact with the broker " + settings_.Url);
                WriteEventLog(s_, "MQTT", "back in contact with the broker " + settings_.Url);
            } else {
                Tell(kPriorityInfo, "connected to the broker " + settings_.Url);
            }
            everConnected_ = true;
            lost_ = false;
            break;
        case MqttEvent::Kind::Lost:
            lost_ = true;
            Tell(kPriorityWarning, "lost the broker " + settings_.Url + ": " + e.Text +
                                       "; trying again every 1 to 60 seconds");
            WriteEventLog(s_, "MQTT", "lost the broker " + settings_.Url + ": " + e.Text);
            break;
        case MqttEvent::Kind::Failed:
            lost_ = true;
            Tell(kPriorityWarning, "cannot connect to the broker " + settings_.Url + ": " + e.Text +
                                       "; trying again every 1 to 60 seconds");
            WriteEventLog(s_, "MQTT",
                          "cannot connect to the broker " + settings_.Url + ": " + e.Text);
            break;
        case MqttEvent::Kind::Message:
            if (e.Topic == HomeAssistantStatusTopic) {
                // Home Assistant started again: it wants the discovery configs anew.
                if (e.Payload == "online")
                    for (auto it = published_.begin(); it != published_.end();)
                        it = it->first.rfind("homeassistant/", 0) == 0 ? published_.erase(it)
                                                                       : std::next(it);
            } else {
                HandleCommand(e);
            }
            break;
    }
}

void MqttBridge::HandleCommand(const MqttEvent& e) {
    const std::string said =
        e.Topic + " " + (e.Payload.size() > 20 ? e.Payload.substr(0, 20) + "..." : e.Payload);
    const auto answer = [&](int priority, const std::string& verdict) {
        Tell(priority, "command " + said + ": " + verdict);
        WriteEventLog(s_, "MQTT command", said + ": " + verdict);
    };
    std::string error;
    const auto command = ParseMqttCommand(base_, e.Topic, e.Payload, MqttRelays, error);
    if (!command) return answer(kPriorityWarning, "refused, " + error);
    // An old retained command, or a broker's backlog, must not switch a relay at a start.
    if (e.Retained) return answer(kPriorityWarning, "ignored, it is a retained message");
    if (e.AfterConnectMs < kSettleMs)
        return answer(kPriorityWarning, "ignored, it arrived within a second of connecting");
    if (!settings_.RemoteControl) return answer(kPriorityWarning, "refused, remote control is off");
    RelayRecord& r = s_.frmRelay.Relay[command->Record];
    if (command->Kind == MqttCommandKind::Manual) {
        // A stopped row holds its Manual control disabled; so does the remote command.
        if (r.HardStop == True) return answer(kPriorityWarning, "refused, the relay is stopped");
        if ((r.Manual == True) != command->On) lblManual_Click(s_, command->Record);
        return answer(kPriorityInfo, std::string("accepted, Manual ") + OnOff(command->On));
    }
    if ((r.HardStop == True) != command->On) imgHardStop_Click(s_, command->Record);
    answer(kPriorityInfo, std::string("accepted, Stop ") + OnOff(command->On));
}

void MqttBridge::MeasureOnTime() {
    const int64_t now = s_.clock().MonotonicMs();
    const int day = s_.clock().Now().Day;
    if (day != lastDay_) {
        onMs_.fill(0);
        lastDay_ = day;
    }
    const int64_t gap = lastTickMs_ < 0 ? 0 : now - lastTickMs_;
    lastTickMs_ = now;
    for (int i = 0; i < MqttRelays; ++i) {
        if (lastState_[i] == 1 && gap > 0 && gap <= kLongestTickGapMs) onMs_[i] += gap;
        const int16_t state = s_.frmRelay.Relay[i].OldState;
        // The figure shown is brought up to date at each switch, and at most once a minute
        // while the relay is on.
        if (state != lastState_[i] || now - onSecondsShownAt_[i] >= kOnSecondsEveryMs ||
            onMs_[i] / 1000 < onSecondsShown_[i]) {
            onSecondsShown_[i] = onMs_[i] / 1000;
            onSecondsShownAt_[i] = now;
        }
        lastState_[i] = state;
    }
}

std::optional<std::string> MqttBridge::NextSwitchText(int record, LocalSeconds now) const {
    const std::optional<LocalSeconds> next = next_.After(now, record);
    return next ? std::optional<std::string>(IsoText(*next)) : std::nullopt;
}

std::map<std::string, std::string> MqttBridge::CurrentMessages() {
    std::map<std::string, std::string> m;
    m[StatusTopic(base_)] = "online";
    next_.Update(s_);
    const LocalSeconds now = ToLocalSeconds(s_.clock().Now());
    for (int i = 0; i < MqttRelays; ++i) {
        const RelayRecord& r = s_.frmRelay.Relay[i];
        const int n = i + 1;
        // Not read back yet: nothing is said of the relay until the first tick has read it.
        if (r.OldState == 0 || r.OldState == 1) {
            m[RelayStateTopic(base_, n)] = OnOff(r.OldState == 1);
            m[RelayAttributesTopic(base_, n)] =
                RelayAttributesPayload(ReasonOf(r), NextSwitchText(i, now));
        }
        if (r.InputState == 0 || r.InputState == 1)
            m[InputStateTopic(base_, n)] = OnOff(r.InputState == 1);
        m[RelayCounterTopic(base_, n)] = std::to_string(r.Count);
        m[RelayOnSecondsTopic(base_, n)] = std::to_string(onSecondsShown_[i]);
        // The discovery configs change only with a relay's name; they are made again when the
        // name changed or the broker is to have them anew (a connect, Home Assistant's start).
        const std::string name = PreviewRelayName(s_.frmRelay, s_.modRelay, i);
        if (settings_.Discovery &&
            (name != discoveredNames_[i] || !published_.contains(SwitchConfigTopic(node_, n)) ||
             !published_.contains(BinarySensorConfigTopic(node_, n)))) {
            discoveredNames_[i] = name;
            DiscoveryEntity e;
            e.Node = node_;
            e.Base = base_;
            e.Number = n;
            e.DeviceName = deviceName_;
            e.Version = ProgramVersionText;
            e.Name = name;
            m[SwitchConfigTopic(node_, n)] = SwitchConfigPayload(e, settings_.RemoteControl);
            e.Name = "Input " + std::to_string(n);
            m[BinarySensorConfigTopic(node_, n)] = BinarySensorConfigPayload(e);
        }
    }
    return m;
}

void MqttBridge::PublishChanges() {
    for (const auto& [topic, payload] : CurrentMessages()) {
        auto it = published_.find(topic);
        if (it != published_.end() && it->second == payload) continue;
        if (!connection_->Publish(topic, payload, true)) return;  // the link went; all again
        published_[topic] = payload;
    }
}

}  // namespace vantrellion
