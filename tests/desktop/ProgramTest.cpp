// The whole program from its entry on: a temporary machine directory with a prepared store,
// real windows, message boxes and file dialogs on the offscreen platform, and fakes only for
// the clock and the ports.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>
#include <QToolButton>
#include <filesystem>
#include <memory>

#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"
#include "desktop/VantrellionApp.h"
#include "desktop/frmConfiguration.h"
#include "logging/LogFileName.h"
#include "runfile/CrashRestart.h"
#include "support/Fakes.h"
#include "support/SavedConfiguration.h"
#include "support/TempDir.h"
#include "tests/desktop/ModalAnswerer.h"

namespace vantrellion::test {
namespace {

class ProgramTest : public ::testing::Test {
  protected:
    TempDir dir;
    FakeClock clock;
    SimulatedPorts ports;
    std::unique_ptr<VantrellionApp> app;

    void SetUp() override { clock.now = DateTime{2026, 11, 16, 9, 30, 0, 2}; }
    void TearDown() override {
        if (app && app->MainWindow()) app->MainWindow()->Unload = nullptr;
        app.reset();
    }

    // A configuration as a Save of the configuration screen leaves it: board 1 at 0x300,
    // logging on into the machine directory.
    void PrepareStore(Flag runNoBoards = True) { SaveTestConfiguration(dir, runNoBoards, True); }
    bool Start() {
        app = std::make_unique<VantrellionApp>(
            VantrellionApp::Options{dir.Path(), &clock, &ports, nullptr, nullptr, dir.Path()});
        return app->Main();
    }
    frmRelay& Window() { return *app->MainWindow(); }
    System& Sys() { return app->system(); }
    void Trigger(const char* menu) { Window().Menu(menu)->trigger(); }
    std::string Title() { return Window().windowTitle().toStdString(); }
    std::string TodaysLog() { return dir.Read(LogFileNameForDate("11/16/2026")); }
};

TEST_F(ProgramTest, NormalStartShowsANewScheduleAndRunsTheTick) {
    PrepareStore();
    ModalAnswerer answers;
    ASSERT_TRUE(Start());
    EXPECT_TRUE(answers.boxes.empty());
    EXPECT_EQ(Title(), "New");
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(app->Splash(), nullptr);
    EXPECT_TRUE(app->Timer().IsEnabled());
    EXPECT_FALSE(Window().Menu("mnuFileSave")->isEnabled());
    EXPECT_EQ(Window().Menu("mnuDisplayAddress")->text(), "Currently Running in Emulation Mode");

    // Manual on relay 2, then a tick: the emulated port follows and the row shows it.
    Sys().frmRelay.Relay[1].Manual = True;
    Trigger("mnuToolForceCheckTime");
    EXPECT_EQ(Sys().frmRelay.EmulatedPort[0], 0x02);
    EXPECT_EQ(Window().StatusPanel[1]->text(), "09:30:00");
    EXPECT_EQ(Window().lblTotalTime[1]->text(), ">Manual<");
    EXPECT_EQ(Window().Menu("mnuStateDisplayState", 0)->text(), "RelayState 1 : - 2 - - - - - -");
    EXPECT_TRUE(app->Timer().IsEnabled());
}

// The tick after a use of the store closes it: between uses the file stands alone, without a
// write-ahead log beside it; a later change opens it again for that moment.
TEST_F(ProgramTest, TheStoreIsClosedAfterTheTickThatUsedIt) {
    const std::string wal = dir.Path() + "store.db-wal";
    PrepareStore();
    ASSERT_TRUE(Start());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !std::filesystem::exists(wal); }, 3000));
    EXPECT_EQ(Sys().modRelay.LogFilePath, dir.Path());  // read before it was closed
    constexpr RegRoot kMachine = 0x80000002u;
    ASSERT_TRUE(RegWriteValue(Sys(), kMachine, "SOFTWARE\\Vantrellion\\Test", "String", "Reopened",
                              "yes", true));
    EXPECT_TRUE(std::filesystem::exists(wal));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !std::filesystem::exists(wal); }, 3000));
    EXPECT_EQ(RegReadWithSentinels(Sys(), kMachine, "SOFTWARE\\Vantrellion\\Test", "Reopened"),
              "yes");
}

// Qt's picture plugins stay loaded once any is asked to read a file; a start reads its own
// pictures as PNG and the menu bar's arrows are drawn, so none is loaded for the life of an
// idle program.
TEST_F(ProgramTest, StartLoadsNoPicturePlugin) {
    PrepareStore();
    ASSERT_TRUE(Start());
    QApplication::processEvents();
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/imageformats");
    const QStringList files = plugins.entryList({"*.so"}, QDir::Files);
    ASSERT_FALSE(files.empty()) << "no picture plugin is installed to check";
    for (const QString& file : files) {
        void* handle =
            dlopen(plugins.filePath(file).toLocal8Bit().constData(), RTLD_NOW | RTLD_NOLOAD);
        EXPECT_EQ(handle, nullptr) << file.toStdString();
        if (handle) dlclose(handle);
    }
    EXPECT_FALSE(Window().menuBar()->findChild<QToolButton*>()->icon().isNull());
}

TEST_F(ProgramTest, StartAfterACrashTakesTheScheduleBack) {
    PrepareStore();
    {
        TestSystem before;
        before.s.platform.machineDirectory = dir.Path();
        before.mod().LoggingOnOff = True;  // the restart file carries the logging switch
        before.SetPair(2, 0, "08:00", "17:00");
        SaveRestartFile(before.s);
    }
    ASSERT_TRUE(Start());
    EXPECT_EQ(Title(), "AUTOMATIC RESTART following System Crash");
    EXPECT_FALSE(Window().Menu("mnuFileSave")->isEnabled());
    EXPECT_EQ(Window().txtStartTime[12]->text(), "08:00");
    EXPECT_EQ(Window().lblTotalTime[2]->text(), "09:00:00");
    EXPECT_NE(TodaysLog().find("ReStart"), std::string::npos);
}

TEST_F(ProgramTest, CheckTimerRunsWhileABoxOfTheLoadWaits) {
    PrepareStore();
    dir.Write(RestartFileName, "\"FV.9999.99.99\"\r\n");
    // Whether the check timer runs at the moment the box appears.
    bool timerOnDuringBox = false;
    struct BoxShown : QObject {
        std::function<void()> seen;
        bool eventFilter(QObject* o, QEvent* e) override {
            if (e->type() == QEvent::Show && qobject_cast<QMessageBox*>(o)) seen();
            return false;
        }
    } watch;
    watch.seen = [&] { timerOnDuringBox = timerOnDuringBox || (app && app->Timer().IsEnabled()); };
    qApp->installEventFilter(&watch);
    ModalAnswerer answers;
    ASSERT_TRUE(Start());
    EXPECT_EQ(answers.Texts(), std::vector<std::string>{
                                   "Attempting to Load a file Version that does not exist yet"});
    qApp->removeEventFilter(&watch);
    EXPECT_TRUE(timerOnDuringBox);
    EXPECT_TRUE(app->Timer().IsEnabled());
}

TEST_F(ProgramTest, ClosingWithChangesAsksAndCancelKeepsTheProgramUp) {
    PrepareStore();
    ASSERT_TRUE(Start());
    ModalAnswerer answers;
    Sys().frmRelay.FileChanged = True;
    answers.Box(QMessageBox::Cancel);
    EXPECT_FALSE(Window().close());
    ASSERT_EQ(answers.boxes.size(), 1u);
    EXPECT_EQ(answers.boxes[0].title, "Save?");
    EXPECT_EQ(answers.boxes[0].text, "Save File?");
    EXPECT_TRUE(Window().isVisible());
    EXPECT_TRUE(app->Timer().IsEnabled());

    // Yes with no file yet: the Save As dialog, then the close goes on.
    answers.Box(QMessageBox::Yes);
    answers.File(QString::fromStdString(dir.File("closing.run")));
    EXPECT_TRUE(Window().close());
    EXPECT_TRUE(answers.Done());
    EXPECT_EQ(answers.dialogTitles.back(), "Save Time-Schedule as");
    EXPECT_TRUE(dir.Exists("closing.run"));
    EXPECT_FALSE(dir.Exists(RestartFileName));
    EXPECT_FALSE(app->Timer().IsEnabled());
}

TEST_F(ProgramTest, ClosingWithNoLeavesTheScheduleUnsavedAndResetsTheRelays) {
    PrepareStore();
    ASSERT_TRUE(Start());
    ModalAnswerer answers;
    Sys().frmRelay.Relay[0].Manual = True;
    Trigger("mnuToolForceCheckTime");
    ASSERT_EQ(Sys().frmRelay.EmulatedPort[0], 0x01);
    Sys().frmRelay.FileChanged = True;
    answers.Box(QMessageBox::No);
    EXPECT_TRUE(Window().close());
    EXPECT_EQ(Sys().frmRelay.EmulatedPort[0], 0);
    EXPECT_FALSE(dir.Exists(RestartFileName));
}

TEST_F(ProgramTest, NewWithCancelStillClearsTheSchedule) {
    PrepareStore();
    ASSERT_TRUE(Start());
    ModalAnswerer answers;
    Sys().frmRelay.StartTime[0] = "08:00";
    Sys().frmRelay.EndTime[0] = "09:00";
    Sys().frmRelay.FileChanged = True;
    answers.Box(QMessageBox::Cancel);
    Trigger("mnuFileNew");
    EXPECT_EQ(Sys().frmRelay.StartTime[0], "");
    EXPECT_EQ(Window().txtStartTime[0]->text(), "");
    EXPECT_EQ(Title(), "New");
    EXPECT_TRUE(app->Timer().IsEnabled());
}

TEST_F(ProgramTest, OpenOfAnOldVersionThenSaveWritesTheCurrentVersion) {
    PrepareStore();
    std::string old = "FV.2001.02.29\r\n 1 \r\n";
    for (int i = 0; i < 8; ++i) {
        old += "Pump " + std::to_string(i) +
               "\r\n246\r\nEO\r\n 0 \r\n 0 \r\n 1 \r\n 12 \r\n 0 \r\n\r\n";
        for (int p = 0; p < 6; ++p)
            old += p == 0 ? "08:00\r\n15:00\r\n" : "\r\n\r\n";
    }
    dir.Write("old.run", old);
    ASSERT_TRUE(Start());
    ModalAnswerer answers;
    answers.File(QString::fromStdString(dir.File("old.run")));
    Trigger("mnuFileOpen");
    EXPECT_EQ(answers.dialogTitles.back(), "Select Time-Schedule");
    EXPECT_EQ(Title(), dir.File("old.run"));
    EXPECT_EQ(Window().txtDisplayName[3]->text(), "Pump 3");
    EXPECT_EQ(Sys().frmRelay.Relay[3].Count, 0);
    EXPECT_TRUE(Window().Menu("mnuFileSave")->isEnabled());
    EXPECT_NE(TodaysLog().find("Open"), std::string::npos);

    Trigger("mnuFileSave");
    EXPECT_EQ(dir.Read("old.run").substr(0, 25), "FV.2001.05.01|.b0.r7.t5\r\n");
    EXPECT_NE(TodaysLog().find("Save"), std::string::npos);
}

// A name typed in any script and a directory named in UTF-8: Save As writes there, the
// title, the log and the store name the path exactly, and Open brings the name back whole.
TEST_F(ProgramTest, NamesAndPathsOutsideLatin1AreKeptWhole) {
    PrepareStore();
    const QString folder =
        QString::fromUtf8("\xD0\x9D\xD0\xB0\xD1\x81\xD0\xBE\xD1\x81 \xE2\x82\xAC");
    const std::string path = dir.Path() + folder.toStdString() + "/";
    ASSERT_TRUE(QDir().mkpath(QString::fromStdString(path)));
    ASSERT_TRUE(Start());
    ModalAnswerer answers;
    QApplication::setActiveWindow(&Window());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    QLineEdit* name = Window().txtDisplayName[1];
    name->setFocus(Qt::OtherFocusReason);
    name->selectAll();
    // One key press per character, as a keyboard layout of that script sends them.
    for (const QChar c : folder) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(name, &press);
    }
    EXPECT_EQ(name->text(), folder);
    QTest::keyClick(name, Qt::Key_Return);
    QCoreApplication::processEvents();  // the Tab that Enter sends, which validates the name
    EXPECT_EQ(Sys().frmRelay.Relay[1].DisplayName, folder.toStdString());

    answers.File(QString::fromStdString(path + "s.run"));
    Trigger("mnuFileSaveAs");
    EXPECT_TRUE(answers.boxes.empty());
    EXPECT_EQ(Title(), path + "s.run");
    EXPECT_NE(TempDir::ReadFile(path + "s.run").find(folder.toStdString() + "\r\n"),
              std::string::npos);
    EXPECT_NE(TodaysLog().find("Save " + path + "/s.run\r\n"), std::string::npos);
    EXPECT_EQ(RegReadWithSentinels(Sys(), HKEY_LOCAL_MACHINE, "SOFTWARE\\Vantrellion\\Config",
                                   "DataFilePath"),
              path);

    answers.File(QString::fromStdString(path + "s.run"));
    Trigger("mnuFileNew");
    Trigger("mnuFileOpen");
    EXPECT_TRUE(answers.Done());
    EXPECT_EQ(Window().txtDisplayName[1]->text(), folder);
}

TEST_F(ProgramTest, OpenCancelledKeepsTheTimerRunning) {
    PrepareStore();
    ASSERT_TRUE(Start());
    ModalAnswerer answers;
    answers.File(std::nullopt);
    Trigger("mnuFileOpen");
    EXPECT_TRUE(answers.Done());
    EXPECT_TRUE(app->Timer().IsEnabled());
    EXPECT_EQ(Title(), "New");
}

TEST_F(ProgramTest, OpenOfADamagedFileGivesANewSchedule) {
    PrepareStore();
    dir.Write("bad.run", std::string("\x01\x02 garbage", 10));
    ASSERT_TRUE(Start());
    ModalAnswerer answers;
    Sys().frmRelay.StartTime[6] = "08:00";
    Sys().frmRelay.EndTime[6] = "09:00";
    answers.File(QString::fromStdString(dir.File("bad.run")));
    Trigger("mnuFileOpen");
    ASSERT_FALSE(answers.boxes.empty());
    EXPECT_EQ(answers.boxes.back().text, "New, error encountered loading selected Run-Schedule");
    EXPECT_EQ(Sys().frmRelay.StartTime[6], "");
    EXPECT_EQ(Title(), "New");
    EXPECT_TRUE(app->Timer().IsEnabled());
}

TEST_F(ProgramTest, EmptyStoreAndCancelEndsWithoutAMainScreen) {
    ModalAnswerer answers;
    answers.Box(QMessageBox::Cancel);
    EXPECT_FALSE(Start());
    ASSERT_EQ(answers.boxes.size(), 1u);
    EXPECT_EQ(answers.boxes[0].title, "Vantrellion is not Configured!");
    EXPECT_TRUE(answers.boxes[0].text.startsWith("You MUST Configure Now"));
    EXPECT_EQ(app->MainWindow(), nullptr);
    EXPECT_EQ(app->Splash(), nullptr);
}

// Every box and screen of a first start stands above the splash and has the focus, so that a
// new user can answer it. Under a window manager (scripts/check-under-window-manager.sh runs
// this on Xvfb with openbox) the window found at the box's centre must be the box itself.
TEST_F(ProgramTest, StartUpBoxesAndScreensStandAboveTheSplash) {
    struct Seen {
        QString name;
        bool active = false, onTop = false, splashUp = false;
    };
    std::vector<Seen> seen;
    int boxes = 0;
    QWidget* current = nullptr;
    QTimer poll;
    poll.setInterval(10);
    QObject::connect(&poll, &QTimer::timeout, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || modal == current || !modal->isVisible()) return;
        current = modal;
        // The window manager maps, stacks and focuses the new window.
        (void)QTest::qWaitForWindowActive(modal);
        QTest::qWait(100);
        Seen s{modal->objectName().isEmpty() ? modal->metaObject()->className()
                                             : modal->objectName()};
        s.active = QApplication::activeWindow() == modal;
        const QWidget* atCentre = QApplication::topLevelAt(modal->geometry().center());
        s.onTop = QGuiApplication::platformName() != "xcb" || atCentre == modal;
        s.splashUp = app->Splash() && app->Splash()->isVisible();
        seen.push_back(s);
        if (auto* box = qobject_cast<QMessageBox*>(modal))
            box->button(++boxes == 1 ? QMessageBox::Ok : QMessageBox::Cancel)->click();
        else if (auto* screen = dynamic_cast<frmConfiguration*>(modal))
            screen->cmdExit->click();
    });
    poll.start();
    EXPECT_FALSE(Start());
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen[1].name, "frmConfiguration");
    for (const Seen& s : seen) {
        EXPECT_TRUE(s.splashUp) << s.name.toStdString();
        EXPECT_TRUE(s.active) << s.name.toStdString();
        EXPECT_TRUE(s.onTop) << s.name.toStdString();
    }
    EXPECT_EQ(app->Splash(), nullptr);
}

// The data directory is the user's documents folder, created when missing; a test's home is
// a scratch directory.
TEST(UserDocumentsDirectory, IsTheDocumentsFolderOfHomeAndIsCreated) {
    TempDir home;
    const QByteArray oldHome = qgetenv("HOME"), oldConfig = qgetenv("XDG_CONFIG_HOME");
    qputenv("HOME", QByteArray::fromStdString(home.Path()));
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(home.Path() + "config"));
    const std::string documents = UserDocumentsDirectory();
    qputenv("HOME", oldHome);
    qputenv("XDG_CONFIG_HOME", oldConfig);
    EXPECT_EQ(documents, home.Path() + "Documents/");
    EXPECT_TRUE(QFileInfo(QString::fromStdString(documents)).isDir());
}

// The splash closes on a key press or a click, also while the start-up goes on.
TEST(Splash, ClosesOnAKeyOrAClick) {
    for (bool key : {true, false}) {
        frmSplash splash;
        splash.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&splash));
        EXPECT_FALSE(splash.windowFlags() & Qt::WindowStaysOnTopHint);
        if (key)
            QTest::keyClick(&splash, Qt::Key_Space);
        else
            QTest::mouseClick(splash.lblWarning, Qt::LeftButton);
        EXPECT_FALSE(splash.isVisible());
    }
}

}  // namespace
}  // namespace vantrellion::test
