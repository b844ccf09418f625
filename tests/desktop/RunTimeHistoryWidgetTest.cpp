// The Tool menu entry of the running program opens the run-time history window.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>

#include "desktop/VantrellionApp.h"
#include "desktop/frmRunTimeHistory.h"
#include "history/RunTimeHistory.h"
#include "support/Fakes.h"
#include "support/SavedConfiguration.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

TEST(RunTimeHistoryMenu, ToolMenuEndsWithTheEntryAndItsWindowLeavesTheTickRunning) {
    TempDir dir;
    FakeClock clock;
    clock.now = DateTime{2026, 11, 16, 9, 30, 0, 2};
    SimulatedPorts ports;
    { SaveTestConfiguration(dir, True, True); }
    VantrellionApp app({dir.Path(), &clock, &ports, nullptr, nullptr, {}});
    ASSERT_TRUE(app.Main());
    QMenu* tool = app.MainWindow()->SubMenu("mnuTool");
    const QList<QAction*> items = tool->actions();
    ASSERT_GE(items.size(), 2);
    EXPECT_EQ(items.back()->objectName(), "mnuToolRunTimeHistory");

    items.back()->trigger();
    auto* window = app.MainWindow()->findChild<frmRunTimeHistory*>("frmRunTimeHistory");
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(window->isModal());
    EXPECT_TRUE(app.Timer().IsEnabled());
    items.back()->trigger();  // brings the same window to the front
    EXPECT_EQ(app.MainWindow()->findChildren<frmRunTimeHistory*>().size(), 1);
    window->close();
    QApplication::processEvents();
    app.MainWindow()->Unload = nullptr;
}

// The window on its own: the day view opens on the last day with a log, and the exports start
// in the documents folder and add the extension to a name typed without one.
TEST(RunTimeHistoryWindow, OpensOnTheLastLoggedDayAndExportsWithTheTypesExtension) {
    TempDir logs, out;
    TestSystem t;
    t.clock.now = DateTime{2026, 11, 16, 9, 30, 0, 2};
    t.mod().LogFilePath = logs.Path();
    logs.Write(LogFileNameOfDay(ToLocalSeconds({2026, 11, 14, 0, 0, 0, 7})),
               "08:00:00 <1 - - - - - - ->R><I<- - - - - - - ->I \r\n");
    frmRunTimeHistory form(t.s);
    EXPECT_EQ(form.dtpDay->date(), QDate(2026, 11, 14));

    t.dialogs.answers = {out.File("figures"), out.File("chart"), out.File("day")};
    form.cmdExportCsv->click();
    form.cmdExportPng->click();
    form.cmdExportDayPng->click();
    ASSERT_EQ(t.dialogs.saved.size(), 3u);
    for (const FileDialogRequest& r : t.dialogs.saved)
        EXPECT_EQ(r.InitialDirectory, kDocuments);
    EXPECT_EQ(out.Read("figures.csv").substr(0, 5), "Date,");
    EXPECT_EQ(out.Read("chart.png").substr(1, 3), "PNG");
    EXPECT_EQ(out.Read("day.png").substr(1, 3), "PNG");
    EXPECT_TRUE(t.messages.shown.empty());
}

}  // namespace
}  // namespace vantrellion::test
