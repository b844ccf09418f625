#include "engine/Tick.h"

#include "boardio/PortAccess.h"
#include "core/CheckTimeControl.h"
#include "engine/BoardMark.h"
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

// The clock displays stand still while the main screen is minimised.
void ShowClock(System& s) {
    if (s.display().IsMinimized()) return;
    const std::string now = TimeText(s.clock().Now().SecondsOfDay());
    s.display().SetStatusTime(now);
    if (s.modRelay.TimeWindowShown != 0) s.display().SetTimeWindowCaption("Time: " + now);
}

// Keeps the boxes that the tick raises until it has returned.
class BoxesAfterTheTick {
  public:
    explicit BoxesAfterTheTick(System& s) : s_(s) { s_.deferBoxes = true; }
    ~BoxesAfterTheTick() { s_.deferBoxes = false; }

  private:
    System& s_;
};

// What the tick has read, out to everything that shows or records it: the rows, the menu
// captions, the log, the clock, and whoever else watches the ticks.
void Publish(System& s, const PortBytes& relayBytes, const PortBytes& inputBytes) {
    ShowRelayStates(s, relayBytes);
    ShowInputStates(s, inputBytes);
    const PortTexts relayTexts = FormatPortBits(relayBytes);
    const PortTexts inputTexts = FormatPortBits(inputBytes);
    ShowStateTexts(s, relayTexts, inputTexts);
    WriteStateLog(s, relayTexts, inputTexts);
    ShowClock(s);
    ShowBoardMark(s);
    for (TickObserver* o : s.platform.tickObservers)
        o->TickCompleted();
}

// The boxes the tick raised, each in turn, with the timer held.
void ShowBoxesOfTheTick(System& s) {
    if (s.deferredBoxes.empty()) return;
    const CheckTimeHold hold(s);
    std::vector<MessageBoxRequest> boxes;
    boxes.swap(s.deferredBoxes);
    for (const MessageBoxRequest& box : boxes)
        s.Message(box);
}

}  // namespace

void CheckTimeTick(System& s) {
    {
        const CheckTimeHold hold(s);                // the timer off, and on again at the end
        YieldToQueuedInput(s);                      // the only point where a command can run
        if (s.frmRelay.UnloadStarted != 0) return;  // the yield closed the main screen
        const BoxesAfterTheTick boxes(s);
        CheckTimePairs(s);                               // evaluate
        UpdateRelayOutputs(s);                           // write
        const PortBytes relayBytes = ReadRelayPorts(s);  // read back what this tick wrote
        const PortBytes inputBytes = ReadInputPorts(s);
        Publish(s, relayBytes, inputBytes);
    }
    ShowBoxesOfTheTick(s);
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
