// Connection texts, and the bytes of the GPIO, USB HID and serial relay drivers against fakes
// of what they drive (and the serial driver over a pseudo-terminal pair).
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <deque>
#include <filesystem>
#include <fstream>

#include "boardio/BoardDriver.h"
#include "boardio/BoardSet.h"
#include "boardio/BoardStatusDisplay.h"
#include "boardio/PortAccess.h"
#include "boardio/drivers/Drivers.h"
#include "boardio/drivers/Gpio.h"
#include "boardio/drivers/HidRelay.h"
#include "boardio/drivers/SerialRelay.h"
#include "support/Fakes.h"

namespace vantrellion {
namespace {

using Bytes = std::vector<uint8_t>;

TEST(BoardConnectionText, EveryFormIsAcceptedAndEachFaultIsNamed) {
    struct Case {
        std::string text, error;  // "" for a good text; otherwise a part of the message
    };
    const Case cases[] = {
        {"ports://768", ""},
        {"ports://", ""},
        {"emulated://", ""},
        {"gpio://gpiochip0?out=17,18,27,22,23,24,25,4&in=5,6,13,19,26,12,16,20&active_low=1", ""},
        {"hidrelay://", ""},
        {"hidrelay://QWERT", ""},
        {"serialrelay:///dev/ttyUSB0?relays=8", ""},
        {"modbus-tcp://192.168.1.20:502?unit=1&coil=0&input=0", ""},
        {"modbus-tcp://plc.local", ""},
        {"modbus-rtu:///dev/ttyUSB0?baud=9600&unit=1&coil=0&input=0", ""},
        {"", "empty"},
        {"768", "does not start with a kind of board"},
        {"Ports://768", "character other than"},
        {"usb://1", "\"usb\" is not known (known kinds: ports, emulated, gpio"},
        {"ports://0x300", "\"0x300\" is not a number from 1 to 32767"},
        {"ports://768?x=1", "takes no options"},
        {"emulated://1", "takes nothing after it"},
        {"gpio://gpiochip0", "neither out= nor in="},
        {"gpio://gpiochip0?out=17,x", "out=17,x is not a list"},
        {"gpio://gpiochip0?out=1,2,3,4,5,6,7,8,9", "up to 8"},
        {"gpio://?out=1", "chip is missing"},
        {"gpio://gpiochip0?out=1&active_low=yes", "active_low=yes is not a whole number from 0"},
        {"serialrelay://ttyUSB0", "is not a device path"},
        {"serialrelay:///dev/ttyUSB0?relays=9", "relays=9"},
        {"modbus-tcp://:502", "is not HOST:PORT"},
        {"modbus-tcp://host:99999", "is not HOST:PORT"},
        {"modbus-tcp://host?unit=300", "unit=300 is not a whole number from 0 to 247"},
        {"modbus-tcp://host?unit=1&unit=2", "\"unit\" is given twice"},
        {"modbus-tcp://host?unit", "\"unit\" is not of the form name=value"},
        {"modbus-tcp://host?slave=1", "\"slave\" is not known here (known: unit, coil"},
        {"modbus-rtu:///dev/ttyUSB0?parity=X", "parity=X is not N, E or O"},
    };
    for (const Case& c : cases) {
        const std::string error = CheckBoardConnection(c.text);
        if (c.error.empty())
            EXPECT_EQ(error, "") << c.text;
        else
            EXPECT_NE(error.find(c.error), std::string::npos) << c.text << " gave: " << error;
    }
}

// A missing text drives the port library at the board's addresses; a malformed one runs the
// board emulated and says so.
TEST(BoardSetConnections, MissingMeansThePortsAndMalformedMeansEmulated) {
    test::TestSystem t;
    BoardSet boards;
    t.s.platform.boards = &boards;
    t.mod().Board[0].BaseAddress = 0x310;
    EXPECT_EQ(boards.EffectiveConnection(t.s, 0), "ports://784");
    SetRelayOn(t.s, 0, 2);
    EXPECT_EQ(t.ports.bytes[0x310], 0x04);

    EXPECT_NE(boards.SetConnection(0, "modbus-tcp://?unit=1"), "");
    SetRelayOn(t.s, 0, 1);
    EXPECT_EQ(t.frm().EmulatedPort[0], 0x02);
    EXPECT_EQ(t.ports.bytes[0x310], 0x04);
    EXPECT_EQ(boards.Status(t.s, 0), "emulated: connection text not valid");

    EXPECT_EQ(boards.SetConnection(0, "ports://768"), "");
    SetRelayOn(t.s, 0, 0);
    EXPECT_EQ(t.ports.bytes[0x300], 0x01);
    EXPECT_EQ(boards.Status(t.s, 0), "");
}

class FakeHid : public HidRelayTransport {
  public:
    std::vector<Bytes> written;
    Bytes feature = Bytes(9, 0);  // as hidraw gives it: the report id first
    bool unplugged = false;
    int Write(const uint8_t* d, size_t n) override {
        if (unplugged) return -1;
        written.emplace_back(d, d + n);
        return static_cast<int>(n);
    }
    int GetFeature(uint8_t* d, size_t n) override {
        if (unplugged) return -1;
        std::copy_n(feature.begin(), std::min(n, feature.size()), d);
        return static_cast<int>(feature.size());
    }
    std::string Error() override { return "unplugged"; }
};

TEST(HidRelay, ReportsSwitchOnlyTheRelaysThatChangeOrAllAtOnce) {
    struct Case {
        uint8_t before, after;
        int count;
        bool known;
        std::vector<Bytes> reports;  // bytes 0 to 2 of each
    };
    const Case cases[] = {
        {0x00, 0x05, 8, true, {{0, 0xFF, 1}, {0, 0xFF, 3}}},
        {0x05, 0x04, 8, true, {{0, 0xFD, 1}}},
        {0x05, 0x05, 8, true, {}},
        {0x05, 0xFF, 8, true, {{0, 0xFE, 0}}},
        {0x05, 0x00, 8, true, {{0, 0xFC, 0}}},
        {0x00, 0x01, 2, false, {{0, 0xFF, 1}, {0, 0xFD, 2}}},
        {0x00, 0x01, 1, true, {{0, 0xFF, 1}}},
    };
    for (const Case& c : cases) {
        std::vector<Bytes> got;
        for (const HidReport& r : HidRelayReports(c.before, c.after, c.count, c.known)) {
            EXPECT_TRUE(std::all_of(r.begin() + 3, r.end(), [](uint8_t b) { return b == 0; }));
            got.push_back(Bytes(r.begin(), r.begin() + 3));
        }
        EXPECT_EQ(got, c.reports) << int(c.before) << "->" << int(c.after);
    }
}

TEST(HidRelay, StateByteSitsOneFurtherWhenTheReportIdComesFirst) {
    const Bytes withId = {0, 'A', 'B', 'C', 'D', 'E', 0, 0, 0x06};
    const Bytes without(withId.begin() + 1, withId.end());
    for (const Bytes& report : {withId, without}) {
        uint8_t bits = 0;
        std::string serial;
        ASSERT_TRUE(HidRelayState(report.data(), static_cast<int>(report.size()), bits, serial));
        EXPECT_EQ(bits, 0x06);
        EXPECT_EQ(serial, "ABCDE");
    }
    uint8_t bits;
    std::string serial;
    EXPECT_FALSE(HidRelayState(withId.data(), 7, bits, serial));
}

TEST(HidRelay, BoardReadsTheCardStateHasNoInputsAndReportsAnUnpluggedCard) {
    auto hid = std::make_unique<FakeHid>();
    FakeHid& fake = *hid;
    fake.feature[8] = 0x0B;  // relays 1, 2 and 4 on, of a card with 2: only 1 and 2 count
    auto board = MakeHidRelayBoard(std::move(hid), 2);
    EXPECT_EQ(board->ReadOutputs().value, 0x03);
    EXPECT_FALSE(board->HasInputs());
    EXPECT_EQ(board->ReadInputs().value, 0);
    ASSERT_TRUE(board->WriteOutputs(0x02).ok);
    EXPECT_EQ(fake.written, (std::vector<Bytes>{{0, 0xFD, 1, 0, 0, 0, 0, 0, 0}}));
    fake.unplugged = true;
    EXPECT_EQ(board->ReadOutputs().error, "unplugged");
    EXPECT_FALSE(board->WriteOutputs(0).ok);
}

class FakeLines : public GpioLines {
  public:
    std::vector<unsigned> outputs, inputs;
    std::vector<int> out, in;
    std::deque<std::vector<int>> history;  // every level set, the request's first
    bool fail = false;
    bool* released = nullptr;  // set at Release; outlives the lines, which Close deletes
    bool Request(const std::vector<unsigned>& o, const std::vector<int>& levels,
                 const std::vector<unsigned>& i, std::string& error) override {
        if (fail) return error = "busy", false;
        outputs = o, inputs = i, out = levels, in.assign(i.size(), 0);
        history.push_back(levels);
        return true;
    }
    bool SetOutputs(const std::vector<int>& levels, std::string&) override {
        out = levels;
        history.push_back(levels);
        return true;
    }
    bool GetOutputs(std::vector<int>& levels, std::string&) override { return levels = out, true; }
    bool GetInputs(std::vector<int>& levels, std::string&) override { return levels = in, true; }
    void Release() override {
        if (released) *released = true;
    }
};

TEST(Gpio, LinesStartAtTheWantedLevelsAndActiveLowInvertsTheOutputsOnly) {
    for (bool activeLow : {false, true}) {
        auto lines = std::make_unique<FakeLines>();
        FakeLines& fake = *lines;
        bool released = false;
        fake.released = &released;
        const GpioOptions o{{17, 18, 27}, {5, 6}, activeLow};
        std::string error;
        auto board = MakeGpioBoard(std::move(lines), o, 0x05, error);
        ASSERT_TRUE(board) << error;
        const std::vector<int> on = {1, 0, 1}, flipped = {0, 1, 0};
        EXPECT_EQ(fake.history, std::deque{activeLow ? flipped : on}) << "no glitch at the start";
        EXPECT_EQ(fake.outputs, (std::vector<unsigned>{17, 18, 27}));
        EXPECT_EQ(board->ReadOutputs().value, 0x05);
        board->WriteOutputs(0x02);
        EXPECT_EQ(fake.out, activeLow ? (std::vector<int>{1, 0, 1}) : (std::vector<int>{0, 1, 0}));
        fake.in = {0, 1};
        EXPECT_EQ(board->ReadInputs().value, 0x02);
        board->Close();
        EXPECT_TRUE(released);
    }
    auto busy = std::make_unique<FakeLines>();
    busy->fail = true;
    std::string error;
    EXPECT_FALSE(MakeGpioBoard(std::move(busy), {{1}, {}, false}, 0, error));
    EXPECT_EQ(error, "busy");
}

// A chip of the kernel's GPIO simulator (configfs), made for the test and removed after it.
class GpioSim {
  public:
    static constexpr const char* kRoot = "/sys/kernel/config/gpio-sim";
    GpioSim() : dir_(std::string(kRoot) + "/vantrellion-test-" + std::to_string(::getpid())) {}
    ~GpioSim() {
        Put(dir_ + "/live", "0");
        ::rmdir((dir_ + "/bank0").c_str());
        ::rmdir(dir_.c_str());
    }
    bool Make() {
        if (::mkdir(dir_.c_str(), 0755) != 0 || ::mkdir((dir_ + "/bank0").c_str(), 0755) != 0)
            return false;
        if (!Put(dir_ + "/bank0/num_lines", "8") || !Put(dir_ + "/live", "1")) return false;
        chip_ = Get(dir_ + "/bank0/chip_name");
        device_ = Get(dir_ + "/dev_name");
        return !chip_.empty() && !device_.empty();
    }
    const std::string& Chip() const { return chip_; }
    std::string Line(int offset, const char* what) const {
        return "/sys/devices/platform/" + device_ + "/" + chip_ + "/sim_gpio" +
               std::to_string(offset) + "/" + what;
    }
    static bool Put(const std::string& path, const std::string& text) {
        std::ofstream f(path);
        f << text;
        return static_cast<bool>(f.flush());
    }
    static std::string Get(const std::string& path) {
        std::ifstream f(path);
        std::string s;
        f >> s;
        return s;
    }

  private:
    std::string dir_, chip_, device_;
};

TEST(Gpio, AgainstTheKernelsSimulator) {
    if (!std::filesystem::exists(GpioSim::kRoot))
        GTEST_SKIP() << "the kernel's gpio-sim is not available here (no " << GpioSim::kRoot
                     << "; modprobe gpio-sim with configfs mounted, as root)";
    GpioSim sim;
    if (!sim.Make()) GTEST_SKIP() << "a gpio-sim chip cannot be made here (needs root)";
    std::string error, parseError;
    const BoardConnection c =
        ParseBoardConnection("gpio://" + sim.Chip() + "?out=0,1,2&in=5,6&active_low=1", parseError);
    BoardOpening o;
    o.wantedOutputs = 0x01;
    auto board = GpioBoardDriver.open(c, o, error);
    ASSERT_TRUE(board) << error;
    EXPECT_EQ(GpioSim::Get(sim.Line(0, "value")), "0");  // relay 1 on: its line low
    EXPECT_EQ(GpioSim::Get(sim.Line(1, "value")), "1");
    ASSERT_TRUE(board->WriteOutputs(0x06).ok);
    EXPECT_EQ(GpioSim::Get(sim.Line(0, "value")), "1");
    EXPECT_EQ(GpioSim::Get(sim.Line(2, "value")), "0");
    EXPECT_EQ(board->ReadOutputs().value, 0x06);
    GpioSim::Put(sim.Line(6, "pull"), "pull-up");
    GpioSim::Put(sim.Line(5, "pull"), "pull-down");
    EXPECT_EQ(board->ReadInputs().value, 0x02);
    board->Close();
}

TEST(SerialRelay, FramesCarryTheRelayTheStateAndTheChecksum) {
    EXPECT_EQ(SerialRelayFrame(1, true), (Bytes{0xA0, 0x01, 0x01, 0xA2}));
    EXPECT_EQ(SerialRelayFrame(8, false), (Bytes{0xA0, 0x08, 0x00, 0xA8}));
    EXPECT_EQ(SerialRelayFrames(0x01, 0x04, 8, false), (Bytes{0xA0, 1, 0, 0xA1, 0xA0, 3, 1, 0xA4}));
    EXPECT_EQ(SerialRelayFrames(0x00, 0x01, 2, true), (Bytes{0xA0, 1, 1, 0xA2, 0xA0, 2, 0, 0xA2}));
    EXPECT_TRUE(SerialRelayFrames(0x81, 0x81, 8, false).empty());
}

// Everything the master side of the pair has received within a short wait.
Bytes Drain(int master) {
    Bytes got;
    uint8_t buf[256];
    pollfd p{master, POLLIN, 0};
    while (::poll(&p, 1, 100) > 0) {
        const ssize_t n = ::read(master, buf, sizeof buf);
        if (n <= 0) break;
        got.insert(got.end(), buf, buf + n);
    }
    return got;
}

TEST(SerialRelay, ModuleOverAPseudoTerminal) {
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(master, 0);
    ASSERT_EQ(::grantpt(master) | ::unlockpt(master), 0);
    std::string error;
    std::string parseError;
    const BoardConnection c = ParseBoardConnection(
        std::string("serialrelay://") + ::ptsname(master) + "?relays=2", parseError);
    auto board = SerialRelayBoardDriver.open(c, BoardOpening{}, error);
    ASSERT_TRUE(board) << error;
    ASSERT_TRUE(board->WriteOutputs(0x01).ok);  // first write: every relay, the state unknown
    EXPECT_EQ(Drain(master), (Bytes{0xA0, 1, 1, 0xA2, 0xA0, 2, 0, 0xA2}));
    ASSERT_TRUE(board->WriteOutputs(0x03).ok);
    EXPECT_EQ(Drain(master), (Bytes{0xA0, 2, 1, 0xA3}));
    EXPECT_EQ(board->ReadOutputs().value, 0x03);
    EXPECT_FALSE(board->HasInputs());
    board->Close();
    ::close(master);

    EXPECT_FALSE(SerialRelayBoardDriver.open(
        ParseBoardConnection("serialrelay:///nonexistent/tty", parseError), {}, error));
    EXPECT_NE(error.find("/nonexistent/tty"), std::string::npos);
}

// Through the board set: the tick's relays go out as frames, and a module without inputs says
// so in the input text.
TEST(SerialRelay, ABoardWithoutInputsSaysSo) {
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_EQ(::grantpt(master) | ::unlockpt(master), 0);
    test::TestSystem t;
    BoardSet boards;
    t.s.platform.boards = &boards;
    ASSERT_EQ(
        boards.SetConnection(0, std::string("serialrelay://") + ::ptsname(master) + "?relays=1"),
        "");
    SetRelayOn(t.s, 0, 0);
    EXPECT_EQ(ReadRelayPorts(t.s)[0], 0x01);
    EXPECT_EQ(ReadInputPorts(t.s)[0], 0);
    EXPECT_EQ(Drain(master), (Bytes{0xA0, 1, 1, 0xA2}));
    BoardStatusDisplay shown(t.display, t.s, boards);
    shown.SetInputDisplayCaption(0, "- - - - - - - -");
    EXPECT_EQ(t.display.inputCaption[0], "no inputs");
    boards.CloseAll();
    ::close(master);
}

}  // namespace
}  // namespace vantrellion
