// The windows around the main screen: every Help entry opens its window, and the log entries
// hold the tick only for deletion.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "desktop/HelpAndLogMenus.h"
#include "desktop/frmAbout.h"
#include "desktop/frmHelpConfiguration.h"
#include "desktop/frmHelpGeneral.h"
#include "desktop/frmLogFileDelete.h"
#include "desktop/frmLogFileViewer.h"
#include "desktop/frmSplash.h"
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

}  // namespace
}  // namespace vantrellion::test
