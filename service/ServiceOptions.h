// The command line of the service:
//   vantrelliond [--run FILE.run] [--data-dir DIR] [--log-dir DIR] [--board N=CONNECTION]...
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
    bool Help = false;
};

// The options, or nullopt with the problem in error.
std::optional<ServiceOptions> ParseServiceOptions(const std::vector<std::string>& args,
                                                  std::string& error);

std::string ServiceUsage();

}  // namespace vantrellion
