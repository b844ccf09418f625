// The main screen's remembered place, read back from store.db, on the offscreen platform.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <memory>

#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"
#include "configuration/modRegAPI.h"
#include "desktop/QtConvert.h"
#include "desktop/SchedulePreviewWindow.h"
#include "desktop/VantrellionApp.h"
#include "desktop/frmRunTimeHistory.h"
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

TEST_F(ProgramWindows, ANameShowsItsStartAndMoreOfItInAWiderRowAndTextsGrowWithTheWindow) {
    Start();
    frmRelay& w = Window();
    QLineEdit* name = w.txtDisplayName[3];
    const QString gewaechshaus = QString::fromUtf8("Gewächshaus Ω");
    w.SetText(Control::txtDisplayName, 3, S(gewaechshaus));  // as a Run File fills the row
    EXPECT_EQ(name->text(), gewaechshaus);
    EXPECT_EQ(name->cursorPosition(), 0);
    name->setFocus();                   // with the whole text selected
    for (const QChar c : gewaechshaus)  // typed, a row takes nine characters
        QTest::sendKeyEvent(QTest::Click, name, Qt::Key_unknown, QString(c), Qt::NoModifier);
    QTest::keyClick(name, Qt::Key_Tab);
    EXPECT_EQ(name->text(), gewaechshaus.left(9));
    EXPECT_EQ(name->cursorPosition(), 0);

    const int width = w.width();
    const double points = name->font().pointSizeF();
    const int room = TextRoom(name);
    w.resize(2 * width, w.height());
    QApplication::processEvents();
    EXPECT_EQ(name->font().pointSizeF(), points);
    EXPECT_GT(TextRoom(name), 3 * room / 2);
    w.resize(2 * width, 2 * w.height());
    QApplication::processEvents();
    EXPECT_GT(name->font().pointSizeF(), 1.5 * points);

    // A long hint stays within the status bar, and the window keeps its width.
    w.resize(width, w.height());
    w.SetStatusFont(11, true);
    w.SetText(Control::StatusBar1, 5, "> " + std::string(120, 'W') + " <");
    QApplication::processEvents();
    EXPECT_EQ(w.width(), width);
    EXPECT_LE(w.StatusPanel[4]->geometry().right(), w.StatusBar1->contentsRect().right());
}

TEST(FileDialogs, OpenWideEnoughToShowEveryColumnOfTheirList) {
    TempDir dir;
    // A larger font widens the columns more than Qt's own size for the dialog.
    const QFont font = QApplication::font();
    QApplication::setFont(QFont("Arial", 12));
    QtFileDialogs dialogs;
    dialogs.startDirectory = dir.Path();
    int seen = 0;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* d = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!d || !d->isVisible()) return;
        const auto* list = d->findChild<QTreeView*>("treeView");
        EXPECT_LE(list->header()->length(), list->viewport()->width());
        ++seen;
        d->reject();
    });
    poll.start(5);
    dialogs.ShowOpen({"Open", "Run File (*.run)|*.run", "", "", 0x1000});
    dialogs.ShowSave({"Save As", "Run File (*.run)|*.run", "", "", 2});
    EXPECT_EQ(seen, 2);
    QApplication::setFont(font);
}

// The offscreen screen, 800 pixels wide, is narrower than the preview and history windows ask.
TEST_F(ProgramWindows, EveryWindowOpensWithinTheScreenAndTheClockBesideTheRows) {
    {  // a place remembered from a larger screen
        KeyValueStore store(dir.File("store.db"));
        TestSystem t;
        t.s.platform.store = &store;
        RegWriteValue(t.s, HKEY_LOCAL_MACHINE, "SOFTWARE\\Vantrellion\\Startup", "String",
                      "frmRelay", Place(1500, 1000, 1800, 1100));
    }
    Start();
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    const auto inside = [&](const QWidget* w) {
        return area.contains(QRect(w->mapToGlobal(QPoint(0, 0)), w->size())) &&
               area.contains(w->window()->frameGeometry());
    };
    EXPECT_TRUE(inside(&Window()));
    Window().Menu("mnuToolSchedulePreview")->trigger();
    Window().findChild<QAction*>("mnuToolRunTimeHistory")->trigger();
    QApplication::processEvents();
    auto* preview = Window().findChild<SchedulePreviewWindow*>();
    auto* history = Window().findChild<frmRunTimeHistory*>();
    ASSERT_TRUE(preview && history);
    for (const char* name : {"exportPng", "exportSvg", "exportCsv"})
        EXPECT_TRUE(inside(preview->findChild<QPushButton*>(name))) << name;
    for (const char* name : {"cmdExportPng", "cmdExportCsv", "cmdExportDayPng"})
        EXPECT_TRUE(inside(history->findChild<QPushButton*>(name))) << name;

    Window().Menu("mnuHelpTimeWin")->trigger();
    QApplication::processEvents();
    const QWidget* clock = Window().TimeWindow();
    ASSERT_TRUE(clock && clock->isVisible());
    EXPECT_TRUE(inside(clock));
    EXPECT_FALSE(clock->frameGeometry().intersects(Window().frameGeometry()));
}

}  // namespace
}  // namespace vantrellion::test
