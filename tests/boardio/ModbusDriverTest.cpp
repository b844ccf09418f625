// The Modbus drivers against libmodbus's own server side: TCP on 127.0.0.1, RTU over a
// pseudo-terminal pair. And the board set's handling of a module that goes away and returns.
#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "boardio/BoardSet.h"
#include "boardio/BoardStatusDisplay.h"
#include "boardio/PortAccess.h"
#include "boardio/drivers/Drivers.h"
#include "support/Fakes.h"
#include "support/ModbusTestServer.h"
#include "support/TempDir.h"

namespace vantrellion {
namespace {

using test::ModbusTestServer;

std::unique_ptr<BoardLink> Open(const BoardDriver& d, const std::string& text, std::string& error) {
    std::string parseError;
    const BoardConnection c = ParseBoardConnection(text, parseError);
    EXPECT_EQ(parseError + d.check(c), "") << text;
    BoardOpening o;
    return d.open(c, o, error);
}

std::string Url(const ModbusTestServer& m, const std::string& options) {
    return "modbus-tcp://127.0.0.1:" + std::to_string(m.Port()) + options;
}

TEST(ModbusTcp, WritesCoilsAndReadsCoilsAndInputsAtTheirAddresses) {
    ModbusTestServer server;
    struct Case {
        std::string options;
        int coil, input;
    };
    for (const Case& c : {Case{"?unit=1", 0, 0}, Case{"?unit=1&coil=4&input=8", 4, 8}}) {
        std::string error;
        auto board = Open(ModbusTcpBoardDriver, Url(server, c.options), error);
        ASSERT_TRUE(board) << error;
        ASSERT_TRUE(board->WriteOutputs(0xA5).ok);
        EXPECT_EQ(server.Coils(c.coil), 0xA5) << c.options;
        EXPECT_EQ(board->ReadOutputs().value, 0xA5);
        server.SetInputs(0x3C, c.input);
        EXPECT_EQ(board->ReadInputs().value, 0x3C) << c.options;
        board->WriteOutputs(0);
    }
}

TEST(ModbusTcp, AUnitThatAnswersWithAnExceptionIsAnErrorNamingIt) {
    ModbusTestServer server;
    std::string error;
    auto board = Open(ModbusTcpBoardDriver, Url(server, "?unit=7"), error);
    ASSERT_TRUE(board) << error;
    const BoardIo r = board->ReadOutputs();
    EXPECT_FALSE(r.ok);
    EXPECT_NE(r.error.find("Illegal data address"), std::string::npos) << r.error;
    EXPECT_FALSE(board->WriteOutputs(1).ok);
}

TEST(ModbusTcp, NothingListeningFailsWithinTheTimeLimit) {
    int port;
    {
        ModbusTestServer server;
        port = server.Port();
    }
    std::string error;
    const auto start = std::chrono::steady_clock::now();
    auto board = Open(ModbusTcpBoardDriver,
                      "modbus-tcp://127.0.0.1:" + std::to_string(port) + "?unit=1", error);
    EXPECT_FALSE(board);
    EXPECT_NE(error, "");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200));
}

// An RTU module on the master side of a pseudo-terminal pair: libmodbus's RTU server reading
// and answering on the master, the driver opening the slave's path.
TEST(ModbusRtu, WritesAndReadsOverASerialLine) {
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(master, 0);
    ASSERT_EQ(::grantpt(master) | ::unlockpt(master), 0);
    const std::string slave = ::ptsname(master);
    modbus_mapping_t* map = modbus_mapping_new(16, 16, 0, 0);
    modbus_set_bits_from_byte(map->tab_input_bits, 2, 0x5A);
    std::atomic<bool> stop{false};
    std::thread server([&] {
        modbus_t* ctx = modbus_new_rtu("/dev/null", 9600, 'N', 8, 1);
        modbus_set_slave(ctx, 3);
        modbus_set_socket(ctx, master);
        uint8_t query[MODBUS_RTU_MAX_ADU_LENGTH];
        while (!stop) {
            pollfd p{master, POLLIN, 0};
            if (::poll(&p, 1, 20) <= 0) continue;
            const int n = modbus_receive(ctx, query);
            if (n > 0) modbus_reply(ctx, query, n, map);
        }
        modbus_free(ctx);
    });
    std::string error;
    auto board = Open(ModbusRtuBoardDriver,
                      "modbus-rtu://" + slave + "?baud=9600&unit=3&coil=1&input=2", error);
    ASSERT_TRUE(board) << error;
    EXPECT_TRUE(board->WriteOutputs(0x81).ok);
    EXPECT_EQ(modbus_get_byte_from_bits(map->tab_bits, 1, 8), 0x81);
    EXPECT_EQ(board->ReadOutputs().value, 0x81);
    EXPECT_EQ(board->ReadInputs().value, 0x5A);
    board->Close();
    stop = true;
    server.join();
    ::close(master);
    modbus_mapping_free(map);
}

// The board set in front of a Modbus module, driven as the tick drives a board.
struct ModbusBoardFixture : ::testing::Test {
    test::TempDir dir;
    test::TestSystem t;
    BoardSet boards;
    ModbusTestServer server;

    void SetUp() override {
        t.s.platform.boards = &boards;
        t.mod().RunNoBoards = 0;
        t.mod().LoggingOnOff = -1;
        t.mod().LogFilePath = dir.Path();
        ASSERT_EQ(boards.SetConnection(0, Url(server, "?unit=1")), "");
    }
    // The tick's part: the relays changed, then the read of outputs and inputs.
    uint8_t Tick(std::initializer_list<std::pair<int, bool>> changes = {}) {
        for (auto [relay, on] : changes)
            on ? SetRelayOn(t.s, 0, relay) : SetRelayOff(t.s, 0, relay);
        const uint8_t out = ReadRelayPorts(t.s)[0];
        ReadInputPorts(t.s);
        t.clock.Advance(1);
        return out;
    }
    std::string Log() {
        std::string all;
        for (const auto& f : std::filesystem::directory_iterator(dir.Path())) {
            std::ifstream in(f.path());
            all += std::string(std::istreambuf_iterator<char>(in), {});
        }
        return all;
    }
    static int Lines(const std::string& text) {
        return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
    }
};

TEST_F(ModbusBoardFixture, OutputsGoOutInOneWritePerTickAndOnlyWhenTheyChange) {
    EXPECT_EQ(Tick({{0, true}, {3, true}, {5, false}}), 0x09);
    EXPECT_EQ(server.Coils(), 0x09);
    EXPECT_EQ(server.CoilWrites(), 1);
    Tick({{0, true}, {3, true}});  // wanted as it stands: nothing to write
    EXPECT_EQ(server.CoilWrites(), 1);
    Tick({{3, false}});
    EXPECT_EQ(server.Coils(), 0x01);
    EXPECT_EQ(server.CoilWrites(), 2);
    server.SetInputs(0x81);
    EXPECT_EQ(ReadInputPorts(t.s)[0], 0x81);
}

TEST_F(ModbusBoardFixture, AModuleThatGoesAwayIsLoggedOnceRetriedEveryFiveSecondsAndPutRight) {
    Tick({{1, true}});
    ASSERT_EQ(server.Coils(), 0x02);
    server.Stop();
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(Tick({{4, i >= 3}}), i >= 3 ? 0x12 : 0x02) << i;  // the wanted outputs stand
    EXPECT_TRUE(boards.NoContact(0));
    EXPECT_EQ(boards.Status(t.s, 0), "no contact");
    BoardStatusDisplay shown(t.display, t.s, boards);
    shown.SetOnOffLight(3, test::kRelayON);
    shown.SetStateDisplayCaption(0, "- 2 - - - - - -");
    EXPECT_EQ(t.display.light[3], NoContactColor);
    EXPECT_EQ(t.display.stateCaption[0], "no contact: - 2 - - - - - -");
    const std::string log = Log();
    EXPECT_EQ(Lines(log), 1) << log;
    EXPECT_NE(log.find("Board 1 no contact: modbus-tcp://127.0.0.1:"), std::string::npos) << log;

    server.Start();
    const int connectionsBefore = server.Connections();
    int ticks = 0;
    while (server.Coils() != 0x12 && ticks < 10) {
        Tick({{4, true}});
        ++ticks;
    }
    EXPECT_EQ(server.Coils(), 0x12);
    EXPECT_LE(ticks, 6);
    EXPECT_EQ(server.Connections() - connectionsBefore, 1);
    EXPECT_FALSE(boards.NoContact(0));
    EXPECT_EQ(Lines(Log()), 2);
    EXPECT_NE(Log().find("Board 1 reconnected:"), std::string::npos);
}

// A module that takes the connection but never answers (a listening socket that nobody serves)
// holds a tick no longer than the time limit, and is then a board without contact.
TEST_F(ModbusBoardFixture, AModuleThatNeverAnswersHoldsTheTickAtMost200Ms) {
    const int silent = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t len = sizeof a;
    ASSERT_EQ(::bind(silent, reinterpret_cast<sockaddr*>(&a), len) | ::listen(silent, 4), 0);
    ::getsockname(silent, reinterpret_cast<sockaddr*>(&a), &len);
    boards.SetConnection(0, "modbus-tcp://127.0.0.1:" + std::to_string(ntohs(a.sin_port)));
    for (int tick = 0; tick < 7; ++tick) {
        const auto start = std::chrono::steady_clock::now();
        Tick({{0, true}});
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200));
    }
    EXPECT_TRUE(boards.NoContact(0));
    EXPECT_EQ(Lines(Log()), 1) << Log();
    ::close(silent);
}

}  // namespace
}  // namespace vantrellion
