#include "desktop/RunOnBootMenu.h"

#include <QAction>

#include "configuration/AutostartFolders.h"
#include "configuration/RunOnBootCommands.h"
#include "configuration/ServiceCommands.h"
#include "desktop/EventGuard.h"

namespace vantrellion {

void WireRunOnBootMenu(frmRelay& w, System& s, ServiceManager& manager) {
    Platform& p = s.platform;
    if (p.autostartMachineDirectory.empty() && p.autostartUserDirectory.empty()) {
        const AutostartDirectories dirs = DefaultAutostartDirectories();
        p.autostartMachineDirectory = dirs.machine;
        p.autostartUserDirectory = dirs.user;
    }
    QAction* once = w.Menu("mnuToolRunOnBootOnce");
    QAction* always = w.Menu("mnuToolRunOnBootAlways");
    QAction* never = w.Menu("mnuToolRunOnBootNever");
    if (!once || !always || !never) return;
    for (QAction* a : {once, always, never}) {
        a->setCheckable(true);
        a->setChecked(false);
    }
    const RunOnBootMarks marks = [once, always, never](RunOnBootChoice choice) {
        once->setChecked(choice == RunOnBootChoice::Once);
        always->setChecked(choice == RunOnBootChoice::Always);
        never->setChecked(choice == RunOnBootChoice::Never);
    };
    w.OnMenu("mnuToolRunOnBootOnce",
             [&s, marks](int) { RunCommand(s, [&s, &marks] { mnuToolRunOnBootOnce(s, marks); }); });
    w.OnMenu("mnuToolRunOnBootAlways", [&s, marks](int) {
        RunCommand(s, [&s, &marks] { mnuToolRunOnBootAlways(s, marks); });
    });
    w.OnMenu("mnuToolRunOnBootNever", [&s, marks](int) {
        RunCommand(s, [&s, &marks] { mnuToolRunOnBootNever(s, marks); });
    });
    w.OnMenu("mnuToolRunAsService", [&s, &manager](int) {
        RunCommand(s, [&s, &manager] { mnuToolRunAsService(s, manager, CurrentUserName()); });
    });
}

}  // namespace vantrellion
