#include "mainscreen/MainScreenResize.h"

#include "core/CheckTimeControl.h"
#include "core/clsResizeFormCntls.h"

namespace vantrellion {

void Form_Resize(System& s) {
    FrmRelay& f = s.frmRelay;
    FormWindow* window = s.screen().Window();
    if (!window || window->State() == WindowState::Minimized || f.ResizeReady == 0) return;
    const CheckTimeHold hold(s);
    if (f.ResizedOnce != 0) f.SavePositionAtExit = False;
    window->SetBusyPointer(true);
    if (f.ResizeFormCntls) {
        f.ResizeFormCntls->ScaleControls();
        s.screen().ScaleRowTexts(f.ResizeFormCntls->TextScale());
    }
    f.ResizedOnce = True;
    window->SetBusyPointer(false);
}

}  // namespace vantrellion
