// The run-time history window and its chart on the offscreen platform: bars in each relay's
// colour as high as its hours, the hover value, the day view, the CSV export, and the Tool
// menu entry of the running program.
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QTest>

#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"
#include "desktop/QtConvert.h"
#include "desktop/RunTimeHistoryChart.h"
#include "desktop/VantrellionApp.h"
#include "desktop/frmRunTimeHistory.h"
#include "support/Fakes.h"
#include "support/SavedConfiguration.h"
#include "tests/history/HistoryTestSupport.h"

namespace vantrellion::test {
namespace {

// Saturated group colours that the chart's grey and antialiasing never produce.
constexpr Color kColors[8] = {Rgb(230, 0, 0),   Rgb(0, 170, 0),   Rgb(0, 0, 230),
                              Rgb(230, 0, 230), Rgb(0, 200, 200), Rgb(230, 140, 0),
                              Rgb(120, 0, 200), Rgb(90, 60, 20)};

class RunTimeHistoryWidgetTest : public ::testing::Test {
  protected:
    TempDir dir;
    TestSystem t;
    const LocalSeconds d1 = Day(2026, 11, 14), d2 = d1 + SecondsPerDay;

    void SetUp() override {
        t.mod().LogFilePath = dir.Path();
        for (int g = 0; g < 8; ++g)
            t.mod().ColorRelayGroup[g] = kColors[g];
        t.clock.now = FromLocalSeconds(d2 + SecondsPerDay + At(9, 0));
        // Relay 1 on 12 hours, relay 2 six, relay 3 three, on both days; day 2 is cut at
        // 18:00 (the program stopped).
        auto pattern = [](int s) {
            Bytes b;
            if (s < At(12, 0)) b.relays |= 0x01;
            if (s >= At(6, 0) && s < At(12, 0)) b.relays |= 0x02;
            if (s >= At(9, 0) && s < At(12, 0)) b.relays |= 0x04;
            return b;
        };
        WriteDay(dir, d1, StateLines(0, 86400, pattern));
        WriteDay(dir, d2, StateLines(0, At(18, 0), pattern));
    }

    std::unique_ptr<frmRunTimeHistory> Open() {
        auto w = std::make_unique<frmRunTimeHistory>(t.s);
        w->dtpFrom->setDate(QDate(2026, 11, 14));
        w->dtpTo->setDate(QDate(2026, 11, 15));
        w->cmdShow->click();
        return w;
    }
};

// The height in pixels of the tallest run of a colour in any column of the picture.
int BarHeight(const QImage& img, Color c) {
    const QRgb want = ToQColor(c).rgb();
    int best = 0;
    for (int x = 0; x < img.width(); ++x) {
        int run = 0;
        for (int y = 0; y < img.height(); ++y) {
            run = img.pixel(x, y) == want ? run + 1 : 0;
            best = std::max(best, run);
        }
    }
    return best;
}

TEST_F(RunTimeHistoryWidgetTest, ChartHasABarPerRelayWithDataAsHighAsItsHours) {
    auto w = Open();
    const RunTimeHistory& h = w->History();
    ASSERT_EQ(h.Days.size(), 2u);
    const QImage img = RenderHistoryChart(h, w->Labels(), QSize(900, 600));
    const int h1 = BarHeight(img, kColors[0]), h2 = BarHeight(img, kColors[1]),
              h3 = BarHeight(img, kColors[2]);
    ASSERT_GT(h3, 10);
    EXPECT_NEAR(h1, 2 * h2, 3);
    EXPECT_NEAR(h2, 2 * h3, 3);
    for (int n = 3; n < 8; ++n)  // never on: no bar, no legend entry
        EXPECT_EQ(BarHeight(img, kColors[n]), 0) << "relay " << n + 1;

    // The window's own chart holds the same figures, with the hours not logged last, and
    // tells the value of the bar under the mouse.
    w->show();
    QApplication::processEvents();
    const HistoryChartLayout& l = w->chtHistory->Layout();
    ASSERT_EQ(l.Lanes, (std::vector<int>{0, 1, 2, NotLoggedLane}));
    ASSERT_EQ(l.Bars.size(), 8u);
    const auto bar = [&](int lane, int day) {
        for (const HistoryBar& b : l.Bars)
            if (b.Lane == lane && b.Day == day) return b;
        ADD_FAILURE() << "no bar " << lane << " " << day;
        return HistoryBar{};
    };
    EXPECT_DOUBLE_EQ(bar(0, 0).Hours, 12.0);
    EXPECT_DOUBLE_EQ(bar(2, 1).Hours, 3.0);
    EXPECT_DOUBLE_EQ(bar(NotLoggedLane, 0).Hours, 0.0);
    EXPECT_DOUBLE_EQ(bar(NotLoggedLane, 1).Hours, 6.0);
    EXPECT_NEAR(bar(0, 0).Rect.height(), l.Plot.height() / 2, 0.01);
    EXPECT_LT(bar(0, 0).Rect.right(), bar(1, 0).Rect.left() + 0.01);       // side by side
    EXPECT_LT(bar(NotLoggedLane, 0).Rect.right(), bar(0, 1).Rect.left());  // days apart

    const auto moveTo = [&](QPointF at) {
        QMouseEvent move(QEvent::MouseMove, at, w->chtHistory->mapToGlobal(at), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(w->chtHistory, &move);
    };
    moveTo(bar(1, 0).Rect.center());
    EXPECT_EQ(w->lblHover->text(), "Relay 2, 2026-11-14: 6.00 h");
    // Above a short bar still counts as that bar.
    moveTo(QPointF(bar(NotLoggedLane, 1).Rect.center().x(), l.Plot.top() + 2));
    EXPECT_EQ(w->lblHover->text(), "Not logged, 2026-11-15: 6.00 h");
    EXPECT_EQ(l.BarAt(QPointF(l.Plot.left() - 3, l.Plot.center().y())), nullptr);
}

TEST_F(RunTimeHistoryWidgetTest, AClickedBarShowsItsDayWithTheGapShaded) {
    auto w = Open();
    w->show();
    QApplication::processEvents();
    const HistoryChartLayout& l = w->chtHistory->Layout();
    const auto onDay2 = std::find_if(l.Bars.begin(), l.Bars.end(),
                                     [](const HistoryBar& b) { return b.Lane == 0 && b.Day == 1; });
    ASSERT_NE(onDay2, l.Bars.end());
    QTest::mouseClick(w->chtHistory, Qt::LeftButton, Qt::NoModifier,
                      onDay2->Rect.center().toPoint());
    EXPECT_EQ(w->dtpDay->date(), QDate(2026, 11, 15));
    const Timeline& day = w->tlDay->CurrentTimeline();
    EXPECT_EQ(day.Range.From, d2);
    ASSERT_EQ(day.Lanes.size(), 8u);
    EXPECT_EQ(day.Lanes[0].GroupColor, kColors[0]);
    ASSERT_EQ(day.Lanes[0].On.size(), 1u);
    EXPECT_EQ(day.Lanes[0].On[0].To, d2 + At(12, 0));
    ASSERT_EQ(day.Gaps.size(), 1u);
    EXPECT_EQ(day.Gaps[0].From, d2 + At(18, 0));
}

TEST_F(RunTimeHistoryWidgetTest, ExportsWriteTheCsvAndThePictures) {
    auto w = Open();
    t.dialogs.answers = {dir.File("out.csv"), dir.File("chart.png"), dir.File("day.png"),
                         std::string("/nonexistent/dir/x.csv")};
    w->cmdExportCsv->click();
    w->cmdExportPng->click();
    w->cmdExportDayPng->click();
    EXPECT_EQ(dir.Read("out.csv"), HistoryCsv(w->History(), w->Labels()));
    EXPECT_FALSE(QImage(Q(dir.File("chart.png"))).isNull());
    EXPECT_FALSE(QImage(Q(dir.File("day.png"))).isNull());
    EXPECT_TRUE(t.messages.shown.empty());
    w->cmdExportCsv->click();
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_EQ(t.messages.shown[0].Prompt,
              "The file could not be written:\r\n/nonexistent/dir/x.csv");
}

TEST(RunTimeHistoryMenu, ToolMenuEndsWithTheEntryAndItsWindowLeavesTheTickRunning) {
    TempDir dir;
    FakeClock clock;
    clock.now = DateTime{2026, 11, 16, 9, 30, 0, 2};
    SimulatedPorts ports;
    { SaveTestConfiguration(dir, True, True); }
    VantrellionApp app({dir.Path(), &clock, &ports, nullptr, nullptr, {}});
    ASSERT_TRUE(app.Main());
    QMenu* tool = app.MainWindow()->SubMenu("mnuTool");
    const QList<QAction*> items = tool->actions();
    ASSERT_GE(items.size(), 2);
    EXPECT_EQ(items.back()->objectName(), "mnuToolRunTimeHistory");

    items.back()->trigger();
    auto* window = app.MainWindow()->findChild<frmRunTimeHistory*>("frmRunTimeHistory");
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(window->isModal());
    EXPECT_TRUE(app.Timer().IsEnabled());
    items.back()->trigger();  // brings the same window to the front
    EXPECT_EQ(app.MainWindow()->findChildren<frmRunTimeHistory*>().size(), 1);
    window->close();
    QApplication::processEvents();
    app.MainWindow()->Unload = nullptr;
}

}  // namespace
}  // namespace vantrellion::test
