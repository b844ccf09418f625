#include "support/ModbusTestServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <stdexcept>

namespace vantrellion::test {

ModbusTestServer::ModbusTestServer() : map_(modbus_mapping_new(16, 16, 0, 0)) {
    Start();
}

ModbusTestServer::~ModbusTestServer() {
    Stop();
    modbus_mapping_free(map_);
}

void ModbusTestServer::Start() {
    Stop();
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int one = 1;
    ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &one, sizeof one);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_port = htons(static_cast<uint16_t>(port_));
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (::bind(fd, reinterpret_cast<sockaddr*>(&a), sizeof a) != 0 || ::listen(fd, 4) != 0)
        throw std::runtime_error("the Modbus test server cannot listen");
    socklen_t len = sizeof a;
    ::getsockname(fd, reinterpret_cast<sockaddr*>(&a), &len);
    port_ = ntohs(a.sin_port);
    stop_ = false;
    thread_ = std::thread([this, fd] { Serve(fd); });
}

void ModbusTestServer::Stop() {
    stop_ = true;
    if (thread_.joinable()) thread_.join();
}

uint8_t ModbusTestServer::Coils(int start) {
    std::lock_guard lock(mutex_);
    return modbus_get_byte_from_bits(map_->tab_bits, start, 8);
}

void ModbusTestServer::SetInputs(uint8_t bits, int start) {
    std::lock_guard lock(mutex_);
    modbus_set_bits_from_byte(map_->tab_input_bits, start, bits);
}

// One connection at a time, as a small module serves: a new one replaces the old.
void ModbusTestServer::Serve(int listenFd) {
    modbus_t* ctx = modbus_new_tcp("127.0.0.1", port_);
    int client = -1;
    uint8_t query[MODBUS_TCP_MAX_ADU_LENGTH];
    while (!stop_) {
        pollfd p[2] = {{listenFd, POLLIN, 0}, {client, POLLIN, 0}};
        if (::poll(p, client >= 0 ? 2 : 1, 20) <= 0) continue;
        if (p[0].revents & POLLIN) {
            if (client >= 0) ::close(client);
            client = ::accept4(listenFd, nullptr, nullptr, SOCK_CLOEXEC);
            ++connections_;
            continue;
        }
        if (client < 0 || !(p[1].revents & (POLLIN | POLLHUP | POLLERR))) continue;
        modbus_set_socket(ctx, client);
        const int n = modbus_receive(ctx, query);
        if (n <= 0) {
            ::close(client);
            client = -1;
            continue;
        }
        const int header = modbus_get_header_length(ctx);
        std::lock_guard lock(mutex_);
        if (query[header - 1] == refusedUnit) {
            modbus_reply_exception(ctx, query, MODBUS_EXCEPTION_ILLEGAL_DATA_ADDRESS);
            continue;
        }
        if (query[header] == 0x0F) ++coilWrites_;
        modbus_reply(ctx, query, n, map_);
    }
    if (client >= 0) ::close(client);
    ::close(listenFd);
    modbus_free(ctx);
}

}  // namespace vantrellion::test
