#include "mainscreen/StateCommands.h"

#include "boardio/PortAccess.h"
#include "core/CheckTimeControl.h"
#include "engine/Tick.h"
#include "mainscreen/PauseMessage.h"

namespace vantrellion {

void mnuStateMan_On(System& s, int n, int i) {
    SetRelayOn(s, n, i);
    WaitStepDelay(s);
    RefreshNow(s);
}

void mnuStateMan_Off(System& s, int n, int i) {
    SetRelayOff(s, n, i);
    WaitStepDelay(s);
    RefreshNow(s);
}

void mnuStateMan_AllOn(System& s, int n) {
    for (int i = 0; i <= 7; ++i)
        mnuStateMan_On(s, n, i);
    RefreshNow(s);
}

void mnuStateMan_AllOff(System& s, int n) {
    for (int i = 0; i <= 7; ++i)
        mnuStateMan_Off(s, n, i);
    RefreshNow(s);
}

void mnuStateMan_StepAll(System& s, int n) {
    s.modRelay.StepDelay = 2000;
    mnuStateMan_AllOn(s, n);
    mnuStateMan_AllOff(s, n);
    // The first board's command keeps the delay on: later single relay commands then take as
    // long as one step of the sequence, until another command with a delay clears it.
    if (n != 0) s.modRelay.StepDelay = 0;
}

void mnuStateMan_AllOnPause(System& s, int n) {
    const CheckTimeHold hold(s);
    mnuStateMan_AllOn(s, n);
    PauseMessage(s, n + 1, "ON");
}

void mnuStateMan_AllOffPause(System& s, int n) {
    const CheckTimeHold hold(s);
    mnuStateMan_AllOff(s, n);
    PauseMessage(s, n + 1, "OFF");
}

}  // namespace vantrellion
