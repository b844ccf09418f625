// vantrelliond: runs the schedule of the machine directory without a desktop, under a service
// manager such as systemd.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "core/FatalError.h"
#include "service/Service.h"
#include "service/ServiceConsole.h"
#include "service/ServiceLoop.h"

int main(int argc, char** argv) {
    using namespace vantrellion;
    std::string error;
    const auto options =
        ParseServiceOptions(std::vector<std::string>(argv + 1, argv + argc), error);
    if (!options) {
        ServiceMessage(PriorityError, error);
        std::fputs(ServiceUsage().c_str(), stderr);
        return 2;
    }
    if (options->Help) {
        std::fputs(ServiceUsage().c_str(), stdout);
        return 0;
    }
    BlockServiceSignals();
    try {
        Service service(*options);
        if (const int code = service.Start(); code != 0) return code;
        return RunServiceLoop(service);
    } catch (const FatalError& e) {
        ServiceMessage(PriorityError,
                       "Run-time error '" + std::to_string(e.Number()) + "': " + e.what());
    } catch (const std::exception& e) {
        ServiceMessage(PriorityError, std::string("Run-time error: ") + e.what());
    }
    return 1;
}
