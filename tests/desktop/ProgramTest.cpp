// The whole program from its entry on: a temporary machine directory with an empty store, real
// windows and message boxes on the offscreen platform (or a real X server, see
// scripts/check-under-window-manager.sh), and fakes only for the clock and the ports.
#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <memory>

#include "desktop/MenuProgramFixture.h"
#include "desktop/VantrellionApp.h"
#include "desktop/frmConfiguration.h"
#include "desktop/frmSplash.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

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
    bool Start() {
        app = std::make_unique<VantrellionApp>(
            VantrellionApp::Options{dir.Path(), &clock, &ports, nullptr, nullptr, dir.Path()});
        return app->Main();
    }
};

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
        (void)QTest::qWaitFor(
            [&] {
                return QApplication::activeWindow() == modal &&
                       (QGuiApplication::platformName() != "xcb" ||
                        QApplication::topLevelAt(modal->geometry().center()) == modal);
            },
            5000);
        Seen s{modal->objectName().isEmpty() ? modal->metaObject()->className()
                                             : modal->objectName()};
        s.active = QApplication::activeWindow() == modal;
        const QWidget* atCentre = QApplication::topLevelAt(modal->geometry().center());
        s.onTop = QGuiApplication::platformName() != "xcb" || atCentre == modal;
        s.splashUp = app->Splash() && app->Splash()->isVisible();
        seen.push_back(s);
        // OK to configure, Exit (nothing has changed), then Cancel the program.
        if (auto* box = qobject_cast<QMessageBox*>(modal))
            box->button(++boxes == 1 ? QMessageBox::Ok : QMessageBox::Cancel)->click();
        else if (auto* screen = dynamic_cast<frmConfiguration*>(modal))
            // Outside the poll, which does not run again while the question waits.
            QTimer::singleShot(0, screen->cmdExit, &QPushButton::click);
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

// A second start never drives the boards beside the first: it quits, and with "Show the running
// one" it first brings the running program's window back to the front.
TEST_F(MenuProgramTest, ASecondStartShowsTheRunningOneOrQuits) {
    PrepareStore(True);
    Start();
    Window().showMinimized();
    FakeMessages answers;
    answers.answers = {Answer::Cancel, Answer::OK};
    for (bool shows : {false, true}) {
        VantrellionApp second({dir.Path(), &clock, &ports, &answers, nullptr, {}});
        EXPECT_FALSE(second.Main());
        EXPECT_EQ(second.MainWindow(), nullptr);
        QTest::qWait(100);
        EXPECT_EQ(Window().isMinimized(), !shows);
    }
    ASSERT_EQ(answers.shown.size(), 2u);
    EXPECT_EQ(answers.shown[0].ButtonTexts,
              (std::vector<std::string>{"Show the running one", "Quit"}));
}

}  // namespace
}  // namespace vantrellion::test
