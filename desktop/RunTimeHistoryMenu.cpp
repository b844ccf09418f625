// The "Run-time History..." entry at the end of the Tool menu, and the window it opens.
#include "desktop/RunTimeHistoryMenu.h"

#include <QPointer>
#include <memory>

#include "desktop/EventGuard.h"
#include "desktop/frmRunTimeHistory.h"

namespace vantrellion {

void AddRunTimeHistoryMenu(frmRelay& w, System& s) {
    QMenu* tool = w.SubMenu("mnuTool");
    if (!tool) return;
    // It goes with the schedule preview's entry when that ends the menu, after a separator of
    // its own otherwise.
    const QList<QAction*> items = tool->actions();
    if (items.isEmpty() || items.back()->text() != "Schedule Preview...") tool->addSeparator();
    QAction* item = tool->addAction("Run-time History...");
    item->setObjectName("mnuToolRunTimeHistory");
    // One window at a time, not modal: the tick and the main screen go on while it is open.
    auto window = std::make_shared<QPointer<frmRunTimeHistory>>();
    QObject::connect(item, &QAction::triggered, &w, [&w, &s, window] {
        RunCommand(s, [&] {
            if (*window) {
                (*window)->raise();
                (*window)->activateWindow();
                return;
            }
            auto* form = new frmRunTimeHistory(s, &w);
            form->setAttribute(Qt::WA_DeleteOnClose);
            *window = form;
            form->show();
        });
    });
}

}  // namespace vantrellion
