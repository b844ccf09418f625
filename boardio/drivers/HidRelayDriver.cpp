#include <hidapi/hidapi.h>

#include <cwchar>

#include "boardio/drivers/Drivers.h"
#include "boardio/drivers/HidRelay.h"

namespace vantrellion {

std::vector<HidReport> HidRelayReports(uint8_t before, uint8_t after, int count, bool known) {
    const unsigned all = (1u << count) - 1;
    const unsigned want = after & all, had = before & all;
    if (known && had == want) return {};
    std::vector<HidReport> reports;
    if (want == all && count > 1) {
        reports.push_back({0x00, 0xFE});
    } else if (want == 0 && count > 1) {
        reports.push_back({0x00, 0xFC});
    } else {
        for (int r = 0; r < count; ++r) {
            const unsigned on = (want >> r) & 1u;
            if (known && on == ((had >> r) & 1u)) continue;
            reports.push_back(
                {0x00, static_cast<uint8_t>(on ? 0xFF : 0xFD), static_cast<uint8_t>(r + 1)});
        }
    }
    return reports;
}

bool HidRelayState(const uint8_t* report, int len, uint8_t& bits, std::string& serial) {
    if (len < 8) return false;
    const int shift = len >= 9 ? 1 : 0;  // the report id in front
    serial.clear();
    for (int i = 0; i < 5 && report[shift + i] != 0; ++i)
        serial += static_cast<char>(report[shift + i]);
    bits = report[shift + 7];
    return true;
}

namespace {

class HidRelayBoard : public BoardLink {
  public:
    HidRelayBoard(std::unique_ptr<HidRelayTransport> t, int relays)
        : t_(std::move(t)), relays_(relays) {}

    BoardIo WriteOutputs(uint8_t bits) override {
        const BoardIo now = ReadOutputs();
        if (!now.ok) return now;
        for (const HidReport& r : HidRelayReports(now.value, bits, relays_, true))
            if (t_->Write(r.data(), r.size()) < 0) return BoardIo::Failed(t_->Error());
        return {};
    }
    BoardIo ReadOutputs() override {
        uint8_t report[9] = {};
        const int n = t_->GetFeature(report, sizeof report);
        uint8_t bits = 0;
        std::string serial;
        if (n < 0) return BoardIo::Failed(t_->Error());
        if (!HidRelayState(report, n, bits, serial))
            return BoardIo::Failed("the card's state report is too short");
        return BoardIo::Value(static_cast<uint8_t>(bits & ((1 << relays_) - 1)));
    }
    // These cards have no inputs.
    BoardIo ReadInputs() override { return BoardIo::Value(0); }
    bool HasInputs() const override { return false; }
    void Close() override { t_.reset(); }

  private:
    std::unique_ptr<HidRelayTransport> t_;
    int relays_;
};

class HidapiTransport : public HidRelayTransport {
  public:
    explicit HidapiTransport(hid_device* d) : d_(d) {}
    ~HidapiTransport() override { hid_close(d_); }
    int Write(const uint8_t* data, size_t length) override { return hid_write(d_, data, length); }
    int GetFeature(uint8_t* data, size_t length) override {
        data[0] = 0;
        return hid_get_feature_report(d_, data, length);
    }
    std::string Error() override {
        const wchar_t* e = hid_error(d_);
        if (!e) return "the card does not answer";
        std::string text;
        for (; *e; ++e)
            text += *e < 128 ? static_cast<char>(*e) : '?';
        return text;
    }

  private:
    hid_device* d_;
};

constexpr unsigned short kVendor = 0x16c0, kProduct = 0x05df;

struct Card {
    std::string path, serial;
    int relays = 0;
};

// The relay count from the product string "USBRelayN".
int RelaysOf(const wchar_t* product) {
    if (!product || std::wcsncmp(product, L"USBRelay", 8) != 0) return 0;
    const wchar_t n = product[8];
    return n >= L'1' && n <= L'8' && product[9] == 0 ? n - L'0' : 0;
}

std::vector<Card> FindCards() {
    std::vector<Card> cards;
    if (hid_init() != 0) return cards;
    hid_device_info* all = hid_enumerate(kVendor, kProduct);
    for (hid_device_info* i = all; i; i = i->next) {
        const int relays = RelaysOf(i->product_string);
        if (relays == 0) continue;
        Card c{i->path, "", relays};
        // The serial number lives in the state report, not in the USB descriptor.
        if (hid_device* d = hid_open_path(i->path)) {
            uint8_t report[9] = {};
            uint8_t bits = 0;
            const int n = hid_get_feature_report(d, report, sizeof report);
            if (n > 0) HidRelayState(report, n, bits, c.serial);
            hid_close(d);
        }
        cards.push_back(c);
    }
    hid_free_enumeration(all);
    return cards;
}

std::string CheckHidRelay(const BoardConnection& c) {
    if (!c.options.empty()) return "hidrelay:// takes no options";
    if (c.location.size() > 5) return "the serial number \"" + c.location + "\" is longer than 5";
    return "";
}

std::unique_ptr<BoardLink> OpenHidRelay(const BoardConnection& c, const BoardOpening&,
                                        std::string& error) {
    for (const Card& card : FindCards()) {
        if (!c.location.empty() && card.serial != c.location) continue;
        hid_device* d = hid_open_path(card.path.c_str());
        if (!d) {
            error = card.path + ": cannot be opened (permissions of /dev/hidraw*?)";
            return nullptr;
        }
        return MakeHidRelayBoard(std::make_unique<HidapiTransport>(d), card.relays);
    }
    error = c.location.empty() ? "no USB relay card is plugged in"
                               : "no USB relay card with serial " + c.location + " is plugged in";
    return nullptr;
}

std::vector<FoundBoard> ListHidRelays() {
    std::vector<FoundBoard> found;
    for (const Card& c : FindCards())
        found.push_back({"hidrelay://" + c.serial, "USB relay card, " + std::to_string(c.relays) +
                                                       " relays, serial " + c.serial});
    return found;
}

}  // namespace

std::unique_ptr<BoardLink> MakeHidRelayBoard(std::unique_ptr<HidRelayTransport> t, int relays) {
    return std::make_unique<HidRelayBoard>(std::move(t), relays);
}

const BoardDriver HidRelayBoardDriver{"hidrelay", false, CheckHidRelay, OpenHidRelay,
                                      ListHidRelays};

}  // namespace vantrellion
