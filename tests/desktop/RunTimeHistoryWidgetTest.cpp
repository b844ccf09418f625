// The Tool menu entry of the running program opens the run-time history window.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QTest>

#include "desktop/VantrellionApp.h"
#include "desktop/frmRunTimeHistory.h"
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

}  // namespace
}  // namespace vantrellion::test
