// A real mosquitto broker for a test, on free ports of 127.0.0.1 with a configuration of its
// own: a plain listener with anonymous access and, when asked, a TLS listener whose CA, server
// certificate and key the test makes with openssl. And a client that watches the broker.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "support/TempDir.h"

struct mosquitto;
struct mosquitto_message;

namespace vantrellion::test {

inline constexpr const char* MosquittoProgram = "/usr/sbin/mosquitto";

class MosquittoBroker {
  public:
    // withTls: a CA "ca.pem" and a server certificate for 127.0.0.1 are made in dir, and a
    // second CA "other-ca.pem" that signed nothing.
    MosquittoBroker(const TempDir& dir, bool withTls);
    ~MosquittoBroker();
    // Starts the broker and waits until it listens; false (with its output in Log()) when it
    // does not within a few seconds.
    bool Start();
    void Stop();
    int Port() const { return port_; }
    int TlsPort() const { return tlsPort_; }
    std::string Log() const;

  private:
    std::string dir_;
    int port_ = 0;
    int tlsPort_ = 0;
    pid_t pid_ = -1;
};

struct ReceivedMessage {
    std::string Topic, Payload;
    bool Retained = false;
    std::chrono::steady_clock::time_point At;
};

// A subscriber to "#" (and publisher) on the plain listener of a broker.
class MqttWatcher {
  public:
    explicit MqttWatcher(int port);
    ~MqttWatcher();
    bool Connected();
    // Waits (on the messages as they come) until pred holds for the messages so far.
    bool WaitUntil(const std::function<bool(const std::vector<ReceivedMessage>&)>& pred,
                   int timeoutMs);
    // Waits for a message on topic with this payload, arrived at or after index `from`; its
    // index goes to `at` when given.
    bool WaitFor(const std::string& topic, const std::string& payload, int timeoutMs,
                 size_t from = 0, size_t* at = nullptr);
    std::vector<ReceivedMessage> Messages();
    // The last payload of each topic.
    std::map<std::string, std::string> Latest();
    void Publish(const std::string& topic, const std::string& payload, bool retain);

  private:
    static void OnMessage(mosquitto*, void* self, const mosquitto_message* m);
    static void OnConnect(mosquitto*, void* self, int rc);
    mosquitto* client_ = nullptr;
    std::mutex mutex_;
    std::condition_variable changed_;
    bool connected_ = false;
    std::vector<ReceivedMessage> messages_;
};

}  // namespace vantrellion::test
