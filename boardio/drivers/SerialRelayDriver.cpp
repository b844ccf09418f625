#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>

#include "boardio/drivers/Drivers.h"
#include "boardio/drivers/SerialDevices.h"
#include "boardio/drivers/SerialRelay.h"

namespace vantrellion {

std::vector<uint8_t> SerialRelayFrame(int relay, bool on) {
    const uint8_t n = static_cast<uint8_t>(relay), st = on ? 1 : 0;
    return {0xA0, n, st, static_cast<uint8_t>(0xA0 + n + st)};
}

std::vector<uint8_t> SerialRelayFrames(uint8_t before, uint8_t after, int count, bool all) {
    std::vector<uint8_t> bytes;
    for (int r = 0; r < count; ++r) {
        const bool on = (after >> r) & 1;
        if (!all && on == static_cast<bool>((before >> r) & 1)) continue;
        const auto f = SerialRelayFrame(r + 1, on);
        bytes.insert(bytes.end(), f.begin(), f.end());
    }
    return bytes;
}

namespace {

class SerialRelayBoard : public BoardLink {
  public:
    SerialRelayBoard(int fd, int relays, int timeoutMs)
        : fd_(fd), relays_(relays), timeoutMs_(timeoutMs) {}
    ~SerialRelayBoard() override { Close(); }

    BoardIo WriteOutputs(uint8_t bits) override {
        const auto bytes = SerialRelayFrames(last_, bits, relays_, !known_);
        std::string error;
        if (!WriteAll(bytes, error)) {
            known_ = false;
            return BoardIo::Failed(error);
        }
        last_ = bits;
        known_ = true;
        return {};
    }
    BoardIo ReadOutputs() override { return BoardIo::Value(last_); }
    BoardIo ReadInputs() override { return BoardIo::Value(0); }
    bool HasInputs() const override { return false; }
    void Close() override {
        if (fd_ >= 0) ::close(fd_);
        fd_ = -1;
    }

  private:
    // Writes every byte within the time limit; a port that takes no more (a module unplugged,
    // a line held up) is an error, not a wait.
    bool WriteAll(const std::vector<uint8_t>& bytes, std::string& error) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs_);
        size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t n = ::write(fd_, bytes.data() + done, bytes.size() - done);
            if (n > 0) {
                done += static_cast<size_t>(n);
                continue;
            }
            if (n < 0 && errno != EAGAIN && errno != EINTR) {
                error = std::strerror(errno);
                return false;
            }
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                end - std::chrono::steady_clock::now());
            pollfd p{fd_, POLLOUT, 0};
            if (left.count() <= 0 || ::poll(&p, 1, static_cast<int>(left.count())) <= 0 ||
                (p.revents & (POLLERR | POLLHUP))) {
                error = "the serial port takes no more bytes";
                return false;
            }
        }
        return true;
    }

    int fd_;
    int relays_;
    int timeoutMs_;
    uint8_t last_ = 0;
    bool known_ = false;  // last_ is what the module holds
};

std::string CheckSerialRelay(const BoardConnection& c) {
    std::string error = UnknownOption(c, {"relays"});
    if (!error.empty()) return error;
    if (c.location.empty() || c.location[0] != '/')
        return "\"" + c.location + "\" is not a device path (as in serialrelay:///dev/ttyUSB0)";
    NumberOption(c, "relays", 8, 1, 8, error);
    return error;
}

std::unique_ptr<BoardLink> OpenSerialRelay(const BoardConnection& c, const BoardOpening& o,
                                           std::string& error) {
    const long relays = NumberOption(c, "relays", 8, 1, 8, error);
    const int fd = ::open(c.location.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        error = c.location + ": " + std::strerror(errno);
        return nullptr;
    }
    termios t{};
    if (::tcgetattr(fd, &t) != 0) {
        error = c.location + ": " + std::strerror(errno);
        ::close(fd);
        return nullptr;
    }
    ::cfmakeraw(&t);
    t.c_cflag |= CLOCAL | CREAD;
    t.c_cflag &= ~(CSTOPB | CRTSCTS);
    ::cfsetispeed(&t, B9600);
    ::cfsetospeed(&t, B9600);
    ::tcsetattr(fd, TCSANOW, &t);
    return std::make_unique<SerialRelayBoard>(fd, static_cast<int>(relays), o.timeoutMs);
}

std::vector<FoundBoard> ListSerialRelays() {
    std::vector<FoundBoard> found;
    for (const std::string& dev : UsbSerialDevices())
        found.push_back({"serialrelay://" + dev + "?relays=8",
                         "serial port " + dev + " (a serial relay module, if one is there)"});
    return found;
}

}  // namespace

const BoardDriver SerialRelayBoardDriver{"serialrelay", false, CheckSerialRelay, OpenSerialRelay,
                                         ListSerialRelays};

std::vector<std::string> UsbSerialDevices() {
    std::vector<std::string> found;
    for (const char* pattern : {"ttyUSB", "ttyACM"}) {
        for (int i = 0; i < 16; ++i) {
            const std::string dev = "/dev/" + std::string(pattern) + std::to_string(i);
            if (::access(dev.c_str(), F_OK) == 0) found.push_back(dev);
        }
    }
    return found;
}

}  // namespace vantrellion
