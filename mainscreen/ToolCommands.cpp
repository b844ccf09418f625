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

}  // namespace

void mnuToolSetRelays(System& s) {
    SuspendCheckTime(s);
    SetAllRelays(s);
    ResumeCheckTime(s);
}

void mnuToolSetRelaysDelay(System& s) {
    SuspendCheckTime(s);
    SetAllRelaysWithDelay(s);
    ResumeCheckTime(s);
}

void mnuToolSetRelaysPause(System& s) {
    SuspendCheckTime(s);
    SetAllRelaysWithDelay(s);
    RefreshNow(s);
    PauseMessage(s, 0, "ON");
    ResumeCheckTime(s);
}

void mnuToolResetRelays(System& s) {
    SuspendCheckTime(s);
    Flag& resetOnExit = s.modRelay.Board[0].ResetOnExit;
    const Flag remembered = resetOnExit;
    resetOnExit = 1;
    ResetAllRelays(s);
    resetOnExit = remembered;
    // The plain reset leaves the reset at exit switched on, whatever was remembered.
    resetOnExit = 1;
    ResumeCheckTime(s);
}

void mnuToolResetRelaysDelay(System& s) {
    SuspendCheckTime(s);
    ResetAllRelaysWithDelay(s);
    ResumeCheckTime(s);
}

void mnuToolResetRelaysPause(System& s) {
    SuspendCheckTime(s);
    ResetAllRelaysWithDelay(s);
    RefreshNow(s);
    PauseMessage(s, 1, "ON");
    ResumeCheckTime(s);
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
    SuspendCheckTime(s);
    Flag& logging = s.modRelay.LoggingOnOff;
    logging = logging == -1 ? False : True;
    if (s.platform.configuration) s.platform.configuration->ConfigurationFlagLoggingSave();
    RefreshTitleAndMenus(s);
    ResumeCheckTime(s);
}

void mnuToolRunNoBoards(System& s) {
    SuspendCheckTime(s);
    Flag& runNoBoards = s.modRelay.RunNoBoards;
    runNoBoards = runNoBoards == -1 ? False : True;
    if (s.platform.configuration) s.platform.configuration->ConfigurationFlagRunNoBoardsSave();
    // In the mode just entered: entering emulation clears the emulated relays; leaving it
    // clears the real board only where its configuration allows a reset.
    ResetAllRelays(s);
    RefreshTitleAndMenus(s);
    ResumeCheckTime(s);
}

void mnuToolRemoveRestartFile(System& s) {
    RemoveRestartFile(s, s.platform.machineDirectory, RestartFileName);
}

}  // namespace vantrellion
