// The windows around the main screen: every Help entry opens its window, Escape closes the help
// windows and each leads into the user's manual, and the log entries hold the tick only for
// deletion.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDesktopServices>
#include <QTest>
#include <filesystem>

#include "desktop/HelpAndLogMenus.h"
#include "desktop/UserManual.h"
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

// Takes the place of the desktop's browser.
class UrlCatcher : public QObject {
    Q_OBJECT
  public:
    std::vector<QUrl> opened;
  public slots:
    void Open(const QUrl& url) { opened.push_back(url); }
};

// Escape, where the window has its focus.
void PressEscape(QWidget& window) {
    QWidget* focus = QApplication::focusWidget();
    QTest::keyClick(focus && window.isAncestorOf(focus) ? focus : &window, Qt::Key_Escape);
}

TEST_F(HelpMenuTest, EveryHelpEntryOpensItsWindowAndTheLogEntriesHoldTheTickOnlyForDeletion) {
    UrlCatcher browser;
    QDesktopServices::setUrlHandler("file", &browser, "Open");
    ModalSteps steps;
    // The help windows close with Escape, and each leads into the manual.
    steps.On<frmHelpGeneral>([](frmHelpGeneral& f) {
        f.cmdManual->click();
        PressEscape(f);
    });
    steps.On<frmHelpConfiguration>([](frmHelpConfiguration& f) {
        f.cmdManual->click();
        PressEscape(f);
    });
    steps.On<frmSplash>([](frmSplash& f) { QTest::keyClick(&f, Qt::Key_Space); });
    steps.On<frmAbout>([](frmAbout& f) { f.cmdOk->click(); });
    for (const char* entry : {"mnuHelpManual", "mnuHelpGeneral", "mnuHelpConfiguration",
                              "mnuHelpSplash", "mnuHelpAbout"})
        w->Menu(entry)->trigger();
    // The manual of the build, found as an installed program finds its own.
    ASSERT_FALSE(UserManualFile().isEmpty());
    EXPECT_EQ(browser.opened, std::vector<QUrl>(3, QUrl::fromLocalFile(UserManualFile())));
    QDesktopServices::unsetUrlHandler("file");
    OpenUserManual(t.s, QString::fromStdString(dir.File("gone.html")));
    ExpectOneBox(t,
                 "The user's manual could not be found.\r\nIt is installed with the program "
                 "as\r\n" +
                     dir.File("gone.html"),
                 "User's Manual");
    t.messages.shown.clear();

    // Deletion runs with the tick held, its tree opened at the log directory; the viewer
    // leaves the tick running, and has its help.
    const std::string logs = dir.File("a/b/c/d/logs");
    std::filesystem::create_directories(logs);
    t.mod().LogFilePath = logs + "/";
    std::vector<bool> timerWhileOpen;
    steps.On<frmLogFileDelete>([&](frmLogFileDelete& f) {
        timerWhileOpen.push_back(t.timer.enabled);
        EXPECT_EQ(f.Dir1Path().toStdString(), logs);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            const QRect row = f.Dir1->visualRect(f.Dir1->currentIndex());
            return f.Dir1->viewport()->rect().contains(row);
        }));
        f.cmdExit->click();
    });
    steps.On<frmLogFileViewer>([&](frmLogFileViewer& f) {
        timerWhileOpen.push_back(t.timer.enabled);
        f.Menu("mnuHelpHelp")->trigger();
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
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_EQ(t.messages.shown[0].Title, "Help (Viewer)");
    EXPECT_NE(t.messages.shown[0].Prompt.find("Print Log: the selected lines"), std::string::npos);
}

}  // namespace
}  // namespace vantrellion::test

#include "AuxiliaryWindowsTest.moc"
