#include "desktop/HelpAndLogMenus.h"

#include "core/CheckTimeControl.h"
#include "desktop/ConfigScreenWindow.h"
#include "desktop/EventGuard.h"
#include "desktop/UserManual.h"
#include "desktop/clsPrintScreenOrForm.h"
#include "desktop/frmRelay.h"
#include "desktop/modShowSubForms.h"
#include "mainscreen/RefreshTitleAndMenus.h"

namespace vantrellion {

void mnuHelpTimeWin_Click(System& s, frmRelay& w) {
    if (s.modRelay.TimeWindowShown != 0) {
        s.modRelay.TimeWindowShown = 0;
        w.CloseTimeWindow();
    } else {
        s.modRelay.TimeWindowShown = True;
        frmTime* clock = w.OpenTimeWindow();
        clock->show();
        clock->update();
        clock->raise();
        clock->activateWindow();
    }
    RefreshTitleAndMenus(s);
}

void WireHelpAndLogMenus(System& s, frmRelay& w) {
    auto command = [&s](std::function<void()> does) {
        return [&s, does](int) { RunCommand(s, does); };
    };
    // The main screen holds the tick while its picture is taken and printed.
    auto print = [&s, &w](PrintedPicture kind) {
        const CheckTimeHold hold(s);
        clsPrintScreenOrForm printer(s);
        if (kind == PrintedPicture::Window)
            printer.mPrintForm(&w);
        else
            printer.mPrintScreen(&w);
    };
    w.OnMenu("mnuFilePrintForm", command([print] { print(PrintedPicture::Window); }));
    w.OnMenu("mnuFilePrintScreen", command([print] { print(PrintedPicture::Screen); }));
    w.OnMenu("mnuToolLogFileView", command([&s] { ShowLogFileViewerForm(s); }));
    w.OnMenu("mnuToolRemoveLogFile", command([&s] {
                 const CheckTimeHold hold(s);
                 ShowLogFileDeleteForm(s);
             }));
    w.OnMenu("mnuHelpManual", command([&s] { OpenUserManual(s); }));
    w.OnMenu("mnuHelpGeneral", command([&s] { ShowHelpGeneralForm(s); }));
    w.OnMenu("mnuHelpConfiguration", command([&s] { ShowHelpConfigurationForm(s); }));
    w.OnMenu("mnuHelpTimeWin", command([&s, &w] { mnuHelpTimeWin_Click(s, w); }));
    w.OnMenu("mnuHelpSplash", command([] { ShowSplashForm(); }));
    w.OnMenu("mnuHelpAbout", command([&s] { ShowAboutForm(s); }));
}

void WireConfigScreenHelpAndPrint(System& s, ConfigScreenWindow& w) {
    auto on = [&s, &w](const char* name, std::function<void()> does) {
        if (QAction* a = w.Menu(name))
            QObject::connect(a, &QAction::triggered, &w, [&s, does] { RunCommand(s, does); });
    };
    on("mnuFilePrintForm", [&s, &w] { clsPrintScreenOrForm(s).mPrintForm(&w); });
    on("mnuFilePrintScreen", [&s, &w] { clsPrintScreenOrForm(s).mPrintScreen(&w); });
    on("mnuHelpConfiguration", [&s] { ShowHelpConfigurationForm(s); });
    on("mnuHelpGeneral", [&s] { ShowHelpGeneralForm(s); });
    on("mnuHelpAbout", [&s] { ShowAboutForm(s); });
}

}  // namespace vantrellion
