// The Tool menu's schedule preview: the entry comes last after a separator, the window shows
// the main screen's schedule as a timeline with its warnings, computes without holding up the
// tick.
#include <QAction>
#include <QMenu>
#include <QTest>

#include "core/DateTimeText.h"
#include "desktop/SchedulePreviewMenu.h"
#include "desktop/SchedulePreviewWindow.h"
#include "preview/PreviewReport.h"
#include "support/TempDir.h"
#include "tests/desktop/RowWindowFixture.h"

namespace vantrellion::test {
namespace {

class SchedulePreviewWindowTest : public RowWindowTest {
  protected:
    void SetUp() override {
        RowWindowTest::SetUp();
        WireSchedulePreviewMenu(t.s, *w);
        t.relay(0).DisplayName = "Pump";
        w->txtDisplayName[0]->setText("Pump");  // as the row shows it
        t.mod().ColorRelayGroup[0] = Rgb(200, 0, 0);
        t.SetPair(0, 0, "08:00", "09:00");
        t.SetPair(1, 0, "10:00", "09:00");  // never on
        t.clock.now = DateTime{2026, 11, 16, 7, 0, 0, 2};
    }
    SchedulePreviewWindow* Open() {
        w->Menu("mnuToolSchedulePreview")->trigger();
        auto* win = w->findChild<SchedulePreviewWindow*>();
        if (win) WaitUntilDone(win);
        return win;
    }
    static void WaitUntilDone(SchedulePreviewWindow* win) {
        EXPECT_TRUE(QTest::qWaitFor([win] { return !win->Busy() && win->Result(); }, 60000));
    }
};

TEST_F(SchedulePreviewWindowTest, ShowsTheScheduleWarningsAndSwitchTimesWithoutStoppingTheTick) {
    const bool timerBefore = t.timer.IsEnabled();
    const FrmRelay before = t.frm();
    SchedulePreviewWindow* win = Open();
    ASSERT_NE(win, nullptr);
    ASSERT_TRUE(win->Result());
    EXPECT_TRUE(win->isVisible());
    EXPECT_FALSE(win->isModal());
    EXPECT_EQ(t.timer.IsEnabled(), timerBefore);
    EXPECT_EQ(t.frm().PairActive, before.PairActive);
    EXPECT_EQ(t.relay(0).OldState, before.Relay[0].OldState);

    // Seven days from now by default, eight lanes, the pump on from 08:00:01 each day.
    const PreviewResult& r = *win->Result();
    EXPECT_EQ(r.Range.Length(), 7 * 86400);
    const Timeline& line = win->timeline->CurrentTimeline();
    ASSERT_EQ(line.Lanes.size(), 8u);
    EXPECT_EQ(line.Lanes[0].Name, "Pump");
    ASSERT_EQ(line.Lanes[0].On.size(), 7u);
    EXPECT_EQ(DateTimeText(line.Lanes[0].On[0].From), "2026-11-16 08:00:01");
    ASSERT_GE(win->warnings->count(), 1);
    EXPECT_TRUE(win->warnings->item(0)->text().contains("never switches on"));

    // A second click on the entry brings the same window back.
    w->Menu("mnuToolSchedulePreview")->trigger();
    EXPECT_EQ(w->findChildren<SchedulePreviewWindow*>().size(), 1);
    WaitUntilDone(win);
}

// A start typed into From is taken as typed, and exports start in the documents folder and
// get the type's extension.
TEST_F(SchedulePreviewWindowTest, TakesTheTypedStartAsTypedAndExportsWithTheTypesExtension) {
    SchedulePreviewWindow* win = Open();
    ASSERT_NE(win, nullptr);
    win->fromDate->setChecked(true);
    WaitUntilDone(win);
    win->date->selectAll();
    QTest::keyClicks(win->date, "2026-11-28 06:30:00");
    QTest::keyClick(win->date, Qt::Key_Return);
    WaitUntilDone(win);
    EXPECT_EQ(DateTimeText(win->Result()->Range.From), "2026-11-28 06:30:00");

    TempDir dir;
    t.dialogs.answers = {dir.File("week")};
    EXPECT_TRUE(win->ExportCsv());
    EXPECT_EQ(t.dialogs.saved.back().InitialDirectory, kDocuments);
    EXPECT_EQ(dir.Read("week.csv").substr(0, 23), "time,relay,name,state\r\n");
}

}  // namespace
}  // namespace vantrellion::test
