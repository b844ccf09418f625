// The row commands on the real main window: clicks and presses on the labels and images, their
// effect on the record, on the row's controls and on the restart file; the tool tips and echoes
// of mouse moves over a row.
#include <gtest/gtest.h>

#include <QImage>

#include "tests/desktop/RowWindowFixture.h"

namespace vantrellion::test {
namespace {

class RowCommandsWidgetTest : public RowWindowTest {
  protected:
    void Click(QWidget* control) { QTest::mouseClick(control, Qt::LeftButton); }
    void Press(QWidget* control, Qt::MouseButton button) {
        QTest::mousePress(control, button);
        QTest::mouseRelease(control, button);
    }
    // The four controls that a stop holds.
    void ExpectHeld(int i, bool held) {
        EXPECT_EQ(w->txtDayHrEvenOdd[i]->isEnabled(), !held);
        EXPECT_EQ(w->lblManual[i]->isEnabled(), !held);
        EXPECT_EQ(w->lblInvert[i]->isEnabled(), !held);
        EXPECT_EQ(w->lblCounter[i]->isEnabled(), !held);
    }
};

TEST_F(RowCommandsWidgetTest, StopThenReleaseKeepsManual) {
    const auto expectRestartFile = [&](Flag hardStop) {
        TestSystem u;
        ReadRestart(u);
        EXPECT_EQ(u.relay(2).HardStop, hardStop);
        EXPECT_EQ(u.relay(2).Manual, True);
    };
    Click(w->lblManual[2]);
    EXPECT_EQ(t.relay(2).Manual, True);

    Click(w->imgHardStop[2]);
    EXPECT_EQ(t.relay(2).HardStop, True);
    ExpectHeld(2, true);
    Click(w->lblManual[2]);  // held: the click does not reach the command
    Press(w->lblCounter[2], Qt::LeftButton);
    EXPECT_EQ(t.relay(2).Manual, True);
    EXPECT_EQ(t.relay(2).CounterOn, False);
    expectRestartFile(True);

    w->lblTotalTime[2]->setText("> STOP <");
    w->SetDayHrEvenOddBackground(2, t.mod().ColorManualOFF);  // as the tick greys a stopped row
    Click(w->lblTotalTime[2]);                                // the stop text releases the stop
    EXPECT_EQ(t.relay(2).HardStop, False);
    EXPECT_EQ(t.relay(2).Manual, True);
    ExpectHeld(2, false);
    // The code field is a plain field again, not grey.
    EXPECT_EQ(w->txtDayHrEvenOdd[2]->palette().color(QPalette::Base),
              QApplication::palette(w->txtDayHrEvenOdd[2]).color(QPalette::Base));
    EXPECT_EQ(w->lblTotalTime[2]->text(), "00:00:00");
    EXPECT_EQ(t.frm().FileChanged, False);
    expectRestartFile(False);
}

TEST_F(RowCommandsWidgetTest, TheTotalOfARunningRowAndAMovedAwayClickDoNothing) {
    Click(w->lblTotalTime[0]);
    // A press on Manual released over another control is no click.
    QTest::mousePress(w->lblManual[0], Qt::LeftButton);
    QTest::mouseRelease(w->lblManual[0], Qt::LeftButton, {}, QPoint(-5, -5));
    EXPECT_EQ(t.relay(0).HardStop, False);
    EXPECT_EQ(t.relay(0).Manual, False);
    EXPECT_FALSE(RestartWritten());
}

TEST_F(RowCommandsWidgetTest, ManualAndInvertToggleAndOnlyManualRestartsTheCycle) {
    t.SetPair(5, 0, "08:00", "08:20");
    FillRowsFromRecords(t.s);
    for (QLabel* label : {w->lblManual[5], w->lblInvert[5]}) {
        const bool manual = label == w->lblManual[5];
        for (Flag on : {True, False}) {
            std::remove(dir.File(RestartFileName).c_str());
            t.relay(5).CycleStart = 700;
            w->lblTotalTime[5]->setText("x");
            Click(label);
            EXPECT_EQ(manual ? t.relay(5).Manual : t.relay(5).Invert, on);
            EXPECT_EQ(t.relay(5).CycleStart, manual ? 0 : 700);
            // Only switching off clears the total, which is then computed again.
            EXPECT_EQ(w->lblTotalTime[5]->text(), on ? "x" : "00:20:00");
            EXPECT_TRUE(RestartWritten());
        }
    }
    EXPECT_EQ(t.frm().FileChanged, False);
}

TEST_F(RowCommandsWidgetTest, CounterPressesTellTheButtonsApart) {
    t.relay(4).Count = 9;
    struct Step {
        Qt::MouseButton button;
        Flag counterOn;
        const char* caption;
    } steps[] = {
        {Qt::RightButton, False, "0"},  // an inactive counter shows "0", not "Counter"
        {Qt::LeftButton, True, "0"},
        {Qt::MiddleButton, True, "0"},
        {Qt::LeftButton, False, "Counter"},
    };
    for (const Step& st : steps) {
        std::remove(dir.File(RestartFileName).c_str());
        Press(w->lblCounter[4], st.button);
        EXPECT_EQ(t.relay(4).CounterOn, st.counterOn);
        EXPECT_EQ(t.relay(4).Count, 0);
        EXPECT_EQ(w->lblCounter[4]->text().toStdString(), st.caption);
        EXPECT_TRUE(RestartWritten());
    }
    TestSystem u;
    ReadRestart(u);
    EXPECT_EQ(u.relay(4).CounterOn, False);
    EXPECT_EQ(u.relay(4).Count, 0);
}

TEST_F(RowCommandsWidgetTest, TheIconDialogStoresTheChosenPathAndKeepsABorrowedPathOnCancel) {
    QImage picture(16, 16, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const std::string file = dir.File("pump.png");
    ASSERT_TRUE(picture.save(QString::fromStdString(file)));

    t.dialogs.answers.push_back(file);
    Click(w->imgIDIcon[1]);
    ASSERT_EQ(t.dialogs.opened.size(), 1u);
    EXPECT_EQ(t.relay(1).IconFile, file);
    EXPECT_FALSE(w->imgIDIcon[1]->pixmap().isNull());
    EXPECT_EQ(t.frm().FileChanged, True);

    const std::string broken = dir.File("broken.png");
    dir.Write("broken.png", "not a picture");
    t.dialogs.answers.push_back(broken);
    const qint64 shown = w->imgIDIcon[2]->pixmap().cacheKey();
    Click(w->imgIDIcon[2]);
    EXPECT_EQ(t.relay(2).IconFile, broken);                  // kept although it cannot be shown
    EXPECT_EQ(w->imgIDIcon[2]->pixmap().cacheKey(), shown);  // the row keeps its picture
    EXPECT_TRUE(t.messages.shown.empty());

    Click(w->imgIDIcon[7]);  // cancelled
    ASSERT_EQ(t.dialogs.opened.size(), 3u);
    EXPECT_EQ(t.dialogs.opened[2].InitialDirectory, dir.Path());
    EXPECT_EQ(t.dialogs.opened[2].FileName, "pump.png");
    EXPECT_EQ(t.relay(7).IconFile, file);
    TestSystem u;
    ReadRestart(u);
    EXPECT_EQ(u.relay(1).IconFile, file);
    EXPECT_EQ(u.relay(2).IconFile, broken);
    EXPECT_EQ(u.relay(7).IconFile, "");  // the cancel wrote nothing
}

}  // namespace
}  // namespace vantrellion::test
