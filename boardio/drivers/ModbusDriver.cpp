// Modbus relay modules through libmodbus, over TCP or RTU (RS-485). Relays are coils from the
// "coil" address, inputs are discrete inputs from the "input" address. The eight outputs go in
// one "write multiple coils"; the board set decides when (once per tick, on a change or after
// a reconnect).
#include <modbus/modbus.h>

#include <cerrno>

#include "boardio/drivers/Drivers.h"
#include "boardio/drivers/SerialDevices.h"

namespace vantrellion {

namespace {

struct ModbusOptions {
    long unit = 1, coil = 0, input = 0, relays = 8, inputs = 8;
};

ModbusOptions ReadModbusOptions(const BoardConnection& c, std::string& error) {
    ModbusOptions m;
    m.unit = NumberOption(c, "unit", 1, 0, 247, error);
    m.coil = NumberOption(c, "coil", 0, 0, 65535 - 7, error);
    m.input = NumberOption(c, "input", 0, 0, 65535 - 7, error);
    m.relays = NumberOption(c, "relays", 8, 1, 8, error);
    m.inputs = NumberOption(c, "inputs", 8, 0, 8, error);
    return m;
}

class ModbusBoard : public BoardLink {
  public:
    ModbusBoard(modbus_t* ctx, const ModbusOptions& m) : ctx_(ctx), m_(m) {}
    ~ModbusBoard() override { Close(); }

    BoardIo WriteOutputs(uint8_t bits) override {
        uint8_t coils[8];
        for (int r = 0; r < m_.relays; ++r)
            coils[r] = (bits >> r) & 1;
        if (modbus_write_bits(ctx_, m_.coil, m_.relays, coils) != m_.relays) return Failed();
        return {};
    }
    BoardIo ReadOutputs() override {
        uint8_t coils[8] = {};
        if (modbus_read_bits(ctx_, m_.coil, m_.relays, coils) != m_.relays) return Failed();
        return BoardIo::Value(Byte(coils, m_.relays));
    }
    BoardIo ReadInputs() override {
        if (m_.inputs == 0) return BoardIo::Value(0);
        uint8_t bits[8] = {};
        if (modbus_read_input_bits(ctx_, m_.input, m_.inputs, bits) != m_.inputs) return Failed();
        return BoardIo::Value(Byte(bits, m_.inputs));
    }
    bool HasInputs() const override { return m_.inputs > 0; }
    void Close() override {
        if (!ctx_) return;
        modbus_close(ctx_);
        modbus_free(ctx_);
        ctx_ = nullptr;
    }

  private:
    static uint8_t Byte(const uint8_t* bits, int n) {
        uint8_t v = 0;
        for (int i = 0; i < n; ++i)
            if (bits[i]) v |= static_cast<uint8_t>(1 << i);
        return v;
    }
    static BoardIo Failed() { return BoardIo::Failed(modbus_strerror(errno)); }

    modbus_t* ctx_;
    ModbusOptions m_;
};

// Sets the unit and the time limits, connects and hands the context to a board; null with the
// error when any step fails. A lost connection is not mended by libmodbus: the board set
// reopens the board on its own schedule.
std::unique_ptr<BoardLink> Connect(modbus_t* ctx, const ModbusOptions& m, const BoardOpening& o,
                                   std::string& error) {
    if (!ctx) {
        error = modbus_strerror(errno);
        return nullptr;
    }
    const int ms = o.timeoutMs;
    modbus_set_error_recovery(ctx, MODBUS_ERROR_RECOVERY_NONE);
    modbus_set_response_timeout(ctx, 0, static_cast<uint32_t>(ms) * 1000);
    modbus_set_byte_timeout(ctx, 0, static_cast<uint32_t>(ms / 2) * 1000);
    if (modbus_set_slave(ctx, static_cast<int>(m.unit)) != 0 || modbus_connect(ctx) != 0) {
        error = modbus_strerror(errno);
        modbus_free(ctx);
        return nullptr;
    }
    return std::make_unique<ModbusBoard>(ctx, m);
}

// "HOST:PORT", the port 502 when left out.
bool SplitHostPort(const std::string& location, std::string& host, long& port) {
    const auto colon = location.rfind(':');
    host = location.substr(0, colon);
    port = 502;
    if (colon != std::string::npos && !ParseWholeNumber(location.substr(colon + 1), 1, 65535, port))
        return false;
    return !host.empty();
}

std::string CheckTcp(const BoardConnection& c) {
    std::string error = UnknownOption(c, {"unit", "coil", "input", "relays", "inputs"});
    if (!error.empty()) return error;
    std::string host;
    long port = 0;
    if (!SplitHostPort(c.location, host, port))
        return "\"" + c.location + "\" is not HOST:PORT (as in 192.168.1.20:502)";
    ReadModbusOptions(c, error);
    return error;
}

std::unique_ptr<BoardLink> OpenTcp(const BoardConnection& c, const BoardOpening& o,
                                   std::string& error) {
    const ModbusOptions m = ReadModbusOptions(c, error);
    std::string host;
    long port = 0;
    SplitHostPort(c.location, host, port);
    return Connect(modbus_new_tcp(host.c_str(), static_cast<int>(port)), m, o, error);
}

std::string CheckRtu(const BoardConnection& c) {
    std::string error =
        UnknownOption(c, {"baud", "parity", "unit", "coil", "input", "relays", "inputs"});
    if (!error.empty()) return error;
    if (c.location.empty() || c.location[0] != '/')
        return "\"" + c.location + "\" is not a device path (as in modbus-rtu:///dev/ttyUSB0)";
    const auto parity = c.options.find("parity");
    if (parity != c.options.end() && parity->second != "N" && parity->second != "E" &&
        parity->second != "O")
        return "the option parity=" + parity->second + " is not N, E or O";
    NumberOption(c, "baud", 9600, 300, 1000000, error);
    ReadModbusOptions(c, error);
    return error;
}

std::unique_ptr<BoardLink> OpenRtu(const BoardConnection& c, const BoardOpening& o,
                                   std::string& error) {
    const ModbusOptions m = ReadModbusOptions(c, error);
    const long baud = NumberOption(c, "baud", 9600, 300, 1000000, error);
    const auto parity = c.options.find("parity");
    const char p = parity == c.options.end() ? 'N' : parity->second[0];
    return Connect(modbus_new_rtu(c.location.c_str(), static_cast<int>(baud), p, 8, 1), m, o,
                   error);
}

// A Modbus TCP module cannot be found without scanning a network, which is not ours to scan.
std::vector<FoundBoard> ListTcp() {
    return {};
}

std::vector<FoundBoard> ListRtu() {
    std::vector<FoundBoard> found;
    for (const std::string& dev : UsbSerialDevices())
        found.push_back({"modbus-rtu://" + dev + "?baud=9600&unit=1",
                         "serial port " + dev + " (a Modbus RTU module, if one is there)"});
    return found;
}

}  // namespace

const BoardDriver ModbusTcpBoardDriver{"modbus-tcp", false, CheckTcp, OpenTcp, ListTcp};
const BoardDriver ModbusRtuBoardDriver{"modbus-rtu", false, CheckRtu, OpenRtu, ListRtu};

}  // namespace vantrellion
