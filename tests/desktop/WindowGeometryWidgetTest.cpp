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
#include "core/clsResizeFormCntls.h"
#include "desktop/FormPosition.h"
#include "desktop/QtConvert.h"
#include "desktop/VantrellionApp.h"
#include "desktop/frmLogFilePath.h"
#include "support/Fakes.h"
#include "support/SavedConfiguration.h"
#include "support/TempDir.h"
#include "support/TempStore.h"

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
    // Resizes the window until its rows' area has the given size: the status bar takes its
    // final height only after a few layout passes.
    void BringClientTo(QSize size) {
        for (int n = 0; n < 5 && Window().centralWidget()->size() != size; ++n) {
            Window().resize(Window().size() + (size - Window().centralWidget()->size()));
            QApplication::processEvents();
        }
    }
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

TEST_F(ProgramWindows, TheRowsScaleWithTheWindowWithoutDrift) {
    Start();
    QWidget* client = Window().centralWidget();
    // The status bar may settle to another height once the window shows, which changes the
    // rows' area without a resize of the window: start from the area the design was recorded
    // at.
    const auto& recorded = *app->system().frmRelay.ResizeFormCntls;
    const QSize captured(recorded.DesignWidth / TwipsPerPixel,
                         recorded.DesignHeight / TwipsPerPixel);
    BringClientTo(captured);
    ASSERT_EQ(client->size(), captured);
    const std::vector<QWidget*> probes = {Window().fraRelayGroup[7], Window().txtStartTime[47],
                                          Window().imgHardStop[3], Window().lblCounter[0]};
    std::vector<QRect> design;
    for (QWidget* w : probes)
        design.push_back(w->geometry());
    const QSize base = client->size(), window = Window().size();

    for (double f : {1.5, 2.0, 1.0}) {
        Window().resize(window + QSize(int(base.width() * (f - 1)), int(base.height() * (f - 1))));
        QApplication::processEvents();
        const double fx = double(client->width()) / base.width();
        const double fy = double(client->height()) / base.height();
        for (size_t n = 0; n < probes.size(); ++n) {
            const QRect g = probes[n]->geometry();
            EXPECT_NEAR(g.x(), design[n].x() * fx, 1.0) << n << " at " << f;
            EXPECT_NEAR(g.y(), design[n].y() * fy, 1.0) << n << " at " << f;
            EXPECT_NEAR(g.width(), design[n].width() * fx, 1.0) << n << " at " << f;
            EXPECT_NEAR(g.height(), design[n].height() * fy, 1.0) << n << " at " << f;
        }
    }
    for (int n = 0; n < 100; ++n) {
        Window().resize(window + QSize(n * 7 % 300, n * 13 % 200));
        QApplication::processEvents();
    }
    Window().resize(window);
    QApplication::processEvents();
    // The status bar may have settled to another height meanwhile: bring the rows' area back
    // to its design size exactly.
    BringClientTo(base);
    ASSERT_EQ(client->size(), base);
    for (size_t n = 0; n < probes.size(); ++n)
        EXPECT_EQ(probes[n]->geometry(), design[n]) << n;
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

TEST(WindowPlaces, AChooserMovedAndResizedReopensThereAndAnUnknownWindowIsRefused) {
    TestSystem t;
    TempStore temp(t.s);
    t.mod().LogFilePath = temp.dir().Path();
    {
        frmLogFilePath first(t.s);
        RestoreFormPosition(t.s, first);  // centred on the screen
        const QRect screen = first.screen()->geometry();
        EXPECT_NEAR(first.x(), (screen.width() - first.width()) / 2, 1);
        first.show();
        first.move(40, 30);
        first.resize(500, 400);
        first.close();
        SaveFormPosition(t.s, first);
    }
    EXPECT_EQ(StoredPlace(temp.FilePath(), "frmLogFilePath"), Place(40, 30, 500, 400));
    frmLogFilePath again(t.s);
    RestoreFormPosition(t.s, again);
    EXPECT_EQ(again.geometry().topLeft(), QPoint(40, 30));
    EXPECT_EQ(again.size(), QSize(500, 400));

    QWidget stranger;
    stranger.setObjectName("frmStranger");
    stranger.move(7, 8);
    RestoreFormPosition(t.s, stranger);
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_EQ(t.messages.shown[0].Prompt, "Prior Position Not Set");
    EXPECT_EQ(t.messages.shown[0].Title, "Unsupported Form");
    EXPECT_EQ(stranger.pos(), QPoint(7, 8));
}

}  // namespace
}  // namespace vantrellion::test
