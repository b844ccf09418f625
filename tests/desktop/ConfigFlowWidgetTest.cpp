// The configuration screens in the program's flows: the first start on an empty store, the
// small display's two screens, the File menu's commands on a running program, and the log
// directory chooser behind Browse. Windows are real and modal; message boxes are the fakes of
// the test support, since answering Qt's boxes is not the point here.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QSignalSpy>
#include <QTest>
#include <memory>

#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"
#include "desktop/VantrellionApp.h"
#include "desktop/frmConfigBoards.h"
#include "desktop/frmConfiguration.h"
#include "desktop/frmLogFilePath.h"
#include "support/Fakes.h"
#include "support/TempDir.h"
#include "support/TempStore.h"
#include "tests/desktop/ModalSteps.h"

namespace vantrellion::test {
namespace {

const std::string kFirstRun =
    "You MUST Configure Now\r\n\r\nBe sure to SAVE Configuration,\r\n"
    "      Even if you simply accept all defaults!\r\n\r\n"
    " You will be able to change the configuration, later";

void Activate(QWidget& w) {
    QApplication::setActiveWindow(&w);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&w));
}
void Click(QAbstractButton* b) {
    QTest::mouseClick(b, Qt::LeftButton);
}
// Types over a field's text and leaves it with Tab.
void Enter(QWidget* x, const char* text) {
    x->setFocus(Qt::OtherFocusReason);
    if (auto* c = qobject_cast<QComboBox*>(x)) c->lineEdit()->selectAll();
    if (auto* e = qobject_cast<QLineEdit*>(x)) e->selectAll();
    QTest::keyClicks(x, text);
    QTest::keyClick(x, Qt::Key_Tab);
}
class ProgramConfiguration : public ::testing::Test {
  protected:
    TempDir dir;
    FakeClock clock;
    SimulatedPorts ports;
    FakeMessages messages;
    std::unique_ptr<VantrellionApp> app;

    void SetUp() override { clock.now = DateTime{2026, 11, 16, 9, 30, 0, 2}; }
    void TearDown() override {
        if (app && app->MainWindow()) app->MainWindow()->Unload = nullptr;
        app.reset();
    }
    bool Start() {
        app = std::make_unique<VantrellionApp>(
            VantrellionApp::Options{dir.Path(), &clock, &ports, &messages, nullptr, dir.Path()});
        return app->Main();
    }
    System& Sys() { return app->system(); }
    std::string Stored(const std::string& name) {
        return RegReadWithSentinels(Sys(), HKEY_LOCAL_MACHINE, ConfigKeyRead, name);
    }
    // A configuration with boards: a control register, so that a set-up writes to the ports.
    void PrepareStoreWithBoards() {
        KeyValueStore store(dir.File("store.db"));
        TestSystem t;
        t.s.platform.store = &store;
        t.s.platform.machineDirectory = dir.Path();
        t.mod().RunNoBoards = False;
        t.mod().LogFilePath = dir.Path();
        BoardRecord& b = t.mod().Board[0];
        b.CntlAddress = 0x303;
        b.PortConfigValue = 0x80;
        b.LogBoard = b.ResetOnExit = 1;
        ConfigurationSaveToReg(t.s);
    }
};

TEST_F(ProgramConfiguration, AFirstStartSavedWithAllDefaultsRunsInEmulationWithLogging) {
    ModalSteps steps;
    steps.On<frmConfiguration>([](frmConfiguration& w) {
        Activate(w);
        EXPECT_TRUE(w.cmdSave->isEnabled()) << "Save is enabled on a first run";
        Click(w.cmdSave);
        EXPECT_FALSE(w.cmdSave->isEnabled());
        Click(w.cmdExit);
    });
    ASSERT_TRUE(Start());
    EXPECT_TRUE(steps.Done());
    EXPECT_EQ(steps.windows, std::vector<std::string>{"frmConfiguration"});
    EXPECT_EQ(messages.Prompts(), std::vector<std::string>{kFirstRun})
        << "the version was stamped: no second ask";

    // Every default is stored, and the version stamped.
    EXPECT_EQ(Stored("ConfigVersion"), ComposeFileVersion());
    EXPECT_EQ(Stored("LogFilePath"), dir.Path());
    for (const char* on :
         {"LoggingOnOff", "RunNoBoards", "LogBoard1", "ResetOnExit1", "WarnOverLapTime"})
        EXPECT_EQ(Stored(on), "1") << on;
    EXPECT_EQ(Stored("BaseAddress1"), "768");
    EXPECT_EQ(Stored("Brd1RNam8"), "Relay: 8");
    EXPECT_EQ(Stored("ColorRelayGroup8"), "16777215");
    frmRelay& main = *app->MainWindow();
    EXPECT_TRUE(main.isVisible());
    EXPECT_TRUE(app->Timer().IsEnabled());
    EXPECT_TRUE(ports.Writes().empty()) << "emulation touches no port";
}

TEST_F(ProgramConfiguration, CancelOnAFirstRunAsksAgainFromInsideTheScreen) {
    ModalSteps steps;
    steps.On<frmConfiguration>([](frmConfiguration& w) {
        Activate(w);
        Click(w.cmdCancel);  // the whole start-up check again, with a further screen
        EXPECT_FALSE(w.isVisible());
    });
    steps.On<frmConfiguration>([](frmConfiguration& w) {
        Activate(w);
        Click(w.cmdSave);
        Click(w.cmdExit);
    });
    ASSERT_TRUE(Start());
    EXPECT_TRUE(steps.Done());
    EXPECT_EQ(steps.windows, (std::vector<std::string>{"frmConfiguration", "frmConfiguration"}));
    EXPECT_EQ(messages.Prompts(), (std::vector<std::string>{kFirstRun, kFirstRun}))
        << "the first screen closes without a question";
    EXPECT_EQ(Stored("ConfigVersion"), ComposeFileVersion());
    EXPECT_TRUE(app->MainWindow()->isVisible());
}

TEST_F(ProgramConfiguration, FromTheMenuOnlyAChangedAddressSetsTheBoardUp) {
    PrepareStoreWithBoards();
    ASSERT_TRUE(Start());
    frmRelay& main = *app->MainWindow();
    ports.Clear();

    // A relay name changed and saved: the ports stay alone.
    ModalSteps steps;
    steps.On<frmConfiguration>([](frmConfiguration& w) {
        Activate(w);
        Enter(w.Boards->txtRelayName[0], "Pump");
        Click(w.cmdSave);
        Click(w.cmdExit);
    });
    main.Menu("mnuFileConfiguration")->trigger();
    EXPECT_TRUE(steps.Done());
    EXPECT_TRUE(ports.Writes().empty());
    EXPECT_EQ(Stored("Brd1RNam1"), "Pump");
    EXPECT_EQ(main.txtDisplayName[0]->text(), "Relay 1") << "the schedule keeps its names";
    EXPECT_TRUE(app->Timer().IsEnabled());

    // The base address changed, the screen left with Yes to "Save File?": one set-up.
    steps.On<frmConfiguration>([](frmConfiguration& w) {
        Activate(w);
        Enter(w.Boards->cmbBaseAddress[0], "280");
        Click(w.cmdExit);
    });
    main.Menu("mnuFileConfiguration")->trigger();
    EXPECT_TRUE(steps.Done());
    EXPECT_EQ(ports.Writes(), (std::vector<SimulatedPorts::Access>{
                                  {true, 0x303, 0x80}, {true, 0x280, 0}, {true, 0x301, 0}}));
    EXPECT_EQ(Stored("BaseAddress1"), "640");
    EXPECT_EQ(main.Menu("mnuDisplayAddress")->text(), "   B1@H280");
    EXPECT_TRUE(app->Timer().IsEnabled());
}

class LogDirectoryChooser : public ::testing::Test {
  protected:
    TestSystem t;
    TempStore temp{t.s};
    TempDir logs;
    void SetUp() override {
        QDir(QString::fromStdString(logs.Path())).mkpath(QString::fromStdString(kDaily));
        t.mod().LogFilePath = logs.Path();
        t.mod().Board[0].LogBoard = t.mod().Board[0].ResetOnExit = 1;
        ConfigurationSaveToReg(t.s);
    }
    // A directory named beyond Latin-1: the path comes back exactly as the system names it.
    const std::string kDaily = "\xD0\xB6\xD1\x83\xD1\x80\xD0\xBD\xD0\xB0\xD0\xBB \xE2\x82\xAC";
    std::string Daily() const { return logs.Path() + kDaily; }
};

// Browse opens the chooser on the log directory, or the nearest one still there; Cancel changes
// nothing, Select stores the directory with a closing separator. Either marks the screen changed.
TEST_F(LogDirectoryChooser, BrowseOpensOnTheNearestDirectoryAndSelectAddsTheSeparator) {
    frmConfigBoards w(t.s);
    w.show();
    Activate(w);
    ASSERT_FALSE(w.cmdSave->isEnabled());
    ModalSteps steps;
    steps.On<frmLogFilePath>([this](frmLogFilePath& chooser) {
        EXPECT_EQ(chooser.ChosenPath + "/", logs.Path());
        EXPECT_EQ(chooser.Text1->text().toStdString() + "/", logs.Path());
        Click(chooser.cmdCancel);
    });
    Click(w.Boards->cmdLogFilePathBrowse);
    EXPECT_EQ(t.mod().LogFilePath, logs.Path());
    EXPECT_TRUE(w.cmdSave->isEnabled());

    t.mod().LogFilePath = Daily() + "/gone/";
    steps.On<frmLogFilePath>([this](frmLogFilePath& chooser) {
        EXPECT_EQ(chooser.ChosenPath, Daily());
        chooser.SetDir1Path(QString::fromStdString(Daily()));
        Click(chooser.cmdSelect);
    });
    Click(w.Boards->cmdLogFilePathBrowse);
    EXPECT_TRUE(steps.Done());
    EXPECT_EQ(t.mod().LogFilePath, Daily() + "/");
    EXPECT_EQ(w.Boards->txtLogFilePath->text().toStdString(), Daily() + "/");
}

// A log directory below many others: the chooser opens with it in view, once the tree has
// read the directories around it.
TEST_F(LogDirectoryChooser, OpensScrolledToThePresentDirectory) {
    QDir base(QString::fromStdString(logs.Path()));
    for (int n = 0; n < 80; ++n)
        base.mkpath(QString("a%1").arg(n, 2, 10, QChar('0')));
    base.mkpath("zz/present");
    t.mod().LogFilePath = logs.Path() + "zz/present/";
    frmLogFilePath chooser(t.s);
    // The tree reads the directories in the background and tells each one it has read.
    QSignalSpy loaded(chooser.Dir1->model(), SIGNAL(directoryLoaded(QString)));
    chooser.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&chooser));
    const QString parent = QDir(QString::fromStdString(logs.Path())).absolutePath();
    const auto parentRead = [&] {
        for (const QList<QVariant>& signal : loaded)
            if (QDir(signal[0].toString()).absolutePath() == parent) return true;
        return false;
    };
    EXPECT_TRUE(QTest::qWaitFor(parentRead, 10000));
    const auto inView = [&] {
        const QRect row = chooser.Dir1->visualRect(chooser.Dir1->currentIndex());
        return !row.isEmpty() && chooser.Dir1->viewport()->rect().contains(row.center());
    };
    EXPECT_TRUE(QTest::qWaitFor(inView, 10000));
    EXPECT_EQ(chooser.ChosenPath, logs.Path() + "zz/present");
}

}  // namespace
}  // namespace vantrellion::test
