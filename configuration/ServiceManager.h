// The access layer to the service manager: systemctl and loginctl run through it, so that the
// commands can be tested without touching the real systemd.
#pragma once

#include <string>
#include <vector>

namespace vantrellion {

class ServiceManager {
  public:
    virtual ~ServiceManager() = default;
    // Runs the command (its program is looked up in PATH) and waits for it. Its exit status,
    // or -1 when it could not be run; its output and error output in output.
    virtual int Run(const std::vector<std::string>& command, std::string& output) = 0;
};

// The real one: a child process.
class SystemServiceManager : public ServiceManager {
  public:
    int Run(const std::vector<std::string>& command, std::string& output) override;
};

// The command as a line for a person to type: the words joined by blanks.
std::string CommandLineText(const std::vector<std::string>& command);

}  // namespace vantrellion
