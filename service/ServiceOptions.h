// The command line of the service:
//   vantrelliond [--run FILE.run] [--data-dir DIR] [--log-dir DIR] [--board N=CONNECTION]...
//                [--mqtt URL] [--mqtt-control]
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantrellion {

struct ServiceOptions {
    std::string RunFile;           // "" : the restart file, else the store's data file
    std::string MachineDirectory;  // with its trailing "/"; "" : the user's machine directory
    std::string LogDirectory;      // with its trailing "/"; "" : the configured log folder
    // Board number (1 to the last board) and connection text, for this run only.
    std::vector<std::pair<int, std::string>> Boards;
    // The broker of the remote status ("" : the store's MqttUrl), and remote control on for
    // this run whatever the store's MqttRemoteControl says.
    std::string MqttUrl;
    bool MqttControl = false;
    bool Help = false;
};

// The options, or nullopt with the problem in error.
std::optional<ServiceOptions> ParseServiceOptions(const std::vector<std::string>& args,
                                                  std::string& error);

std::string ServiceUsage();

}  // namespace vantrellion
