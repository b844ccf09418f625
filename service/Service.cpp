#include "service/Service.h"

#include <sys/stat.h>

#include "boardio/BoardSet.h"
#include "boardio/BoardStatusDisplay.h"
#include "boardio/LibraryPorts.h"
#include "configuration/BoardConnections.h"
#include "configuration/CheckConfigurationAtStart.h"
#include "configuration/KeyValueStore.h"
#include "core/CheckTimeControl.h"
#include "core/MachineDirectory.h"
#include "core/ResetRelayRecords.h"
#include "engine/Tick.h"
#include "mainscreen/FileCommands.h"
#include "mainscreen/MainScreenLifecycle.h"
#include "mqtt/MqttBridge.h"
#include "runfile/RunFileLoad.h"
#include "service/ServiceConsole.h"

namespace vantrellion {

namespace {

// No one can fill in the configuration screens: the start-up check's question is answered
// Cancel, and the service ends with its reason.
class NoConfigurationScreens : public FirstRunScreens {
  public:
    int ScreenHeightTwips() override { return FirstRunSmallScreenTwips; }
    void ShowConfiguration() override {}
    void ShowConfigBoards() override {}
    void ShowConfigColors() override {}
};

// Keeps the boxes of a trial load instead of showing them.
class CollectedBoxes : public MessageBoxes {
  public:
    std::vector<std::string> prompts;
    Answer Show(const MessageBoxRequest& r) override {
        prompts.push_back(OneLine(r.Prompt));
        return UnattendedAnswer(r);
    }
};

bool IsFile(const std::string& path) {
    struct stat st {};
    return ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

}  // namespace

std::string RunFileProblem(const System& s, const std::string& fileName) {
    if (!IsFile(fileName)) return "it does not exist or is not a file";
    System trial;
    trial.modRelay = s.modRelay;
    CollectedBoxes boxes;
    trial.platform.messages = &boxes;
    trial.platform.clock = s.platform.clock;
    ResetRelayRecords(trial);
    const size_t slash = fileName.rfind('/');
    const std::string path = slash == std::string::npos ? "" : fileName.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? fileName : fileName.substr(slash + 1);
    const int result = LoadRunFile(trial, path, name, true);
    if (result == RunFileLoaded && boxes.prompts.empty()) return "";
    if (!boxes.prompts.empty()) return boxes.prompts.front();
    return "it could not be read (error " + std::to_string(result) + ")";
}

Service::Service(ServiceOptions options, Clock* clock, Ports* ports)
    : options_(std::move(options)) {
    Platform& p = s_.platform;
    p.machineDirectory =
        options_.MachineDirectory.empty() ? DefaultMachineDirectory() : options_.MachineDirectory;
    p.documentsDirectory = p.machineDirectory;
    p.clock = clock ? clock : &systemClock_;
    p.timer = &timer_;
    p.pump = &pump_;
    p.messages = &boxes_;
    p.dialogs = nullptr;
    if (!ports)
        libraryPorts_ = std::make_unique<LibraryPorts>(DefaultPortLibraryPath(), systemMessages_,
                                                       s_.modRelay.RunNoBoards);
    p.ports = ports ? ports : libraryPorts_.get();
    boards_ = std::make_unique<BoardSet>();
    p.boards = boards_.get();
    boardStatusDisplay_ = std::make_unique<BoardStatusDisplay>(screen_, s_, *boards_);
    p.display = boardStatusDisplay_.get();
    p.screen = &screen_;
    p.windowPlaces = &windowPlaces_;
    p.configuration = &configurationSaves_;
    p.tickObservers.push_back(&notifier_);
}

Service::~Service() {
    timer_.SetEnabled(false);
    if (mqtt_) mqtt_->Stop();
    boards_->CloseAll();
}

int Service::Start() {
    const Platform& p = s_.platform;
    if (!EnsureDirectory(p.machineDirectory)) {
        ServiceMessage(PriorityError, "cannot create the machine directory " + p.machineDirectory);
        return 1;
    }
    lock_ = std::make_unique<InstanceLock>(p.machineDirectory, ServiceProgramName);
    // Only one process may drive a board.
    if (lock_->AnotherInstanceRuns()) {
        const LockHolder& h = lock_->Holder();
        ServiceMessage(
            PriorityError,
            "another copy of Vantrellion" +
                (h.Pid ? " (" + (h.Program.empty() ? std::string("process") : h.Program) +
                             ", process " + std::to_string(h.Pid) + ")"
                       : std::string()) +
                " holds " + p.machineDirectory + "vantrellion.lock; not started");
        return 1;
    }
    store_ = std::make_unique<KeyValueStore>(p.machineDirectory + "store.db");
    s_.platform.store = store_.get();
    NoConfigurationScreens screens;
    if (!CheckConfigurationAtStart(s_, screens)) {
        ServiceMessage(PriorityError, "not started: no usable configuration in " +
                                          p.machineDirectory +
                                          "store.db (configure in the desktop program first): " +
                                          OneLine(boxes_.Last().Prompt));
        return 1;
    }
    if (!options_.LogDirectory.empty()) {
        EnsureDirectory(options_.LogDirectory);
        s_.modRelay.LogFilePath = options_.LogDirectory;
    }
    LoadBoardConnections(s_);
    for (const auto& [board, text] : options_.Boards) {
        const std::string problem = boards_->SetConnection(board - 1, text);
        if (!problem.empty()) {
            ServiceMessage(PriorityError, BoardConnectionMessage(board - 1, text, problem));
            return 2;
        }
    }
    if (!StartRemoteStatus()) return 2;
    const bool ok = LoadSchedule();
    store_->ReleaseFile();
    if (!ok) return 1;
    started_ = true;
    ServiceMessage(PriorityInfo, "running " +
                                     (s_.modRelay.DataFileName.empty()
                                          ? std::string("a New schedule")
                                          : s_.modRelay.DataFilePath + s_.modRelay.DataFileName) +
                                     (s_.frmRelay.AutoRestarted ? " (restarted)" : ""));
    return 0;
}

bool Service::LoadSchedule() {
    ModRelay& m = s_.modRelay;
    // The store's data file, as the configuration names it; the screen's start clears it.
    const std::string dataFile = m.DataFileName.empty() ? "" : m.DataFilePath + m.DataFileName;
    runFile_ = options_.RunFile.empty() ? dataFile : options_.RunFile;
    // A --run file that does not load ends the start before anything is written from it.
    if (!options_.RunFile.empty()) {
        const std::string problem = RunFileProblem(s_, options_.RunFile);
        if (!problem.empty()) {
            ServiceMessage(PriorityError,
                           "not started: the Run File \"" + options_.RunFile + "\": " + problem);
            return false;
        }
    }
    // The screen's creation and load, as the desktop program runs them: the restart file, when
    // there is one, brings back the schedule of a run that did not end in order.
    Form_Initialize(s_);
    Form_Load(s_);
    if (s_.frmRelay.AutoRestarted != 0) return true;
    if (runFile_.empty()) return true;
    const std::string problem = RunFileProblem(s_, runFile_);
    if (!problem.empty()) {
        ServiceMessage(PriorityWarning, "the Run File \"" + runFile_ + "\" of the configuration: " +
                                            problem + "; the schedule starts as New");
        return true;
    }
    return OpenChosenRunFile(s_, runFile_);
}

// The bridge to the broker of --mqtt, else of the store's MqttUrl; none without either. A broker
// named on the command line that cannot be used ends the start; one of the store is told and
// the schedule runs without it.
bool Service::StartRemoteStatus() {
    MqttSettings settings = LoadMqttSettings(s_);
    if (!options_.MqttUrl.empty()) settings.Url = options_.MqttUrl;
    if (options_.MqttControl) settings.RemoteControl = true;
    if (settings.Url.empty()) return true;
    mqtt_ = std::make_unique<MqttBridge>(s_, settings, [](int priority, const std::string& text) {
        ServiceMessage(priority, text);
    });
    if (!mqtt_->Start()) {
        mqtt_.reset();
        return options_.MqttUrl.empty();
    }
    return true;
}

bool Service::Tick() {
    if (!timer_.IsEnabled()) return false;
    CheckTimeTick(s_);
    // The store is closed again after whatever used it, as in the desktop program.
    store_->ReleaseFile();
    return true;
}

bool Service::Reload() {
    if (runFile_.empty()) {
        ServiceMessage(PriorityWarning, "reload: no Run File was named at start");
        return false;
    }
    const std::string problem = RunFileProblem(s_, runFile_);
    if (!problem.empty()) {
        ServiceMessage(PriorityError, "reload: the Run File \"" + runFile_ + "\": " + problem +
                                          "; the running schedule stays");
        return false;
    }
    const bool loaded = OpenChosenRunFile(s_, runFile_);
    store_->ReleaseFile();
    notifier_.Reloaded();
    if (loaded) ServiceMessage(PriorityInfo, "reloaded " + runFile_);
    return loaded;
}

void Service::Stop() {
    if (!started_) return;
    started_ = false;
    notifier_.Stopping();
    // File > Exit: the close question (there are no unsaved edits here), then the unload.
    if (!Form_QueryUnload(s_)) Form_Unload(s_);
    timer_.SetEnabled(false);
    boards_->CloseAll();
    store_->ReleaseFile();
    if (mqtt_) mqtt_->Stop();
    ServiceMessage(PriorityInfo, "stopped");
}

}  // namespace vantrellion
