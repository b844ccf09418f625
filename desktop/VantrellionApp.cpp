#include "desktop/VantrellionApp.h"

#include <QApplication>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <thread>

#include "boardio/BoardStatusDisplay.h"
#include "boardio/LibraryPorts.h"
#include "configuration/BoardConnections.h"
#include "configuration/CheckConfigurationAtStart.h"
#include "configuration/ServiceCommands.h"
#include "configuration/screens/ConfigurationCommands.h"
#include "core/CheckTimeControl.h"
#include "core/FatalError.h"
#include "core/MachineDirectory.h"
#include "desktop/DesignFont.h"
#include "desktop/EventGuard.h"
#include "desktop/FormPosition.h"
#include "desktop/HelpAndLogMenus.h"
#include "desktop/ProgramStyle.h"
#include "desktop/RowEvents.h"
#include "desktop/RunOnBootMenu.h"
#include "desktop/RunTimeHistoryMenu.h"
#include "desktop/ScheduleHoldMenus.h"
#include "desktop/SchedulePreviewMenu.h"
#include "desktop/ShowConfigForms.h"
#include "desktop/ShowRequests.h"
#include "desktop/StateToolMenus.h"
#include "desktop/frmRemoteStatus.h"
#include "engine/Tick.h"
#include "logging/TimeLimitedBoxes.h"
#include "mainscreen/FileCommands.h"
#include "mainscreen/MainScreenLifecycle.h"
#include "mainscreen/MainScreenResize.h"
#include "mainscreen/RefreshTitleAndMenus.h"
#include "mainscreen/RowRefill.h"

namespace vantrellion {

VantrellionApp::VantrellionApp(Options o) {
    QApplication::setFont(DesignFont(9));
    QApplication::setStyle(new ProgramStyle);
    Platform& p = s_.platform;
    p.machineDirectory = o.machineDirectory;
    p.documentsDirectory = o.documentsDirectory.empty() ? o.machineDirectory : o.documentsDirectory;
    qtDialogs_.startDirectory = p.documentsDirectory;
    p.clock = o.clock ? o.clock : &systemClock_;
    p.timer = &timer_;
    p.pump = &pump_;
    timeLimited_ = std::make_unique<TimeLimitedBoxes>(s_, o.messages ? *o.messages : qtMessages_);
    p.messages = timeLimited_.get();
    p.dialogs = o.dialogs ? o.dialogs : &qtDialogs_;
    if (!o.ports)
        libraryPorts_ = std::make_unique<LibraryPorts>(DefaultPortLibraryPath(), systemMessages_,
                                                       s_.modRelay.RunNoBoards);
    p.ports = o.ports ? o.ports : libraryPorts_.get();
    boards_ = std::make_unique<BoardSet>();
    p.boards = boards_.get();
    store_ = std::make_unique<KeyValueStore>(o.machineDirectory + "store.db");
    p.store = store_.get();
    p.windowPlaces = &windowPlaces_;
    p.configuration = &configurationSaves_;
    serviceManager_ = o.serviceManager ? o.serviceManager : &systemServiceManager_;
    timer_.SetEnabled(false);
    QObject::connect(timer_.Timer(), &QTimer::timeout, [this] {
        RunOrEnd(s_, [this] { CheckTimeTick(s_); });
        // The store is closed again after whatever used it (the start, a setting, the name of
        // a new day's log), so that between uses store.db alone holds the configuration.
        store_->ReleaseFile();
    });
    RegisterFormPositionSystem(&s_);
}

VantrellionApp::~VantrellionApp() {
    timer_.SetEnabled(false);
    s_.platform.recentFiles = nullptr;
    recentFiles_.reset();
    s_.platform.display = nullptr;
    boardStatusDisplay_.reset();
    main_.reset();
    boards_->CloseAll();
    CloseSplash();
    RegisterFormPositionSystem(nullptr);
}

namespace {

// Start-up's boxes and screens (the configuration questions and screens, the older-version
// boxes, a restart file's boxes, file dialogs) open while the splash is up. Each is raised
// above the splash and given the focus as it is shown, whatever the window manager's rules
// for a splash, so that the user sees and can answer it.
class SplashGuard : public QObject {
  public:
    explicit SplashGuard(QWidget* splash) : splash_(splash) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show) {
            auto* w = qobject_cast<QWidget*>(watched);
            if (w && w->isWindow() && w != splash_) {
                w->raise();
                w->activateWindow();
            }
        }
        return false;
    }

  private:
    QWidget* splash_;
};

}  // namespace

void VantrellionApp::CloseSplash() {
    if (splashGuard_) qApp->removeEventFilter(splashGuard_.get());
    splashGuard_.reset();
    if (splash_) SaveFormPosition(s_, *splash_);
    splash_.reset();
}

void VantrellionApp::ShowMainErrorMessage(const std::string& description, int number,
                                          const std::string& source) {
    s_.Message({description + "\r\n" + std::to_string(number) + "\r\n" + source});
}

bool VantrellionApp::Main() {
    std::srand(static_cast<unsigned>(std::time(nullptr)));  // 1
    try {
        EnsureDirectory(s_.platform.machineDirectory);
        instanceLock_ = std::make_unique<InstanceLock>(s_.platform.machineDirectory);  // 3
        // Two copies would drive the same boards against each other: a second one only shows
        // the running one, or quits.
        if (instanceLock_->AnotherInstanceRuns() && HolderIsService(instanceLock_->Holder())) {
            if (!StartBesideService()) {
                instanceLock_.reset();
                UnloadAllForms();
                return false;
            }
            if (serviceView_) return true;
        }
        if (instanceLock_->AnotherInstanceRuns()) {
            MessageBoxRequest box{std::string("You are attempting to run more then one copy of ") +
                                      AppTitle + " , Doing so will cause unreliable performance.",
                                  Buttons::OKCancel, Icon::Exclamation};
            box.ButtonTexts = {"Show the running one", "Quit"};
            if (s_.Message(box) == Answer::OK)
                RequestRunningProgramToShow(s_.platform.machineDirectory);
            instanceLock_.reset();
            return false;
        }
        showRequests_ = std::make_unique<ShowRequestListener>(s_.platform.machineDirectory,
                                                              [this] { ShowToTheUser(); });
        splash_ = std::make_unique<frmSplash>();  // 4
        RestoreFormPosition(s_, *splash_);
        splashGuard_ = std::make_unique<SplashGuard>(splash_.get());
        qApp->installEventFilter(splashGuard_.get());
        splash_->show();
        splash_->repaint();
        QCoreApplication::processEvents();
        if (!CheckConfigurationAtStart(s_, firstRun_)) {  // 5
            UnloadAllForms();
            return false;
        }
        LoadBoardConnections(s_);
        if (splash_) splash_->repaint();  // 6
        CreateMainScreen();
        CloseSplash();  // 7
        return true;
    } catch (const FatalError& e) {
        ShowMainErrorMessage(e.what(), e.Number(), e.Source());
    } catch (const std::exception& e) {
        ShowMainErrorMessage(e.what(), 0, "Vantrellion");
    }
    UnloadAllForms();
    return false;
}

bool VantrellionApp::StartBesideService() {
    switch (AskAboutRunningService(s_, instanceLock_->Holder())) {
        case RunningServiceChoice::Quit:
            return false;
        case RunningServiceChoice::View:
            return CreateServiceView();
        case RunningServiceChoice::TakeOver:
            break;
    }
    if (!StopServiceForTakeOver(s_, *serviceManager_)) return false;
    // The service lets go of the lock as its process ends.
    for (int waited = 0; waited < 10000; waited += 100) {
        if (instanceLock_->TryTakeOver()) {
            tookOverService_ = true;
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    s_.Message({"The service stopped, but another process still holds the boards.", Buttons::OK,
                Icon::Critical});
    return false;
}

bool VantrellionApp::CreateServiceView() {
    // The configuration (colours, boards, log folder) as the service reads it; nothing of the
    // boards is touched and nothing is written.
    if (!CheckConfigurationAtStart(s_, firstRun_)) return false;
    main_ = std::make_unique<frmRelay>(s_);
    boardStatusDisplay_ = std::make_unique<BoardStatusDisplay>(*main_, s_, *boards_);
    s_.platform.display = boardStatusDisplay_.get();
    s_.platform.screen = main_.get();
    ResetRowVisuals(s_);
    serviceView_ = std::make_unique<ServiceView>(s_);
    serviceView_->Refresh();
    RefreshTitleAndMenus(s_);
    serviceView_->Refresh();
    // No edits: the rows and the menus take no input; closing the window ends the view.
    if (main_->centralWidget()) main_->centralWidget()->setEnabled(false);
    main_->menuBar()->setEnabled(false);
    serviceViewTimer_.setInterval(900);
    QObject::connect(&serviceViewTimer_, &QTimer::timeout, [this] {
        RunCommand(s_, [this] { serviceView_->Refresh(); });
        store_->ReleaseFile();
    });
    serviceViewTimer_.start();
    store_->ReleaseFile();
    main_->show();
    return true;
}

void VantrellionApp::AfterExit() {
    serviceViewTimer_.stop();
    if (!tookOverService_) return;
    tookOverService_ = false;
    instanceLock_.reset();
    OfferServiceRestart(s_, *serviceManager_);
}

void VantrellionApp::ShowToTheUser() {
    QWidget* w = main_ ? static_cast<QWidget*>(main_.get()) : splash_.get();
    if (!w) return;
    if (w->isMinimized()) w->showNormal();
    w->raise();
    w->activateWindow();
}

void VantrellionApp::CreateMainScreen() {
    main_ = std::make_unique<frmRelay>(s_);
    boardStatusDisplay_ = std::make_unique<BoardStatusDisplay>(*main_, s_, *boards_);
    s_.platform.display = boardStatusDisplay_.get();
    s_.platform.screen = main_.get();
    main_->QueryUnload = [this] {
        bool cancel = false;
        RunCommand(s_, [&] { cancel = Form_QueryUnload(s_); });
        return cancel;
    };
    main_->Unload = [this] {
        RunCommand(s_, [&] { Form_Unload(s_); });
        if (mqtt_) mqtt_->Stop();
        main_->CloseTimeWindow();
        // tmrCheckTime belongs to the main screen and goes with it, even if a save during
        // the close question turned it back on.
        timer_.SetEnabled(false);
    };
    main_->Resized = [this] { RunCommand(s_, [this] { Form_Resize(s_); }); };
    recentFiles_ = std::make_unique<RecentFilesMenu>(s_, *main_);
    s_.platform.recentFiles = recentFiles_.get();
    recentFiles_->Show();
    WireRowEvents(*main_, s_);
    WireMenus();
    // tmrCheckTime runs from the main screen's creation: a tick that fires while a box of the
    // load waits does its work, and its closing resume holds the timer off until the load ends.
    timer_.SetEnabled(true);
    RunOrEnd(s_, [this] {
        Form_Initialize(s_);
        Form_Load(s_);
    });
    StartRemoteStatus();
    main_->show();
}

void VantrellionApp::StartRemoteStatus() {
    mqtt_.reset();
    const MqttSettings settings = LoadMqttSettings(s_);
    store_->ReleaseFile();
    if (settings.Url.empty()) return;
    // What the bridge has to say goes to stderr; a setting it cannot use also to a box.
    mqtt_ =
        std::make_unique<MqttBridge>(s_, settings, [this](int priority, const std::string& text) {
            std::fprintf(stderr, "<%d>%s\n", priority, text.c_str());
            if (priority <= 3) s_.Message({text, Buttons::OK, Icon::Exclamation});
        });
    if (!mqtt_->Start()) mqtt_.reset();
}

void VantrellionApp::WireMenus() {
    frmRelay& w = *main_;
    auto command = [this](void (*op)(System&)) {
        return [this, op](int) { RunCommand(s_, [this, op] { op(s_); }); };
    };
    w.OnMenu("mnuFileNew", command(&mnuFileNew));
    w.OnMenu("mnuFileOpen", command(&mnuFileOpen));
    w.OnMenu("mnuFileSave", command(&mnuFileSave));
    w.OnMenu("mnuFileSaveAs", command(&mnuFileSaveAs));
    w.OnMenu("mnuMRUFiles",
             [this](int index) { RunCommand(s_, [this, index] { recentFiles_->Open(index); }); });
    w.OnMenu("mnuFileExit", [&w](int) { w.close(); });
    w.OnMenu("mnuFileConfiguration", [this](int) {
        RunCommand(s_, [this] {
            DesktopConfigurationScreens screens(s_, nullptr, main_.get());
            mnuFileConfiguration(s_, screens);
        });
    });
    w.OnMenu("mnuFileConfigurationRemove", command(&mnuFileConfigurationRemove));
    w.OnMenu("mnuFileRemoteStatus", [this](int) {
        RunCommand(s_, [this] {
            frmRemoteStatus window(
                s_, [this] { StartRemoteStatus(); }, main_.get());
            window.exec();
            store_->ReleaseFile();
        });
    });
    w.OnMenu("mnuToolForceCheckTime", [this](int) { RunOrEnd(s_, [this] { CheckTimeTick(s_); }); });
    WireRunOnBootMenu(w, s_, *serviceManager_);
    WireStateToolMenus(w, s_);
    WireHelpAndLogMenus(s_, w);
    WireSchedulePreviewMenu(s_, w);
    WireScheduleHoldMenus(s_, w);
    AddRunTimeHistoryMenu(w, s_);
}

void VantrellionApp::UnloadAllForms() {
    CloseSplash();
    if (main_) {
        timer_.SetEnabled(false);
        main_->hide();
    }
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->isVisible()) w->close();
}

}  // namespace vantrellion
