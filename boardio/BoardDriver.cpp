#include "boardio/BoardDriver.h"

#include <cerrno>
#include <cstdlib>

#include "boardio/drivers/Drivers.h"

namespace vantrellion {

BoardConnection ParseBoardConnection(const std::string& text, std::string& error) {
    BoardConnection c;
    c.text = text;
    error.clear();
    const auto sep = text.find("://");
    if (text.empty()) {
        error = "it is empty";
        return c;
    }
    if (sep == std::string::npos || sep == 0) {
        error = "it does not start with a kind of board and \"://\", as in modbus-tcp://";
        return c;
    }
    c.scheme = text.substr(0, sep);
    for (char ch : c.scheme) {
        if (!((ch >= 'a' && ch <= 'z') || (ch >= '0' && ch <= '9') || ch == '-')) {
            error = "the kind of board \"" + c.scheme + "\" has a character other than a-z, 0-9, -";
            return c;
        }
    }
    std::string rest = text.substr(sep + 3);
    const auto q = rest.find('?');
    c.location = rest.substr(0, q);
    if (q == std::string::npos) return c;
    const std::string query = rest.substr(q + 1);
    size_t start = 0;
    while (start <= query.size()) {
        const auto amp = query.find('&', start);
        const std::string item =
            query.substr(start, amp == std::string::npos ? std::string::npos : amp - start);
        const auto eq = item.find('=');
        if (eq == std::string::npos || eq == 0) {
            error = "the option \"" + item + "\" is not of the form name=value";
            return c;
        }
        const std::string name = item.substr(0, eq);
        if (c.options.count(name)) {
            error = "the option \"" + name + "\" is given twice";
            return c;
        }
        c.options[name] = item.substr(eq + 1);
        if (amp == std::string::npos) break;
        start = amp + 1;
    }
    return c;
}

const std::vector<const BoardDriver*>& BoardDrivers() {
    static const std::vector<const BoardDriver*> all = {
        &PortsBoardDriver,       &EmulatedBoardDriver,  &GpioBoardDriver,     &HidRelayBoardDriver,
        &SerialRelayBoardDriver, &ModbusTcpBoardDriver, &ModbusRtuBoardDriver};
    return all;
}

const BoardDriver* FindBoardDriver(const std::string& scheme) {
    for (const BoardDriver* d : BoardDrivers())
        if (scheme == d->scheme) return d;
    return nullptr;
}

std::vector<FoundBoard> ListAllBoards() {
    std::vector<FoundBoard> found;
    for (const BoardDriver* d : BoardDrivers()) {
        if (!d->list) continue;
        for (FoundBoard& f : d->list())
            found.push_back(std::move(f));
    }
    return found;
}

std::string BoardListText() {
    std::string text;
    for (const FoundBoard& f : ListAllBoards())
        text += f.connection + "\t" + f.description + "\n";
    return text;
}

std::string CheckBoardConnection(const std::string& text) {
    std::string error;
    const BoardConnection c = ParseBoardConnection(text, error);
    if (!error.empty()) return error;
    const BoardDriver* d = FindBoardDriver(c.scheme);
    if (!d) {
        std::string known;
        for (const BoardDriver* k : BoardDrivers())
            known += (known.empty() ? "" : ", ") + std::string(k->scheme);
        return "the kind of board \"" + c.scheme + "\" is not known (known kinds: " + known + ")";
    }
    return d->check(c);
}

bool ParseWholeNumber(const std::string& text, long lo, long hi, long& value) {
    if (text.empty() || text.size() > 9) return false;
    for (char ch : text)
        if (ch < '0' || ch > '9') return false;
    value = std::strtol(text.c_str(), nullptr, 10);
    return value >= lo && value <= hi;
}

bool ParseNumberList(const std::string& text, long lo, long hi, std::vector<long>& values) {
    values.clear();
    size_t start = 0;
    while (true) {
        const auto comma = text.find(',', start);
        long v = 0;
        if (!ParseWholeNumber(
                text.substr(start, comma == std::string::npos ? std::string::npos : comma - start),
                lo, hi, v))
            return false;
        values.push_back(v);
        if (comma == std::string::npos) return true;
        start = comma + 1;
    }
}

}  // namespace vantrellion
