// vantrelliond's program without its loop: the desktop program's core wired to a screen in
// memory, boxes that answer themselves, and the plain clock. Start, Tick, Reload and Stop are
// what the loop calls; tests call them in-process with a clock of their own.
#pragma once

#include <memory>
#include <string>

#include "configuration/ConfigurationStoreAdapter.h"
#include "configuration/StoreWindowPlaces.h"
#include "core/InstanceLock.h"
#include "core/SharedState.h"
#include "service/ServiceBoxes.h"
#include "service/ServiceNotifier.h"
#include "service/ServiceOptions.h"
#include "service/ServicePlatform.h"
#include "service/ServiceScreen.h"

namespace vantrellion {

class BoardSet;
class KeyValueStore;
class MqttBridge;

// The name the service writes into the instance lock.
inline constexpr const char* ServiceProgramName = "vantrelliond";

class Service {
  public:
    // clock and ports, when given, outlive the service; without them the system clock and the
    // board drivers' port library are used.
    explicit Service(ServiceOptions options, Clock* clock = nullptr, Ports* ports = nullptr);
    ~Service();
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    // The start: the instance lock, the store and its configuration, the board connections,
    // the remote status when a broker is named, and the schedule (the restart file, else --run,
    // else the store's data file). 0 when the service is to run; otherwise the exit code, with the
    // reason told on stderr.
    int Start();
    // One tick of tmrCheckTime, when the core has it on. False when it was off.
    bool Tick();
    // Loads again the Run File named at start. A file that does not load cleanly is told and
    // the running schedule stays. True when the file was loaded.
    bool Reload();
    // The clean stop of File > Exit: restart file removed, relays reset by the board's rules.
    void Stop();

    System& system() { return s_; }
    const ServiceScreen& screen() const { return screen_; }
    ServiceNotifier& notifier() { return notifier_; }
    // The Run File that a reload reads, "" when none.
    const std::string& RunFile() const { return runFile_; }

  private:
    bool LoadSchedule();
    bool StartRemoteStatus();

    ServiceOptions options_;
    System s_;
    SystemClock systemClock_;
    FlagTimer timer_;
    NoEventPump pump_;
    ServiceBoxes boxes_{s_};
    SystemMessageBoxes systemMessages_{s_};
    ServiceScreen screen_;
    std::unique_ptr<Ports> libraryPorts_;
    std::unique_ptr<BoardSet> boards_;
    std::unique_ptr<RowDisplay> boardStatusDisplay_;
    std::unique_ptr<KeyValueStore> store_;
    std::unique_ptr<InstanceLock> lock_;
    StoreWindowPlaces windowPlaces_{s_};
    ConfigurationStoreAdapter configurationSaves_{s_};
    ServiceNotifier notifier_{s_};
    std::unique_ptr<MqttBridge> mqtt_;
    std::string runFile_;
    bool started_ = false;
};

// Whether a Run File loads cleanly, without touching the running schedule: "" when it does,
// else what is wrong with it.
std::string RunFileProblem(const System& s, const std::string& fileName);

}  // namespace vantrellion
