#include "configuration/clsExeOrIDE.h"

namespace vantrellion {

Flag RunningInIDE() {
#ifdef VANTRELLION_DEV_MENU
    return True;
#else
    return False;
#endif
}

Flag RunningInEXE() {
    return RunningInIDE() == True ? False : True;
}

}  // namespace vantrellion
