// The program's windows on the offscreen platform: remembered places read back from store.db,
// the main screen's rows scaling with its frame, and the recent files on the File menu.
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
    QAction* Recent(int n) { return Window().Menu("mnuMRUFiles", n); }
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

TEST_F(ProgramWindows, OpenedAndSavedFilesAreOnTheFileMenuAndAClickOpensOne) {
    Start();
    EXPECT_FALSE(Recent(0)->isVisible());
    EXPECT_TRUE(Recent(0)->isSeparator());
    app->system().frmRelay.StartTime[PairIndex(1, 0)] = "08:00";
    app->system().frmRelay.EndTime[PairIndex(1, 0)] = "09:00";
    dialogs.answers = {dir.File("last week.run"), dir.File("this & that.run")};
    Window().Menu("mnuFileSaveAs")->trigger();
    Window().Menu("mnuFileSaveAs")->trigger();
    EXPECT_TRUE(Recent(0)->isVisible());
    EXPECT_EQ(Recent(1)->text().toStdString(), dir.File("this && that.run"));
    EXPECT_EQ(Recent(2)->text().toStdString(), dir.File("last week.run"));
    EXPECT_FALSE(Recent(3)->isVisible());

    Window().Menu("mnuFileNew")->trigger();
    EXPECT_EQ(Window().txtStartTime[PairIndex(1, 0)]->text(), "");
    Stop();

    // The list outlives the run; a click opens the file as File > Open does.
    Start();
    ASSERT_TRUE(Recent(2)->isVisible());
    Recent(2)->trigger();
    EXPECT_EQ(Window().windowTitle().toStdString(), dir.File("last week.run"));
    EXPECT_EQ(Window().txtStartTime[PairIndex(1, 0)]->text(), "08:00");
    EXPECT_EQ(Recent(1)->text().toStdString(), dir.File("last week.run"));

    // A file that has gone: the load error, and it leaves the list.
    std::remove(dir.File("this & that.run").c_str());
    Recent(2)->trigger();
    EXPECT_EQ(messages.shown.back().Prompt, "New, error encountered loading selected Run-Schedule");
    EXPECT_EQ(Recent(1)->text().toStdString(), dir.File("last week.run"));
    EXPECT_FALSE(Recent(2)->isVisible());
    EXPECT_TRUE(dialogs.opened.empty());
}

}  // namespace
}  // namespace vantrellion::test
