#include "mainscreen/ToolCommands.h"

#include "boardio/BoardSetup.h"
#include "core/CheckTimeControl.h"
#include "engine/Tick.h"
#include "mainscreen/PauseMessage.h"
#include "mainscreen/RefreshTitleAndMenus.h"
#include "runfile/CrashRestart.h"

namespace vantrellion {

namespace {

// SetAllRelays with the step delay on around it; the delay is off again afterwards.
void SetAllRelaysWithDelay(System& s) {
    s.modRelay.StepDelay = 2000;
    SetAllRelays(s);
    s.modRelay.StepDelay = 0;
}

// ResetAllRelays with board 0's reset forced and the step delay on; both put back afterwards.
void ResetAllRelaysWithDelay(System& s) {
    Flag& resetOnExit = s.modRelay.Board[0].ResetOnExit;
    const Flag remembered = resetOnExit;
    resetOnExit = 1;
    s.modRelay.StepDelay = 2000;
    ResetAllRelays(s);
    s.modRelay.StepDelay = 0;
    resetOnExit = remembered;
}

// Drives the relays with the tick held off, which takes it up again afterwards.
void WithTickSuspended(System& s, void (*drive)(System&)) {
    const CheckTimeHold hold(s);
    drive(s);
}

// Drives the relays, shows the rows at once and waits on the pause message (0 after a set, 1
// after a reset) before the tick takes up again.
void DriveAndPause(System& s, void (*drive)(System&), int message) {
    const CheckTimeHold hold(s);
    drive(s);
    RefreshNow(s);
    PauseMessage(s, message, "ON");
}

}  // namespace

void mnuToolSetRelays(System& s) {
    WithTickSuspended(s, SetAllRelays);
}

void mnuToolSetRelaysDelay(System& s) {
    WithTickSuspended(s, SetAllRelaysWithDelay);
}

void mnuToolSetRelaysPause(System& s) {
    DriveAndPause(s, SetAllRelaysWithDelay, 0);
}

void mnuToolResetRelays(System& s) {
    WithTickSuspended(s, [](System& s) {
        Flag& resetOnExit = s.modRelay.Board[0].ResetOnExit;
        const Flag remembered = resetOnExit;
        resetOnExit = 1;
        ResetAllRelays(s);
        resetOnExit = remembered;
        // The plain reset leaves the reset at exit switched on, whatever was remembered.
        resetOnExit = 1;
    });
}

void mnuToolResetRelaysDelay(System& s) {
    WithTickSuspended(s, ResetAllRelaysWithDelay);
}

void mnuToolResetRelaysPause(System& s) {
    DriveAndPause(s, ResetAllRelaysWithDelay, 1);
}

void mnuToolZeroCounters(System& s) {
    for (int i = 0; i <= 7; ++i) {
        RelayRecord& rec = s.frmRelay.Relay[i];
        rec.Count = 0;
        if (rec.CounterOn == True) s.display().SetCounterCaption(i, std::to_string(rec.Count));
    }
    SaveRestartFile(s);
}

void mnuToolLogging(System& s) {
    const CheckTimeHold hold(s);
    Flag& logging = s.modRelay.LoggingOnOff;
    logging = logging == -1 ? False : True;
    if (s.platform.configuration) s.platform.configuration->ConfigurationFlagLoggingSave();
    RefreshTitleAndMenus(s);
}

void mnuToolRunNoBoards(System& s) {
    const CheckTimeHold hold(s);
    Flag& runNoBoards = s.modRelay.RunNoBoards;
    runNoBoards = runNoBoards == -1 ? False : True;
    if (s.platform.configuration) s.platform.configuration->ConfigurationFlagRunNoBoardsSave();
    // In the mode just entered: entering emulation clears the emulated relays; leaving it
    // clears the real board only where its configuration allows a reset.
    ResetAllRelays(s);
    RefreshTitleAndMenus(s);
}

void mnuToolRemoveRestartFile(System& s) {
    RemoveRestartFile(s, s.platform.machineDirectory, RestartFileName);
}

}  // namespace vantrellion
