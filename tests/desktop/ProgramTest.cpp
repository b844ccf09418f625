// The whole program from its entry on: a temporary machine directory with a prepared store,
// real windows on the offscreen platform, and fakes for the clock, the ports and the boxes.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <memory>

#include "configuration/clsConfiguration.h"
#include "desktop/VantrellionApp.h"
#include "support/Fakes.h"
#include "support/SavedConfiguration.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

class ProgramTest : public ::testing::Test {
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

    // A configuration as a Save of the configuration screen leaves it: board 1 at 0x300,
    // logging on into the machine directory.
    void PrepareStore(Flag runNoBoards = True) { SaveTestConfiguration(dir, runNoBoards, True); }
    bool Start() {
        app = std::make_unique<VantrellionApp>(
            VantrellionApp::Options{dir.Path(), &clock, &ports, &messages, nullptr, dir.Path()});
        return app->Main();
    }
    frmRelay& Window() { return *app->MainWindow(); }
    System& Sys() { return app->system(); }
    void Trigger(const char* menu) { Window().Menu(menu)->trigger(); }
    std::string Title() { return Window().windowTitle().toStdString(); }
};

TEST_F(ProgramTest, NormalStartShowsANewScheduleAndRunsTheTick) {
    PrepareStore();
    ASSERT_TRUE(Start());
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(Title(), "New");
    EXPECT_TRUE(Window().isVisible());
    EXPECT_EQ(app->Splash(), nullptr);
    EXPECT_TRUE(app->Timer().IsEnabled());

    // Manual on relay 2, then a tick: the emulated port follows and the row shows it.
    Sys().frmRelay.Relay[1].Manual = True;
    Trigger("mnuToolForceCheckTime");
    EXPECT_EQ(Sys().frmRelay.EmulatedPort[0], 0x02);
    EXPECT_EQ(Window().StatusPanel[1]->text(), "09:30:00");
    EXPECT_EQ(Window().lblTotalTime[1]->text(), ">Manual<");
    EXPECT_EQ(Window().Menu("mnuStateDisplayState", 0)->text(), "RelayState 1 : - 2 - - - - - -");
    EXPECT_TRUE(app->Timer().IsEnabled());
}

}  // namespace
}  // namespace vantrellion::test
