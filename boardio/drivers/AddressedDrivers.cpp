// The two drivers that work on a board's port addresses: the port library (In8255 and
// Out8255) and the emulated board in memory. They keep no state of their own: the ports, or the
// emulated bytes of the main screen, hold it. An address of 0 is no port: nothing is touched
// and reads give 0.
#include "boardio/PortAccess.h"
#include "boardio/drivers/Drivers.h"
#include "core/FatalError.h"

namespace vantrellion {

namespace {

class PortsBoard : public BoardLink {
  public:
    PortsBoard(System& s, const BoardAddresses& a) : s_(s), a_(a) {}

    BoardIo WriteOutputs(uint8_t bits) override {
        if (a_.base != 0) Write(a_.base, bits);
        return {};
    }
    BoardIo ReadOutputs() override { return BoardIo::Value(a_.base == 0 ? 0 : Read(a_.base)); }
    BoardIo ReadInputs() override { return BoardIo::Value(a_.input == 0 ? 0 : Read(a_.input)); }
    bool HasOutputs() const override { return a_.base != 0; }
    bool HasInputs() const override { return a_.input != 0; }

    // A board without a control register, or without a value for it, is left entirely alone:
    // its relays keep their state through a start until the first tick takes them over.
    // Programming the control register drops the data ports; they start from 0.
    void SetUp() override {
        if (a_.cntl == 0 || a_.config == 0) return;
        Write(a_.cntl, a_.config);
        if (a_.base != 0) Write(a_.base, 0);
        if (a_.input != 0) Write(a_.input, 0);
    }
    // One final 0 to the output port, a base of 0 like any other.
    void ClearAtExit() override { Write(a_.base, 0); }

  private:
    // A port result must fit a byte, or the program ends with an overflow.
    uint8_t Read(int16_t port) { return CheckedByte(s_.ports().In8255(port)); }
    void Write(int16_t port, int value) {
        CheckedByte(s_.ports().Out8255(port, static_cast<int16_t>(value)));
    }

    System& s_;
    BoardAddresses a_;
};

class EmulatedBoard : public BoardLink {
  public:
    EmulatedBoard(System& s, const BoardAddresses& a) : s_(s), a_(a) {}

    BoardIo WriteOutputs(uint8_t bits) override {
        if (a_.base != 0) EmulatedOutputByte(s_, a_.base) = bits;
        return {};
    }
    BoardIo ReadOutputs() override {
        return BoardIo::Value(a_.base == 0 ? 0 : EmulatedOutputByte(s_, a_.base));
    }
    BoardIo ReadInputs() override {
        return BoardIo::Value(a_.input == 0 ? 0 : EmulatedInputByte(s_, a_.input));
    }
    bool HasOutputs() const override { return a_.base != 0; }
    bool HasInputs() const override { return a_.input != 0; }
    // No real port is ever touched: whatever sits at that address is not ours.
    void ClearAtExit() override { EmulatedOutputByte(s_, a_.base) = 0; }

  private:
    System& s_;
    BoardAddresses a_;
};

std::string CheckPorts(const BoardConnection& c) {
    if (!c.options.empty()) return "ports:// takes no options";
    long base = 0;
    if (!c.location.empty() && !ParseWholeNumber(c.location, 1, 32767, base))
        return "the port address \"" + c.location + "\" is not a number from 1 to 32767";
    return "";
}

// ports://N drives the output port N; ports:// alone, the board's configured address.
std::unique_ptr<BoardLink> OpenPorts(const BoardConnection& c, const BoardOpening& o,
                                     std::string& /*error*/) {
    BoardAddresses a = o.addresses;
    long base = 0;
    if (ParseWholeNumber(c.location, 1, 32767, base)) a.base = static_cast<int16_t>(base);
    return std::make_unique<PortsBoard>(*o.system, a);
}

std::string CheckEmulated(const BoardConnection& c) {
    if (!c.options.empty() || !c.location.empty()) return "emulated:// takes nothing after it";
    return "";
}

std::unique_ptr<BoardLink> OpenEmulated(const BoardConnection&, const BoardOpening& o,
                                        std::string&) {
    return std::make_unique<EmulatedBoard>(*o.system, o.addresses);
}

// The port space is not searched: probing unknown ports is not safe on a bus.
std::vector<FoundBoard> ListPorts() {
    return {{"ports://768", "I/O card at port 768 (0x300), through the port library"}};
}

std::vector<FoundBoard> ListEmulated() {
    return {{"emulated://", "emulated board in memory"}};
}

}  // namespace

const BoardDriver PortsBoardDriver{"ports", true, CheckPorts, OpenPorts, ListPorts};
const BoardDriver EmulatedBoardDriver{"emulated", true, CheckEmulated, OpenEmulated, ListEmulated};

std::string UnknownOption(const BoardConnection& c, std::initializer_list<const char*> known) {
    for (const auto& [name, value] : c.options) {
        bool found = false;
        std::string list;
        for (const char* k : known) {
            found = found || name == k;
            list += (list.empty() ? "" : ", ") + std::string(k);
        }
        if (!found) return "the option \"" + name + "\" is not known here (known: " + list + ")";
    }
    return "";
}

long NumberOption(const BoardConnection& c, const char* name, long fallback, long lo, long hi,
                  std::string& error) {
    const auto it = c.options.find(name);
    if (it == c.options.end()) return fallback;
    long v = 0;
    if (!ParseWholeNumber(it->second, lo, hi, v)) {
        if (error.empty())
            error = "the option " + std::string(name) + "=" + it->second +
                    " is not a whole number from " + std::to_string(lo) + " to " +
                    std::to_string(hi);
        return fallback;
    }
    return v;
}

}  // namespace vantrellion
