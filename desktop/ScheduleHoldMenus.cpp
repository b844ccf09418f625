#include "desktop/ScheduleHoldMenus.h"

#include "desktop/EventGuard.h"
#include "desktop/frmDaysOff.h"
#include "desktop/frmPauseSchedule.h"
#include "desktop/frmRelay.h"
#include "mainscreen/PauseSchedule.h"

namespace vantrellion {

void WireScheduleHoldMenus(System& s, frmRelay& w) {
    w.OnMenu("mnuStateDaysOff", [&s, &w](int) {
        RunCommand(s, [&s, &w] {
            frmDaysOff form(s, &w);
            form.exec();
        });
    });
    w.OnMenu("mnuStatePauseSchedule", [&s, &w](int) {
        RunCommand(s, [&s, &w] {
            frmPauseSchedule form(s, &w);
            form.exec();
        });
    });
    w.OnMenu("mnuStateEndPause", [&s](int) { RunCommand(s, [&s] { mnuStateEndPause(s); }); });
}

}  // namespace vantrellion
