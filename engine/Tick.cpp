#include "engine/Tick.h"

#include "boardio/PortAccess.h"
#include "core/CheckTimeControl.h"
#include "engine/CheckTimePairs.h"
#include "engine/InputStates.h"
#include "engine/RelayStates.h"
#include "logging/StateLog.h"

namespace vantrellion {

namespace {

// The one yield of a tick: input queued since the last tick takes effect before evaluation.
void YieldToQueuedInput(System& s) {
    if (s.pump().InputPending()) s.pump().ProcessPendingEvents();
}

// Step 13: the clock displays stand still while the main screen is minimised.
void ShowClock(System& s) {
    if (s.display().IsMinimized()) return;
    const std::string now = TimeText(s.clock().Now().SecondsOfDay());
    s.display().SetStatusTime(now);
    if (s.modRelay.TimeWindowShown != 0) s.display().SetTimeWindowCaption("Time: " + now);
}

}  // namespace

void CheckTimeTick(System& s) {
    SuspendCheckTime(s);                                      // 1
    YieldToQueuedInput(s);                                    // 2
    if (s.frmRelay.UnloadStarted != 0) return;                // the yield closed the main screen
    CheckTimePairs(s);                                        // 3
    UpdateRelayOutputs(s);                                    // 4
    const PortBytes relayBytes = ReadRelayPorts(s);           // 5
    const PortBytes inputBytes = ReadInputPorts(s);           // 6
    ShowRelayStates(s, relayBytes);                           // 7
    ShowInputStates(s, inputBytes);                           // 8
    const PortTexts relayTexts = FormatPortBits(relayBytes);  // 9
    const PortTexts inputTexts = FormatPortBits(inputBytes);  // 10
    ShowStateTexts(s, relayTexts, inputTexts);                // 11
    WriteStateLog(s, relayTexts, inputTexts);                 // 12
    ShowClock(s);                                             // 13
    ResumeCheckTime(s);                                       // 14
}

void RefreshNow(System& s) {
    YieldToQueuedInput(s);
    const PortBytes relayBytes = ReadRelayPorts(s);
    const PortBytes inputBytes = ReadInputPorts(s);
    ShowRelayStates(s, relayBytes);
    ShowInputStates(s, inputBytes);
    const PortTexts relayTexts = FormatPortBits(relayBytes);
    const PortTexts inputTexts = FormatPortBits(inputBytes);
    ShowStateTexts(s, relayTexts, inputTexts);
}

}  // namespace vantrellion
