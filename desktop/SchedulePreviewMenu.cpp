#include "desktop/SchedulePreviewMenu.h"

#include <QPointer>

#include "desktop/EventGuard.h"
#include "desktop/SchedulePreviewWindow.h"
#include "desktop/frmRelay.h"

namespace vantrellion {

void WireSchedulePreviewMenu(System& s, frmRelay& w) {
    auto window = std::make_shared<QPointer<SchedulePreviewWindow>>();
    w.OnMenu("mnuToolSchedulePreview", [&s, &w, window](int) {
        RunCommand(s, [&s, &w, window] {
            if (!*window) {
                *window = new SchedulePreviewWindow(s, &w);
                (*window)->setAttribute(Qt::WA_DeleteOnClose);
            }
            (*window)->show();
            (*window)->raise();
            (*window)->activateWindow();
            (*window)->Recompute();
        });
    });
}

}  // namespace vantrellion
