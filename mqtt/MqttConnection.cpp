#include "mqtt/MqttConnection.h"

#include <mosquitto.h>

#include <algorithm>

namespace vantrellion {

namespace {

constexpr int kKeepAliveSeconds = 30;
constexpr int kLoopWaitMs = 250;

void InitLibraryOnce() {
    static std::once_flag once;
    std::call_once(once, [] { mosquitto_lib_init(); });
}

}  // namespace

int MqttReconnectDelaySeconds(int failures) {
    if (failures <= 1) return 1;
    if (failures >= 7) return 60;
    return std::min(60, 1 << (failures - 1));
}

MqttConnection::MqttConnection(MqttConnectionOptions options) : options_(std::move(options)) {}

MqttConnection::~MqttConnection() {
    Stop();
    if (client_) mosquitto_destroy(client_);
}

bool MqttConnection::Start(std::string& error) {
    InitLibraryOnce();
    client_ = mosquitto_new(options_.ClientId.c_str(), true, this);
    if (!client_) {
        error = "the MQTT client cannot be created";
        return false;
    }
    mosquitto_threaded_set(client_, true);
    mosquitto_connect_callback_set(client_, &MqttConnection::OnConnect);
    mosquitto_disconnect_callback_set(client_, &MqttConnection::OnDisconnect);
    mosquitto_message_callback_set(client_, &MqttConnection::OnMessage);
    mosquitto_log_callback_set(client_, &MqttConnection::OnLog);
    if (!options_.User.empty())
        mosquitto_username_pw_set(client_, options_.User.c_str(),
                                  options_.Password.empty() ? nullptr : options_.Password.c_str());
    if (!options_.WillTopic.empty())
        mosquitto_will_set(client_, options_.WillTopic.c_str(),
                           static_cast<int>(options_.WillPayload.size()),
                           options_.WillPayload.data(), 1, true);
    if (options_.Broker.Tls) {
        // The system's certificate store, and the broker's name checked against its
        // certificate: a certificate that does not verify ends the connect.
        int rc = mosquitto_int_option(client_, MOSQ_OPT_TLS_USE_OS_CERTS, 1);
        if (rc == MOSQ_ERR_SUCCESS) rc = mosquitto_tls_opts_set(client_, 1, nullptr, nullptr);
        if (rc != MOSQ_ERR_SUCCESS) {
            error = std::string("TLS cannot be set up: ") + mosquitto_strerror(rc);
            return false;
        }
    }
    thread_ = std::thread([this] { Run(); });
    return true;
}

void MqttConnection::Stop(const std::string& lastWordsTopic, const std::string& lastWords) {
    if (!thread_.joinable()) return;
    if (connected_) {
        if (!lastWordsTopic.empty()) Publish(lastWordsTopic, lastWords, true);
        leaving_ = true;
        mosquitto_disconnect(client_);
    } else {
        stopping_ = true;
    }
    {
        std::lock_guard lock(mutex_);
        wake_.notify_all();
    }
    thread_.join();
}

bool MqttConnection::Publish(const std::string& topic, const std::string& payload, bool retain) {
    if (!connected_) return false;
    return mosquitto_publish(client_, nullptr, topic.c_str(), static_cast<int>(payload.size()),
                             payload.data(), 1, retain) == MOSQ_ERR_SUCCESS;
}

std::vector<MqttEvent> MqttConnection::TakeEvents() {
    std::lock_guard lock(mutex_);
    std::vector<MqttEvent> taken;
    taken.swap(events_);
    return taken;
}

void MqttConnection::Push(MqttEvent e) {
    std::lock_guard lock(mutex_);
    events_.push_back(std::move(e));
}

std::string MqttConnection::FailureText(int rc) {
    std::lock_guard lock(mutex_);
    std::string text;
    if (!refusal_.empty()) {
        text = "the broker refused the connection: " + refusal_;
    } else if (!lastError_.empty()) {
        text = lastError_;
    } else {
        text = mosquitto_strerror(rc);
    }
    refusal_.clear();
    lastError_.clear();
    while (!text.empty() && (text.back() == '.' || text.back() == '\n'))
        text.pop_back();
    return text;
}

void MqttConnection::WaitBeforeRetry(int failures) {
    std::unique_lock lock(mutex_);
    wake_.wait_for(lock, std::chrono::seconds(MqttReconnectDelaySeconds(failures)),
                   [this] { return stopping_ || leaving_; });
}

// The network thread: connect, serve the link until it ends, wait a growing delay, again.
void MqttConnection::Run() {
    int failures = 0;
    bool failureTold = false;
    while (!stopping_ && !leaving_) {
        {
            std::lock_guard lock(mutex_);
            refusal_.clear();
            lastError_.clear();
        }
        int rc = mosquitto_connect_async(client_, options_.Broker.Host.c_str(),
                                         options_.Broker.Port, kKeepAliveSeconds);
        if (rc == MOSQ_ERR_SUCCESS) {
            const auto leaveBy = [] {
                return std::chrono::steady_clock::now() + std::chrono::seconds(1);
            };
            auto deadline = std::chrono::steady_clock::time_point::max();
            while (!stopping_) {
                rc = mosquitto_loop(client_, kLoopWaitMs, 1);
                if (rc != MOSQ_ERR_SUCCESS) break;
                // A goodbye that the broker does not take within a second is given up.
                if (leaving_ && deadline == std::chrono::steady_clock::time_point::max())
                    deadline = leaveBy();
                if (std::chrono::steady_clock::now() > deadline) break;
            }
        }
        connected_ = false;
        const bool wasConnected = linkUp_.exchange(false);
        if (stopping_ || leaving_) break;
        const std::string reason = FailureText(rc);
        if (wasConnected) {
            failures = 0;
            failureTold = true;  // the loss is told; the failed attempts after it are not
            Push({MqttEvent::Kind::Lost, reason, {}, {}, false, 0});
        } else if (!failureTold) {
            failureTold = true;
            Push({MqttEvent::Kind::Failed, reason, {}, {}, false, 0});
        }
        WaitBeforeRetry(++failures);
    }
    mosquitto_disconnect(client_);
    connected_ = false;
}

void MqttConnection::OnConnect(mosquitto* m, void* self, int rc) {
    auto* c = static_cast<MqttConnection*>(self);
    if (rc != 0) {
        {
            std::lock_guard lock(c->mutex_);
            c->refusal_ = mosquitto_connack_string(rc);
        }
        mosquitto_disconnect(m);
        return;
    }
    {
        std::lock_guard lock(c->mutex_);
        c->connectedAt_ = std::chrono::steady_clock::now();
    }
    for (const std::string& filter : c->options_.Subscriptions)
        mosquitto_subscribe(m, nullptr, filter.c_str(), 1);
    c->linkUp_ = true;
    c->connected_ = true;
    c->Push({MqttEvent::Kind::Connected, {}, {}, {}, false, 0});
}

void MqttConnection::OnDisconnect(mosquitto*, void* self, int) {
    static_cast<MqttConnection*>(self)->connected_ = false;
}

void MqttConnection::OnMessage(mosquitto*, void* self, const mosquitto_message* msg) {
    auto* c = static_cast<MqttConnection*>(self);
    MqttEvent e;
    e.What = MqttEvent::Kind::Message;
    e.Topic = msg->topic ? msg->topic : "";
    if (msg->payload && msg->payloadlen > 0)
        e.Payload.assign(static_cast<const char*>(msg->payload),
                         static_cast<size_t>(msg->payloadlen));
    e.Retained = msg->retain;
    {
        std::lock_guard lock(c->mutex_);
        e.AfterConnectMs = std::chrono::duration_cast<std::chrono::milliseconds>(
                               std::chrono::steady_clock::now() - c->connectedAt_)
                               .count();
        c->events_.push_back(std::move(e));
    }
}

void MqttConnection::OnLog(mosquitto*, void* self, int level, const char* text) {
    if (!(level & MOSQ_LOG_ERR) || !text) return;
    auto* c = static_cast<MqttConnection*>(self);
    std::lock_guard lock(c->mutex_);
    c->lastError_ = text;
}

}  // namespace vantrellion
