// A real Modbus TCP relay module for tests: libmodbus's own server side, on 127.0.0.1 at a
// port the kernel picks, served from a thread. Coils and discrete inputs 0 to 15; requests to
// the unit id refusedUnit are answered with an exception. It can stop (the module goes away)
// and start again at the same port.
#pragma once

#include <modbus/modbus.h>

#include <atomic>
#include <cstdint>
#include <mutex>
#include <thread>

namespace vantrellion::test {

class ModbusTestServer {
  public:
    static constexpr int refusedUnit = 7;

    ModbusTestServer();
    ~ModbusTestServer();
    void Start();  // at the same port as before, once one has been picked
    void Stop();   // closes the listening socket and the connection

    int Port() const { return port_; }
    // Coils 0 to 7 from start as a byte, bit r coil start+r.
    uint8_t Coils(int start = 0);
    void SetInputs(uint8_t bits, int start = 0);
    // "Write multiple coils" requests served, and connections accepted, since the start.
    int CoilWrites() const { return coilWrites_; }
    int Connections() const { return connections_; }

  private:
    void Serve(int listenFd);

    modbus_mapping_t* map_;
    std::mutex mutex_;
    std::thread thread_;
    std::atomic<bool> stop_{false};
    std::atomic<int> coilWrites_{0}, connections_{0};
    int port_ = 0;
};

}  // namespace vantrellion::test
