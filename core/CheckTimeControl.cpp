#include "core/CheckTimeControl.h"

#include <exception>

namespace vantrellion {

void SuspendCheckTime(System& s) {
    s.timer().SetEnabled(false);
}

void ResumeCheckTime(System& s) {
    const FrmRelay& f = s.frmRelay;
    s.timer().SetEnabled(f.CheckTimeAllowed != 0 && f.CheckTimeHolds == 0 && f.UnloadStarted == 0);
}

CheckTimeHold::CheckTimeHold(System& s) : s_(s), exceptions_(std::uncaught_exceptions()) {
    ++s_.frmRelay.CheckTimeHolds;
    SuspendCheckTime(s_);
}

CheckTimeHold::~CheckTimeHold() {
    --s_.frmRelay.CheckTimeHolds;
    if (std::uncaught_exceptions() == exceptions_) ResumeCheckTime(s_);
}

}  // namespace vantrellion
