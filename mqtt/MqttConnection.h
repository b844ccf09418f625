// The link to the broker through libmosquitto, on a network thread of its own: connecting,
// reading, writing and reconnecting never happen on the thread of the tick. The tick's thread
// publishes (which only queues the message for the network thread) and takes the events that
// the network thread has collected: connected, lost, a failed attempt, a message received.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "mqtt/MqttSettings.h"

struct mosquitto;
struct mosquitto_message;

namespace vantrellion {

// The wait before the next attempt after `failures` attempts in a row that failed (from 1):
// 1, 2, 4, 8, 16, 32 seconds, then 60 seconds for as long as it takes.
int MqttReconnectDelaySeconds(int failures);

struct MqttConnectionOptions {
    MqttBroker Broker;
    std::string ClientId;
    std::string User;  // "" : none
    std::string Password;
    // Published by the broker, retained, when the link ends without a goodbye.
    std::string WillTopic;
    std::string WillPayload;
    // Subscribed at every connect.
    std::vector<std::string> Subscriptions;
};

struct MqttEvent {
    enum class Kind { Connected, Lost, Failed, Message };
    Kind What = Kind::Connected;
    std::string Text;  // Lost and Failed: the reason
    std::string Topic, Payload;
    bool Retained = false;
    // Milliseconds from the connect to the message's arrival.
    int64_t AfterConnectMs = 0;
};

class MqttConnection {
  public:
    explicit MqttConnection(MqttConnectionOptions options);
    // Stops as Stop does.
    ~MqttConnection();
    MqttConnection(const MqttConnection&) = delete;
    MqttConnection& operator=(const MqttConnection&) = delete;

    // Starts the network thread, which connects and keeps connecting. False with the reason
    // in error when the client cannot be set up at all.
    bool Start(std::string& error);
    // Publishes lastWords (retained) when connected, says goodbye to the broker (so that the
    // will is not sent) and ends the network thread. Waits at most about a second.
    void Stop(const std::string& lastWordsTopic = {}, const std::string& lastWords = {});

    bool Connected() const { return connected_; }
    // Queues a message, at least once; false when there is no link now.
    bool Publish(const std::string& topic, const std::string& payload, bool retain);
    // The events since the last call, in order.
    std::vector<MqttEvent> TakeEvents();

  private:
    void Run();
    void Push(MqttEvent e);
    void WaitBeforeRetry(int failures);
    std::string FailureText(int rc);
    static void OnConnect(mosquitto* m, void* self, int rc);
    static void OnDisconnect(mosquitto* m, void* self, int rc);
    static void OnMessage(mosquitto* m, void* self, const mosquitto_message* msg);
    static void OnLog(mosquitto* m, void* self, int level, const char* text);

    MqttConnectionOptions options_;
    mosquitto* client_ = nullptr;
    std::thread thread_;
    std::atomic<bool> connected_{false};
    std::atomic<bool> linkUp_{false};  // this attempt reached the broker
    std::atomic<bool> stopping_{false};
    std::atomic<bool> leaving_{false};
    std::mutex mutex_;  // guards what follows
    std::condition_variable wake_;
    std::vector<MqttEvent> events_;
    std::string lastError_;  // the library's last error message, for the reason of a failure
    std::string refusal_;    // the broker's answer when it refused the connect
    std::chrono::steady_clock::time_point connectedAt_{};
};

}  // namespace vantrellion
