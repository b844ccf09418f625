// Turning tmrCheckTime off around work that must not interleave with a tick, and back on.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

// Sets tmrCheckTime disabled.
void SuspendCheckTime(System& s);
// The one and only way the timer comes back on: enabled when CheckTimeAllowed is non-zero, no
// command holds the timer and no close of the main screen goes on; disabled otherwise,
// whatever its state was before.
void ResumeCheckTime(System& s);

// Holds the timer off for the length of a scope. Holds are counted, so a command that holds
// the timer may call another that does too: the inner one's end does not turn the timer back
// on inside the outer one, and the last hold given back resumes it. A scope left by an error
// that ends the program leaves the timer off.
class CheckTimeHold {
  public:
    explicit CheckTimeHold(System& s);
    ~CheckTimeHold();
    CheckTimeHold(const CheckTimeHold&) = delete;
    CheckTimeHold& operator=(const CheckTimeHold&) = delete;

  private:
    System& s_;
    int exceptions_;
};

}  // namespace vantrellion
