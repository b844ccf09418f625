// The windows around the main screen: the time window's toggle, the about and help windows with
// their texts, every Help entry of the main screen and of a configuration screen, the viewer
// in the running program while the tick goes on, and a look at each new window.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QTest>

#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"
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
#include "tests/desktop/PdfPrinter.h"
#include "tests/desktop/RowWindowFixture.h"
#include "tests/desktop/ScopedEnv.h"

namespace vantrellion::test {
namespace {

class HelpMenuTest : public RowWindowTest {
  protected:
    void SetUp() override {
        RowWindowTest::SetUp();
        WireHelpAndLogMenus(t.s, *w);
    }
};

TEST_F(HelpMenuTest, TimeWindowToggledTwiceIsClosedWithTheShowCaption) {
    t.clock.now = DateTime{2026, 11, 16, 14, 5, 9, 2};
    w->Menu("mnuHelpTimeWin")->trigger();
    EXPECT_EQ(t.mod().TimeWindowShown, -1);
    ASSERT_NE(w->TimeWindow(), nullptr);
    EXPECT_TRUE(w->TimeWindow()->isVisible());
    EXPECT_EQ(w->TimeWindow()->parentWidget(), w.get());
    EXPECT_EQ(w->TimeWindow()->windowTitle(), "Time");
    EXPECT_EQ(w->Menu("mnuHelpTimeWin")->text(), "Time Window (Remove)");
    CheckTimeTick(t.s);
    EXPECT_EQ(w->TimeWindow()->lblTime->text(), "Time: 14:05:09");
    EXPECT_EQ(w->TimeWindow()->lblTime->size(), w->TimeWindow()->size());

    w->Menu("mnuHelpTimeWin")->trigger();
    EXPECT_EQ(t.mod().TimeWindowShown, 0);
    EXPECT_EQ(w->TimeWindow(), nullptr);
    EXPECT_EQ(w->Menu("mnuHelpTimeWin")->text(), "Time Window (Show)");
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

TEST(AuxiliaryWindows, AboutShowsTheBuildAndItsTextsAndSaysWhenNoInformationToolIsThere) {
    TempDir dir;
    ScopedEnv tmp("TMPDIR", dir.Path());
    ScopedEnv path("PATH", dir.Path());  // no tool to be found
    TestSystem t;
    frmAbout about(t.s);
    about.show();
    EXPECT_EQ(about.windowTitle(), "About Vantrellion");
    EXPECT_EQ(about.lblVersion->text(), "Version 2001.5.1");
    EXPECT_EQ(about.lblTitle->text(), "Vantrellion");
    EXPECT_TRUE(about.rtbAboutDescription->toPlainText().contains("hydroponic"));
    EXPECT_FALSE(about.rtbAboutWarning->toPlainText().isEmpty());
    EXPECT_TRUE(about.rtbAboutDescription->isReadOnly());
    EXPECT_TRUE(QDir(QString::fromStdString(dir.Path())).isEmpty());  // the files are gone

    about.cmdSysInfo->click();
    EXPECT_EQ(t.messages.Prompts(),
              std::vector<std::string>{"System Information Is Unavailable At This Time"});
}

TEST(AuxiliaryWindows, HelpWindowsCarryTheirTextsAndTheGeneralHelpPrints) {
    TempDir dir;
    TestSystem t;
    frmHelpGeneral help(t.s);
    help.show();
    EXPECT_EQ(help.windowTitle(), "Help");
    const QString text = help.rtbHelp->toPlainText();
    EXPECT_TRUE(text.contains("Vantrellion.pdf"));
    EXPECT_TRUE(text.contains("REMEMBER:   NEVER USE Vantrellion for LIFE SUPPORT SYSTEMS"));
    EXPECT_TRUE(help.rtbHelp->isReadOnly());
    PdfPrinter printer(dir.File("help.pdf"));
    help.Menu("mnuFilePrintDoc")->trigger();
    EXPECT_EQ(printer.offeredSelection, std::vector<bool>{false});
    EXPECT_GE(printer.Pages(), 1);

    frmHelpConfiguration config(t.s);
    config.show();
    EXPECT_EQ(config.windowTitle(), "Configuration Help");
    EXPECT_EQ(config.Label1->text(),
              "Please refer to the on-line documentation for help configuring Vantrellion.");
    EXPECT_EQ(config.Menu("mnuFilePrintDoc"), nullptr);
    EXPECT_TRUE(t.messages.shown.empty());
}

// Each new window rendered offscreen: it has its icon and paints something. With
// VANTRELLION_SCREENSHOTS set to a directory, the pictures are written there to be looked at.
TEST(AuxiliaryWindows, EachWindowRendersWithItsIcon) {
    TempDir dir;
    TestSystem t;
    t.mod().LogFilePath = dir.Path();
    t.mod().LogFileName = "Vantrellion_2026_11_16.Log";
    std::string log;
    for (int m = 0; m < 40; ++m)
        log += "09:" + std::to_string(10 + m) +
               ":00 11/16/2026 RelayState 1 : 1 - 3 - - - - 8 InputState 1 : - - - - - - - -\r\n";
    dir.Write(t.mod().LogFileName, "09:09:12 11/16/2026 Open /home/user/garden.run\r\n" + log);
    dir.Write("Vantrellion_2026_11_15.Log", "x");
    t.dialogs.answers.push_back(dir.File(t.mod().LogFileName));
    frmLogFileViewer viewer(t.s);
    frmLogFileDelete remove(t.s);
    frmAbout about(t.s);
    frmHelpGeneral general(t.s);
    frmHelpConfiguration config(t.s);
    frmTime clock(nullptr);
    clock.lblTime->setText("Time: 09:30:00");
    const QString shots = qEnvironmentVariable("VANTRELLION_SCREENSHOTS");
    for (QWidget* w :
         std::initializer_list<QWidget*>{&viewer, &remove, &about, &general, &config, &clock}) {
        w->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(w));
        EXPECT_FALSE(w->windowIcon().isNull()) << w->objectName().toStdString();
        const QImage picture = w->grab().toImage();
        EXPECT_GT(picture.width(), 100) << w->objectName().toStdString();
        if (!shots.isEmpty()) picture.save(shots + "/" + w->objectName() + ".png");
    }
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
        EXPECT_TRUE(QTest::qWaitFor([&] { return dir.Read(today).size() > before.size(); }, 3000));
        whileOpen = dir.Read(today);
        v.close();
    });
    w.Menu("mnuToolLogFileView")->trigger();
    EXPECT_TRUE(steps.Done());
    EXPECT_EQ(answers.dialogTitles, std::vector<QString>{"Select LogFile"});
    EXPECT_EQ(shown + "\n",
              QString::fromStdString(before).replace("\r\n", "\n").toStdString() + "\n");
    EXPECT_GT(whileOpen.size(), before.size());
    EXPECT_NE(whileOpen.find("09:31:0"), std::string::npos);
    w.Unload = nullptr;
}

}  // namespace
}  // namespace vantrellion::test
