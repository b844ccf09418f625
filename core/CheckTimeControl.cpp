#include "core/CheckTimeControl.h"

namespace vantrellion {

void SuspendCheckTime(System& s) {
    s.timer().SetEnabled(false);
}

void ResumeCheckTime(System& s) {
    s.timer().SetEnabled(s.frmRelay.CheckTimeAllowed != 0);
}

}  // namespace vantrellion
