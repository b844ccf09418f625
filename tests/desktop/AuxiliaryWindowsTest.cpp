// The windows around the main screen: the time window's toggle, the about and help windows with
// their texts, every Help entry of the main screen and of a configuration screen, the viewer
// in the running program while the tick goes on, and a look at each new window.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "desktop/HelpAndLogMenus.h"
#include "desktop/VantrellionApp.h"
#include "desktop/frmAbout.h"
#include "desktop/frmConfiguration.h"
#include "desktop/frmHelpConfiguration.h"
#include "desktop/frmHelpGeneral.h"
#include "desktop/frmLogFileDelete.h"
#include "desktop/frmLogFileViewer.h"
#include "desktop/frmSplash.h"
#include "engine/Tick.h"
#include "logging/LogFileName.h"
#include "support/SavedConfiguration.h"
#include "support/TempDir.h"
#include "tests/desktop/ModalAnswerer.h"
#include "tests/desktop/ModalSteps.h"
#include "tests/desktop/RowWindowFixture.h"

namespace vantrellion::test {
namespace {

class HelpMenuTest : public RowWindowTest {
  protected:
    void SetUp() override {
        RowWindowTest::SetUp();
        WireHelpAndLogMenus(t.s, *w);
    }
};

TEST_F(HelpMenuTest, TimeWindowToggledTwiceIsClosed) {
    t.clock.now = DateTime{2026, 11, 16, 14, 5, 9, 2};
    w->Menu("mnuHelpTimeWin")->trigger();
    EXPECT_EQ(t.mod().TimeWindowShown, -1);
    ASSERT_NE(w->TimeWindow(), nullptr);
    EXPECT_TRUE(w->TimeWindow()->isVisible());
    EXPECT_EQ(w->TimeWindow()->parentWidget(), w.get());
    CheckTimeTick(t.s);
    EXPECT_EQ(w->TimeWindow()->lblTime->text(), "Time: 14:05:09");
    EXPECT_EQ(w->TimeWindow()->lblTime->size(), w->TimeWindow()->size());

    w->Menu("mnuHelpTimeWin")->trigger();
    EXPECT_EQ(t.mod().TimeWindowShown, 0);
    EXPECT_EQ(w->TimeWindow(), nullptr);
}

TEST_F(HelpMenuTest, EveryHelpEntryOpensItsWindowAndTheLogEntriesHoldTheTickOnlyForDeletion) {
    ModalSteps steps;
    steps.On<frmHelpGeneral>([](frmHelpGeneral& f) { f.cmdExit->click(); });
    steps.On<frmHelpConfiguration>([](frmHelpConfiguration& f) { f.cmdExit->click(); });
    steps.On<frmSplash>([](frmSplash& f) { QTest::keyClick(&f, Qt::Key_Space); });
    steps.On<frmAbout>([](frmAbout& f) { f.cmdOk->click(); });
    for (const char* entry :
         {"mnuHelpGeneral", "mnuHelpConfiguration", "mnuHelpSplash", "mnuHelpAbout"})
        w->Menu(entry)->trigger();

    // Deletion runs with the tick held; the viewer leaves it running.
    std::vector<bool> timerWhileOpen;
    steps.On<frmLogFileDelete>([&](frmLogFileDelete& f) {
        timerWhileOpen.push_back(t.timer.enabled);
        f.cmdExit->click();
    });
    steps.On<frmLogFileViewer>([&](frmLogFileViewer& f) {
        timerWhileOpen.push_back(t.timer.enabled);
        f.Menu("mnuFileExit")->trigger();
    });
    t.timer.enabled = true;
    t.dialogs.answers.push_back(std::nullopt);
    w->Menu("mnuToolRemoveLogFile")->trigger();
    w->Menu("mnuToolLogFileView")->trigger();
    EXPECT_TRUE(steps.Done());
    EXPECT_EQ(steps.windows,
              (std::vector<std::string>{"frmHelpGeneral", "frmHelpConfiguration", "frmSplash",
                                        "frmAbout", "frmLogFileDelete", "frmLogFileViewer"}));
    EXPECT_EQ(timerWhileOpen, (std::vector<bool>{false, true}));
    EXPECT_TRUE(t.timer.enabled);
}

TEST(AuxiliaryWindows, ConfigurationScreenHelpEntriesOpenTheHelpWindows) {
    TestSystem t;
    frmConfiguration screen(t.s);
    screen.show();
    ModalSteps steps;
    steps.On<frmHelpConfiguration>([](frmHelpConfiguration& f) { f.close(); });
    steps.On<frmHelpGeneral>([](frmHelpGeneral& f) { f.close(); });
    steps.On<frmAbout>([](frmAbout& f) { f.close(); });
    for (const char* entry : {"mnuHelpConfiguration", "mnuHelpGeneral", "mnuHelpAbout"})
        screen.Menu(entry)->trigger();
    EXPECT_EQ(steps.windows,
              (std::vector<std::string>{"frmHelpConfiguration", "frmHelpGeneral", "frmAbout"}));
}

// The viewer in the running program: it opens through the real file dialog, and the tick goes
// on writing the log while the viewer is up.
TEST(AuxiliaryWindows, TickWritesTheLogWhileTheViewerIsOpen) {
    TempDir dir;
    FakeClock clock;
    clock.now = DateTime{2026, 11, 16, 9, 30, 0, 2};
    SimulatedPorts ports;
    { SaveTestConfiguration(dir, True, True); }
    auto app = std::make_unique<VantrellionApp>(
        VantrellionApp::Options{dir.Path(), &clock, &ports, nullptr, nullptr, {}});
    ASSERT_TRUE(app->Main());
    frmRelay& w = *app->MainWindow();
    w.Menu("mnuToolForceCheckTime")->trigger();  // the first state line
    const std::string today = LogFileNameForDate("11/16/2026");
    const std::string before = dir.Read(today);
    ASSERT_FALSE(before.empty());

    ModalAnswerer answers;
    answers.File(QString::fromStdString(dir.File(today)));
    ModalSteps steps;
    std::string shown, whileOpen;
    steps.On<frmLogFileViewer>([&](frmLogFileViewer& v) {
        shown = v.rtbViewLogs->toPlainText().toStdString();
        clock.Advance(60);
        EXPECT_TRUE(QTest::qWaitFor([&] { return dir.Read(today).size() > before.size(); }, 10000));
        whileOpen = dir.Read(today);
        v.close();
    });
    w.Menu("mnuToolLogFileView")->trigger();
    EXPECT_TRUE(steps.Done());
    EXPECT_EQ(shown + "\n",
              QString::fromStdString(before).replace("\r\n", "\n").toStdString() + "\n");
    EXPECT_GT(whileOpen.size(), before.size());
    EXPECT_NE(whileOpen.find("09:31:0"), std::string::npos);
    w.Unload = nullptr;
}

}  // namespace
}  // namespace vantrellion::test
