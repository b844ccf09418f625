// Field entry on the real main window: typed keys, Tab, Enter, clicks into other fields, menu
// commands and the close, with the validation that runs when a field is left.
#include <gtest/gtest.h>

#include <QAction>
#include <cstdio>
#include <functional>

#include "tests/desktop/RowWindowFixture.h"

namespace vantrellion::test {
namespace {

constexpr const char* kBadTime =
    "Time Entered is NOT a valid Time, please re-enter\r\n\r\n"
    "Format is HH:MM:SS or HH:MM am/pm (:SS is optional)";

class FieldEntryWidgetTest : public RowWindowTest {
  protected:
    bool commandRan = false;

    void SetUp() override {
        RowWindowTest::SetUp();
        w->OnMenu("mnuToolZeroCounters", [this](int) { commandRan = true; });
    }
};

TEST_F(FieldEntryWidgetTest, ARefusedEntryKeepsTheFocusWithTheTextSelectedHoweverTheFieldIsLeft) {
    const int k = PairIndex(2, 0);  // the first pair of row 2
    for (int p : {0, 2, 3, 5})
        t.SetPair(2, p, "09:00", "10:00");
    FillRowsFromRecords(t.s);
    // The four ways of leaving a field, all of which validate it.
    const std::function<void(QLineEdit*)> leaveBy[] = {
        [&](QLineEdit* f) { PressTab(f); },
        [&](QLineEdit* f) { PressEnter(f); },
        [&](QLineEdit*) { QTest::mouseClick(w->txtDisplayName[7], Qt::LeftButton); },
        [&](QLineEdit*) { w->Menu("mnuToolZeroCounters")->trigger(); },
    };
    constexpr const char* kSame = "ON time same as OFF";
    constexpr const char* kLater = "ON time must be earlier then OFF time";
    struct Entry {
        QLineEdit* field;
        const std::string* record;
        const char* typed;
        const char* shown;  // the field's text after the refusal
        const char* prompt;
    } entries[] = {
        {w->txtDaysOfWeek[2], &t.relay(2).DaysOfWeek.Text(), "Mon", "Mon",
         "Invalid Days of Week Entered, please re-enter"},
        {w->txtDayHrEvenOdd[2], &t.relay(2).DayHrEvenOdd.Text(), "zq", "ZQ",
         "Invalid Even/Odd Entered, please re-enter"},
        {w->txtStartTime[k + 1], &t.frm().StartTime[k + 1].Text(), "25:00", "25:00", kBadTime},
        {w->txtEndTime[k + 4], &t.frm().EndTime[k + 4].Text(), "half past", "half pas", kBadTime},
        // The other side of the pair is set; times are compared as times, from both sides.
        {w->txtEndTime[k + 2], &t.frm().EndTime[k + 2].Text(), "9:00 am", "9:00 am", kSame},
        {w->txtStartTime[k + 3], &t.frm().StartTime[k + 3].Text(), "10.00", "10:00", kSame},
        {w->txtEndTime[k], &t.frm().EndTime[k].Text(), "8:59:59", "8:59:59", kLater},
        {w->txtStartTime[k + 5], &t.frm().StartTime[k + 5].Text(), "11:00", "11:00", kLater},
    };
    for (int how = 0; how < 4; ++how) {
        for (const Entry& e : entries) {
            SCOPED_TRACE(std::string(e.typed) + ", leaving by " + std::to_string(how));
            t.messages.shown.clear();
            commandRan = false;
            const std::string before = *e.record;
            Type(e.field, e.typed);
            std::remove(dir.File(RestartFileName).c_str());
            leaveBy[how](e.field);
            ExpectOneBox(t, e.prompt, "Entry Error");
            EXPECT_EQ(Focused(), e.field);
            EXPECT_EQ(e.field->text().toStdString(), e.shown);
            EXPECT_EQ(e.field->selectedText(), e.field->text());
            EXPECT_FALSE(commandRan);
            EXPECT_EQ(*e.record, before);
            EXPECT_FALSE(RestartWritten());
            e.field->setText(" ");  // right again, so that the next case can leave it
            PressTab(e.field);
            EXPECT_NE(Focused(), e.field);
        }
    }
}

TEST_F(FieldEntryWidgetTest, AcceptedEntriesMoveOnAndReachTheRestartFile) {
    Type(w->txtDisplayName[1], "Pond pump");
    PressEnter(w->txtDisplayName[1]);
    EXPECT_EQ(Focused(), w->txtDaysOfWeek[1]);  // Enter moves by the tab order
    Type(w->txtDaysOfWeek[1], "246");
    PressEnter(w->txtDaysOfWeek[1]);
    EXPECT_EQ(Focused(), w->txtDayHrEvenOdd[1]);
    QTest::keyClicks(w->txtDayHrEvenOdd[1], "e.d");  // "." is dropped
    EXPECT_EQ(w->txtDayHrEvenOdd[1]->text(), "ed");
    Type(w->txtStartTime[PairIndex(1, 0)], "7.15");  // "." becomes ":"
    EXPECT_EQ(w->txtStartTime[PairIndex(1, 0)]->text(), "7:15");
    PressTab(w->txtStartTime[PairIndex(1, 0)]);
    EXPECT_EQ(Focused(), w->txtEndTime[PairIndex(1, 0)]);
    QTest::keyClicks(w->txtEndTime[PairIndex(1, 0)], "9.30 am");
    QTest::mouseClick(w->txtStartTime[PairIndex(1, 3)], Qt::LeftButton);
    EXPECT_EQ(Focused(), w->txtStartTime[PairIndex(1, 3)]);
    Type(w->txtStartTime[PairIndex(1, 3)], "1:00 PM");
    Type(w->txtEndTime[PairIndex(1, 3)], "13:30");
    w->Menu("mnuToolZeroCounters")->trigger();
    EXPECT_TRUE(commandRan);

    EXPECT_EQ(Prompts(), std::vector<std::string>{});
    EXPECT_EQ(w->txtDayHrEvenOdd[1]->text(), "ED");  // upper-cased when left
    EXPECT_EQ(w->lblTotalTime[1]->text(), "02:45:00");
    EXPECT_EQ(t.frm().FileChanged, True);
    TestSystem u;
    ReadRestart(u);
    EXPECT_EQ(u.relay(1).DisplayName, "Pond pump");
    EXPECT_EQ(u.relay(1).DaysOfWeek, "246");
    EXPECT_EQ(u.relay(1).DayHrEvenOdd, "ED");
    EXPECT_EQ(u.frm().StartTime[PairIndex(1, 0)], "7:15");
    EXPECT_EQ(u.frm().EndTime[PairIndex(1, 0)], "9:30 am");
    EXPECT_EQ(u.frm().StartTime[PairIndex(1, 3)], "1:00 PM");
    EXPECT_EQ(u.frm().EndTime[PairIndex(1, 3)], "13:30");
}

TEST_F(FieldEntryWidgetTest, BlanksInTheCodeFieldBecomeZerosAndEveryKeyRestartsTheCycle) {
    QLineEdit* code = w->txtDayHrEvenOdd[4];
    t.relay(4).CycleStart = 1234;
    Type(code, "  ");
    EXPECT_EQ(code->text(), "00");
    EXPECT_EQ(t.relay(4).CycleStart, 0);
    PressTab(code);
    EXPECT_EQ(Focused(), w->txtStartTime[PairIndex(4, 0)]);
    EXPECT_EQ(t.relay(4).DayHrEvenOdd, "00");
    EXPECT_TRUE(t.messages.shown.empty());
}

TEST_F(FieldEntryWidgetTest, TheOverlapWarningComparesTextsFollowsTheSettingAndKeepsTheEntry) {
    struct Case {
        const char* firstStart;
        Flag warnOverLapTime;
        bool warned;
    } cases[] = {{"09:00", True, true}, {"09:00", False, false}, {"9:00", True, false}};
    for (const Case& c : cases) {
        t.mod().WarnOverLapTime = c.warnOverLapTime;
        t.SetPair(3, 0, c.firstStart, "12:00");
        t.SetPair(3, 1, "10:00", "");
        FillRowsFromRecords(t.s);
        t.messages.shown.clear();
        Type(w->txtEndTime[PairIndex(3, 1)], "11:00");
        PressTab(w->txtEndTime[PairIndex(3, 1)]);
        if (c.warned) {
            ExpectOneBox(t, "Your Last Entry Over-Laps another Time-Pair", "Warning !");
        } else {
            EXPECT_TRUE(t.messages.shown.empty()) << c.firstStart;
        }
        EXPECT_EQ(Focused(), w->txtStartTime[PairIndex(3, 2)]);  // a warning holds nothing
        EXPECT_EQ(t.frm().EndTime[PairIndex(3, 1)], "11:00");
    }
}

TEST_F(FieldEntryWidgetTest, AnEndTimeWithoutStartIsKeptAfterTheWarning) {
    const int k = PairIndex(5, 5);
    Type(w->txtEndTime[k], "17:45");
    PressEnter(w->txtEndTime[k]);
    ExpectOneBox(t,
                 "Start time Required with End time\r\nTo Remove time-pair...\r\n"
                 "   Remove End time first\r\nTo create Time-pair...\r\n   Enter Start time first",
                 "Unable to Create Restart File!");
    EXPECT_NE(Focused(), w->txtEndTime[k]);
    EXPECT_FALSE(PairIsSet(t.frm(), k));
    TestSystem u;
    ReadRestart(u);
    EXPECT_EQ(u.frm().EndTime[k], "17:45");
}

TEST_F(FieldEntryWidgetTest, AClickOnALabelDoesNotValidateButTheCloseDoes) {
    Type(w->txtDaysOfWeek[6], "Sun");
    QTest::mouseClick(w->lblManual[6], Qt::LeftButton);
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(Focused(), w->txtDaysOfWeek[6]);
    EXPECT_EQ(t.relay(6).Manual, True);  // the label's command ran

    bool unloaded = false;
    w->Unload = [&] { unloaded = true; };
    w->close();
    EXPECT_EQ(Prompts(), std::vector<std::string>{"Invalid Days of Week Entered, please re-enter"});
    EXPECT_TRUE(w->isVisible());
    EXPECT_FALSE(unloaded);
    EXPECT_EQ(Focused(), w->txtDaysOfWeek[6]);

    QTest::keyClicks(w->txtDaysOfWeek[6], "17");
    w->close();
    EXPECT_TRUE(unloaded);
    EXPECT_EQ(t.relay(6).DaysOfWeek, "17");
}

TEST_F(FieldEntryWidgetTest, FieldsEchoOnFocusAndWhileTypedExceptTheName) {
    Focus(w->txtStartTime[PairIndex(0, 0)]);
    Type(w->txtDisplayName[2], "Lamp");
    EXPECT_EQ(Echo(), "> Relay 3 <");  // the name echoes when entered, not while typed
    Type(w->txtDaysOfWeek[2], "135");
    EXPECT_EQ(Echo(), "> 135 <");
    Type(w->txtDaysOfWeek[2], "");
    EXPECT_EQ(Echo(), "");
}

}  // namespace
}  // namespace vantrellion::test
