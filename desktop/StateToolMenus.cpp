#include "desktop/StateToolMenus.h"

#include "configuration/ProgramLocation.h"
#include "desktop/EventGuard.h"
#include "desktop/ShowConfigForms.h"
#include "mainscreen/DevCommands.h"
#include "mainscreen/PortAddressListing.h"
#include "mainscreen/StateCommands.h"
#include "mainscreen/ToolCommands.h"

namespace vantrellion {

void WireStateToolMenus(frmRelay& w, System& s) {
    // Runs a command of the core; an unexpected error is shown and the program goes on.
    auto command = [&s](void (*op)(System&)) {
        return [&s, op](int) { RunCommand(s, [&s, op] { op(s); }); };
    };

    for (int n = 0; n < BoardSlots; ++n) {
        const QString b = QString("mnuStateMan_B%1_").arg(n + 1);
        auto board = [&s, n](void (*op)(System&, int)) {
            return [&s, n, op](int) { RunCommand(s, [&s, n, op] { op(s, n); }); };
        };
        auto relay = [&s, n](void (*op)(System&, int, int)) {
            return [&s, n, op](int i) { RunCommand(s, [&s, n, i, op] { op(s, n, i); }); };
        };
        w.OnMenu(b + "StepAll", board(&mnuStateMan_StepAll));
        w.OnMenu(b + "On", relay(&mnuStateMan_On));
        w.OnMenu(b + "Off", relay(&mnuStateMan_Off));
        w.OnMenu(b + "AllOn", board(&mnuStateMan_AllOn));
        w.OnMenu(b + "AllOff", board(&mnuStateMan_AllOff));
        w.OnMenu(b + "AllOnPause", board(&mnuStateMan_AllOnPause));
        w.OnMenu(b + "AllOffPause", board(&mnuStateMan_AllOffPause));
    }

    w.OnMenu("mnuToolLogging", command(&mnuToolLogging));
    w.OnMenu("mnuToolRemoveRestartFile", command(&mnuToolRemoveRestartFile));
    w.OnMenu("mnuToolSetRelays", command(&mnuToolSetRelays));
    w.OnMenu("mnuToolSetRelaysDelay", command(&mnuToolSetRelaysDelay));
    w.OnMenu("mnuToolSetRelaysPause", command(&mnuToolSetRelaysPause));
    w.OnMenu("mnuToolResetRelays", command(&mnuToolResetRelays));
    w.OnMenu("mnuToolResetRelaysDelay", command(&mnuToolResetRelaysDelay));
    w.OnMenu("mnuToolResetRelaysPause", command(&mnuToolResetRelaysPause));
    w.OnMenu("mnuToolZeroCounters", command(&mnuToolZeroCounters));
    w.OnMenu("mnuToolListAddress_H200_H3FF", command(&mnuToolListAddress_H200_H3FF));
    w.OnMenu("mnuToolRunNoBoards", command(&mnuToolRunNoBoards));
    w.OnMenu("mnuEdit", command(&mnuEdit_Click));

    // The developer menu's items exist only in a development build; elsewhere these find
    // nothing to connect.
    w.OnMenu("mnuDevPrintResourceFile", [&s](int) {
        RunCommand(s, [&s] { mnuDevPrintResourceFile(s, ProgramDirectory()); });
    });
    w.OnMenu("mnuDevTestRoutine", command(&mnuDevTestRoutine));
    w.OnMenu("mnuDevStepCautionMessageBox", command(&mnuDevStepCautionMessageBox));
    w.OnMenu("mnuDevStepErrorMessageBox", command(&mnuDevStepErrorMessageBox));
    w.OnMenu("mnuDevStepErrorMsgBox", command(&mnuDevStepErrorMsgBox));
    w.OnMenu("mnuDevStepInfoMessageBox", command(&mnuDevStepInfoMessageBox));
    w.OnMenu("mnuDevStepInfoMsgBox", command(&mnuDevStepInfoMsgBox));
    w.OnMenu("mnuDevTestConfigBoards",
             [&s](int) { RunCommand(s, [&s] { ShowConfigBoardsForm(s); }); });
    w.OnMenu("mnuDevTestConfigColors",
             [&s](int) { RunCommand(s, [&s] { ShowConfigColorsForm(s); }); });
}

}  // namespace vantrellion
