#include "service/ServiceOptions.h"

#include <cstdlib>

#include "core/Constants.h"

namespace vantrellion {

namespace {

std::string WithSlash(std::string dir) {
    if (!dir.empty() && dir.back() != '/') dir += '/';
    return dir;
}

// "N=CONNECTION" with N a board number from 1.
bool ParseBoard(const std::string& text, std::pair<int, std::string>& board) {
    const size_t eq = text.find('=');
    if (eq == 0 || eq == std::string::npos) return false;
    const std::string number = text.substr(0, eq);
    if (number.find_first_not_of("0123456789") != std::string::npos || number.size() > 3)
        return false;
    board = {std::atoi(number.c_str()), text.substr(eq + 1)};
    return board.first >= 1 && board.first <= LastBoard + 1;
}

}  // namespace

std::string ServiceUsage() {
    return "usage: vantrelliond [--run FILE.run] [--data-dir DIR] [--log-dir DIR] "
           "[--board N=CONNECTION]...\n"
           "                   [--mqtt mqtt://HOST[:PORT] | mqtts://HOST[:PORT]] "
           "[--mqtt-control]\n";
}

std::optional<ServiceOptions> ParseServiceOptions(const std::vector<std::string>& args,
                                                  std::string& error) {
    ServiceOptions o;
    for (size_t a = 0; a < args.size(); ++a) {
        const std::string& arg = args[a];
        if (arg == "--help" || arg == "-h") {
            o.Help = true;
            continue;
        }
        if (arg == "--mqtt-control") {
            o.MqttControl = true;
            continue;
        }
        std::string name = arg, value;
        bool inlineValue = false;
        if (const size_t eq = arg.find('='); arg.rfind("--", 0) == 0 && eq != std::string::npos) {
            name = arg.substr(0, eq);
            value = arg.substr(eq + 1);
            inlineValue = true;
        }
        if (name != "--run" && name != "--data-dir" && name != "--log-dir" && name != "--board" &&
            name != "--mqtt") {
            error = "unknown option \"" + arg + "\"";
            return std::nullopt;
        }
        if (!inlineValue) {
            if (a + 1 >= args.size()) {
                error = name + " needs a value";
                return std::nullopt;
            }
            value = args[++a];
        }
        if (value.empty()) {
            error = name + " needs a value";
            return std::nullopt;
        }
        if (name == "--run") {
            o.RunFile = value;
        } else if (name == "--data-dir") {
            o.MachineDirectory = WithSlash(value);
        } else if (name == "--mqtt") {
            o.MqttUrl = value;
        } else if (name == "--log-dir") {
            o.LogDirectory = WithSlash(value);
        } else {
            std::pair<int, std::string> board;
            if (!ParseBoard(value, board)) {
                error = "--board takes N=CONNECTION with N from 1 to " +
                        std::to_string(LastBoard + 1) + ", not \"" + value + "\"";
                return std::nullopt;
            }
            o.Boards.push_back(board);
        }
    }
    return o;
}

}  // namespace vantrellion
