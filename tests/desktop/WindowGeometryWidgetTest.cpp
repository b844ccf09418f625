// The main screen's remembered place, read back from store.db, on the offscreen platform.
#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QTest>
#include <memory>

#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"
#include "desktop/VantrellionApp.h"
#include "support/Fakes.h"
#include "support/SavedConfiguration.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

// The text stored for a window, read from the file by a store of its own.
std::string StoredPlace(const std::string& storeFile, const std::string& window) {
    KeyValueStore store(storeFile);
    TestSystem t;
    t.s.platform.store = &store;
    return RegReadWithSentinels(t.s, HKEY_LOCAL_MACHINE, "SOFTWARE\\Vantrellion\\Startup", window);
}

std::string Place(int x, int y, int w, int h) {
    return std::to_string(x * 15) + "," + std::to_string(y * 15) + "," + std::to_string(w * 15) +
           "," + std::to_string(h * 15);
}

class ProgramWindows : public ::testing::Test {
  protected:
    TempDir dir;
    TempDir settingsDir;
    FakeClock clock;
    SimulatedPorts ports;
    FakeMessages messages;
    FakeDialogs dialogs;
    std::unique_ptr<VantrellionApp> app;

    void SetUp() override {
        clock.now = DateTime{2026, 11, 16, 9, 30, 0, 2};
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           QString::fromStdString(settingsDir.Path()));
        SaveTestConfiguration(dir, True, False);
    }
    void TearDown() override { Stop(); }
    void Start() {
        app = std::make_unique<VantrellionApp>(
            VantrellionApp::Options{dir.Path(), &clock, &ports, &messages, &dialogs, {}});
        ASSERT_TRUE(app->Main());
        QApplication::processEvents();
    }
    void Stop() {
        if (app && app->MainWindow() && app->MainWindow()->isVisible()) app->MainWindow()->close();
        app.reset();
    }
    frmRelay& Window() { return *app->MainWindow(); }
};

TEST_F(ProgramWindows, TheMainScreenComesBackWhereItWasUnlessTheUserResizedIt) {
    Start();
    const QSize design = Window().size();
    Window().move(150, 120);
    Stop();
    EXPECT_EQ(StoredPlace(dir.File("store.db"), "frmRelay"),
              Place(150, 120, design.width(), design.height()));

    Start();
    EXPECT_EQ(Window().pos(), QPoint(150, 120));
    EXPECT_EQ(Window().size(), design);
    // Moved and resized: the place stored before stands.
    Window().move(10, 10);
    Window().resize(design.width() + 100, design.height() + 50);
    EXPECT_EQ(app->system().frmRelay.SavePositionAtExit, False);
    Stop();
    EXPECT_EQ(StoredPlace(dir.File("store.db"), "frmRelay"),
              Place(150, 120, design.width(), design.height()));
}

}  // namespace
}  // namespace vantrellion::test
