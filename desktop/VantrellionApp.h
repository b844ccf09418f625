// The program as a whole: the shared state, the Qt services behind the core's interfaces, the
// main screen, and the start-up sequence. Tests build one with a temporary machine directory
// and fakes for the clock, the ports, the message boxes and the file dialogs.
#pragma once

#include <QTimer>
#include <memory>
#include <string>

#include "boardio/BoardSet.h"
#include "configuration/ConfigurationStoreAdapter.h"
#include "configuration/KeyValueStore.h"
#include "configuration/ServiceManager.h"
#include "configuration/StoreWindowPlaces.h"
#include "core/InstanceLock.h"
#include "core/SharedState.h"
#include "desktop/AltLetterGuard.h"
#include "desktop/QtPlatform.h"
#include "desktop/RecentFilesMenu.h"
#include "desktop/ShowConfigForms.h"
#include "desktop/ShowRequests.h"
#include "desktop/WindowsOnScreen.h"
#include "desktop/frmRelay.h"
#include "desktop/frmSplash.h"
#include "mainscreen/ServiceView.h"
#include "mqtt/MqttBridge.h"

namespace vantrellion {

class VantrellionApp {
  public:
    struct Options {
        std::string machineDirectory;      // with its trailing "/"
        Clock* clock = nullptr;            // Qt's clock when null
        Ports* ports = nullptr;            // the port library when null
        MessageBoxes* messages = nullptr;  // Qt's message boxes when null
        FileDialogs* dialogs = nullptr;    // Qt's file dialogs when null
        // The user's documents folder, with its trailing "/"; the machine directory when empty.
        std::string documentsDirectory;
        // systemctl and loginctl for the service's commands; the real ones when null.
        ServiceManager* serviceManager = nullptr;
    };
    explicit VantrellionApp(Options options);
    ~VantrellionApp();

    // The program's entry: platform check, second-instance warning, splash, configuration
    // check, main screen. False when the program is to end at once.
    bool Main();

    System& system() { return s_; }
    frmRelay* MainWindow() { return main_.get(); }
    frmSplash* Splash() { return splash_.get(); }
    QtCheckTimer& Timer() { return timer_; }

    // Closes every window that is still open.
    void UnloadAllForms();
    // After the event loop: lets go of the boards and, when this run took over from the
    // service, offers to start the service again.
    void AfterExit();
    // True when the main window shows the running service instead of driving the boards.
    bool ViewingService() const { return serviceView_ != nullptr; }

  private:
    void CreateMainScreen();
    // The start while the service holds the lock: its box and the answer chosen. True when
    // the program goes on (viewing, or having taken over).
    bool StartBesideService();
    // The main window as a read-only view of the service, refreshed every tick.
    bool CreateServiceView();
    // Brings the main window (or the splash, early in the start) to the front.
    void ShowToTheUser();
    // Closes the splash and stores its place.
    void CloseSplash();
    void WireMenus();
    // The bridge to the broker of the store's MqttUrl, started (again) with the stored
    // settings; none without a URL.
    void StartRemoteStatus();
    void ShowMainErrorMessage(const std::string& description, int number,
                              const std::string& source);

    System s_;
    // Fits every window that the program shows into the screen, from the splash on.
    WindowsOnScreen windowsOnScreen_;
    // An Alt+letter that opens no menu types nothing into a field, in every window.
    AltLetterGuard altLetters_;
    SystemClock systemClock_;
    QtCheckTimer timer_;
    QtEventPump pump_;
    QtMessageBoxes qtMessages_;
    std::unique_ptr<MessageBoxes> timeLimited_;
    SystemMessageBoxes systemMessages_{s_};
    StoreWindowPlaces windowPlaces_{s_};
    QtFileDialogs qtDialogs_;
    std::unique_ptr<Ports> libraryPorts_;
    // The boards by their connection texts, and the main screen's display with their state.
    std::unique_ptr<BoardSet> boards_;
    std::unique_ptr<RowDisplay> boardStatusDisplay_;
    std::unique_ptr<KeyValueStore> store_;
    ConfigurationStoreAdapter configurationSaves_{s_};
    // The configuration screens that the start-up check opens on a first run.
    DesktopConfigurationScreens firstRun_{s_};
    std::unique_ptr<InstanceLock> instanceLock_;
    SystemServiceManager systemServiceManager_;
    ServiceManager* serviceManager_ = nullptr;
    bool tookOverService_ = false;
    std::unique_ptr<ServiceView> serviceView_;
    QTimer serviceViewTimer_;
    // Where a second start asks this one to show itself.
    std::unique_ptr<ShowRequestListener> showRequests_;
    std::unique_ptr<frmSplash> splash_;
    // While the splash is up, raises every other window that start-up opens above it.
    std::unique_ptr<QObject> splashGuard_;
    std::unique_ptr<frmRelay> main_;
    std::unique_ptr<MqttBridge> mqtt_;
    std::unique_ptr<RecentFilesMenu> recentFiles_;
};

}  // namespace vantrellion
