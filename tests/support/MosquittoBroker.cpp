#include "support/MosquittoBroker.h"

#include <arpa/inet.h>
#include <mosquitto.h>
#include <netinet/in.h>
#include <pwd.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <thread>

namespace vantrellion::test {

namespace {

int FreePort() {
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ::bind(fd, reinterpret_cast<sockaddr*>(&a), sizeof a);
    socklen_t len = sizeof a;
    ::getsockname(fd, reinterpret_cast<sockaddr*>(&a), &len);
    ::close(fd);
    return ntohs(a.sin_port);
}

bool Listens(int port) {
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_port = htons(static_cast<uint16_t>(port));
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const bool ok = ::connect(fd, reinterpret_cast<sockaddr*>(&a), sizeof a) == 0;
    ::close(fd);
    return ok;
}

void Run(const std::string& command) {
    if (std::system((command + " >/dev/null 2>&1").c_str()) != 0)
        std::fprintf(stderr, "failed: %s\n", command.c_str());
}

// A self-signed CA: its key and certificate in dir.
void MakeCa(const std::string& dir, const std::string& ca) {
    Run("openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj /CN=" + ca + " -keyout " + dir +
        ca + ".key -out " + dir + ca + ".pem");
}

}  // namespace

MosquittoBroker::MosquittoBroker(const TempDir& dir, bool withTls) : dir_(dir.Path()) {
    port_ = FreePort();
    std::ofstream conf(dir_ + "mosquitto.conf");
    // Started as root, mosquitto would change to its own user, which cannot read the test's
    // directory: it stays the test's user.
    const passwd* user = ::getpwuid(::geteuid());
    conf << "persistence false\nallow_anonymous true\nlog_dest stderr\n"
         << "user " << (user ? user->pw_name : "root") << "\n"
         << "listener " << port_ << " 127.0.0.1\n";
    if (withTls) {
        tlsPort_ = FreePort();
        MakeCa(dir_, "ca");
        MakeCa(dir_, "other-ca");
        std::ofstream(dir_ + "san.ext") << "subjectAltName=IP:127.0.0.1\n";
        Run("openssl req -newkey rsa:2048 -nodes -subj /CN=127.0.0.1 -keyout " + dir_ +
            "server.key -out " + dir_ + "server.csr");
        Run("openssl x509 -req -days 2 -in " + dir_ + "server.csr -CA " + dir_ + "ca.pem -CAkey " +
            dir_ + "ca.key -CAcreateserial -extfile " + dir_ + "san.ext -out " + dir_ +
            "server.pem");
        conf << "listener " << tlsPort_ << " 127.0.0.1\n"
             << "cafile " << dir_ << "ca.pem\ncertfile " << dir_ << "server.pem\nkeyfile " << dir_
             << "server.key\n";
    }
}

MosquittoBroker::~MosquittoBroker() {
    Stop();
}

bool MosquittoBroker::Start() {
    pid_ = ::fork();
    if (pid_ == 0) {
        std::freopen((dir_ + "mosquitto.log").c_str(), "a", stderr);
        ::execl(MosquittoProgram, MosquittoProgram, "-c", (dir_ + "mosquitto.conf").c_str(),
                static_cast<char*>(nullptr));
        ::_exit(127);
    }
    for (int waited = 0; waited < 5000; waited += 20) {
        if (Listens(port_) && (tlsPort_ == 0 || Listens(tlsPort_))) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return false;
}

void MosquittoBroker::Stop() {
    if (pid_ <= 0) return;
    ::kill(pid_, SIGTERM);
    int status = 0;
    ::waitpid(pid_, &status, 0);
    pid_ = -1;
}

std::string MosquittoBroker::Log() const {
    std::ifstream in(dir_ + "mosquitto.log");
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

MqttWatcher::MqttWatcher(int port) {
    mosquitto_lib_init();
    client_ = mosquitto_new(nullptr, true, this);
    mosquitto_connect_callback_set(client_, &MqttWatcher::OnConnect);
    mosquitto_message_callback_set(client_, &MqttWatcher::OnMessage);
    mosquitto_connect(client_, "127.0.0.1", port, 30);
    mosquitto_loop_start(client_);
}

MqttWatcher::~MqttWatcher() {
    mosquitto_disconnect(client_);
    mosquitto_loop_stop(client_, false);
    mosquitto_destroy(client_);
}

void MqttWatcher::OnConnect(mosquitto* m, void* self, int rc) {
    auto* w = static_cast<MqttWatcher*>(self);
    if (rc == 0) mosquitto_subscribe(m, nullptr, "#", 1);
    std::lock_guard lock(w->mutex_);
    w->connected_ = rc == 0;
    w->changed_.notify_all();
}

void MqttWatcher::OnMessage(mosquitto*, void* self, const mosquitto_message* m) {
    auto* w = static_cast<MqttWatcher*>(self);
    ReceivedMessage r;
    r.Topic = m->topic;
    r.Payload.assign(static_cast<const char*>(m->payload), static_cast<size_t>(m->payloadlen));
    r.Retained = m->retain;
    r.At = std::chrono::steady_clock::now();
    std::lock_guard lock(w->mutex_);
    w->messages_.push_back(std::move(r));
    w->changed_.notify_all();
}

bool MqttWatcher::Connected() {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::seconds(5), [this] { return connected_; });
}

bool MqttWatcher::WaitUntil(const std::function<bool(const std::vector<ReceivedMessage>&)>& pred,
                            int timeoutMs) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                             [&] { return pred(messages_); });
}

bool MqttWatcher::WaitFor(const std::string& topic, const std::string& payload, int timeoutMs,
                          size_t from, size_t* at) {
    return WaitUntil(
        [&](const std::vector<ReceivedMessage>& all) {
            for (size_t i = from; i < all.size(); ++i)
                if (all[i].Topic == topic && all[i].Payload == payload) {
                    if (at) *at = i;
                    return true;
                }
            return false;
        },
        timeoutMs);
}

std::vector<ReceivedMessage> MqttWatcher::Messages() {
    std::lock_guard lock(mutex_);
    return messages_;
}

std::map<std::string, std::string> MqttWatcher::Latest() {
    std::map<std::string, std::string> latest;
    for (const ReceivedMessage& m : Messages())
        latest[m.Topic] = m.Payload;
    return latest;
}

void MqttWatcher::Publish(const std::string& topic, const std::string& payload, bool retain) {
    mosquitto_publish(client_, nullptr, topic.c_str(), static_cast<int>(payload.size()),
                      payload.data(), 1, retain);
}

}  // namespace vantrellion::test
