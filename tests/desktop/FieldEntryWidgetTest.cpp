// Field entry on the real main window: typed keys, Tab, Enter, clicks into other fields, menu
// commands and the close, with the validation that runs when a field is left.
#include <gtest/gtest.h>

#include <QAction>

#include "tests/desktop/RowWindowFixture.h"

namespace vantrellion::test {
namespace {

constexpr const char* kBadTime =
    "Time Entered is NOT a valid Time, please re-enter\r\n\r\n"
    "Format is HH:MM:SS or HH:MM am/pm (:SS is optional)";

class FieldEntryWidgetTest : public RowWindowTest {
  protected:
    // The four ways of leaving a field that all validate it.
    enum class Leave { Tab, Enter, ClickIntoField, MenuCommand };
    bool commandRan = false;

    void SetUp() override {
        RowWindowTest::SetUp();
        w->OnMenu("mnuToolZeroCounters", [this](int) { commandRan = true; });
    }
    void LeaveBy(Leave how, QLineEdit* field) {
        switch (how) {
            case Leave::Tab:
                PressTab(field);
                break;
            case Leave::Enter:
                PressEnter(field);
                break;
            case Leave::ClickIntoField:
                QTest::mouseClick(w->txtDisplayName[7], Qt::LeftButton);
                break;
            case Leave::MenuCommand:
                w->Menu("mnuToolZeroCounters")->trigger();
                break;
        }
    }
    static bool WholeTextSelected(QLineEdit* f) {
        return f->hasSelectedText() && f->selectedText() == f->text();
    }
};

TEST_F(FieldEntryWidgetTest, ARefusedEntryKeepsTheFocusWithTheTextSelectedHoweverTheFieldIsLeft) {
    for (Leave how : {Leave::Tab, Leave::Enter, Leave::ClickIntoField, Leave::MenuCommand}) {
        struct Entry {
            QLineEdit* field;
            const char* typed;
            const char* shown;  // the field's text after the refusal
            const char* prompt;
        } entries[] = {
            {w->txtDaysOfWeek[2], "Mon", "Mon", "Invalid Days of Week Entered, please re-enter"},
            {w->txtDayHrEvenOdd[2], "zq", "ZQ", "Invalid Even/Odd Entered, please re-enter"},
            {w->txtStartTime[PairIndex(2, 1)], "25:00", "25:00", kBadTime},
            {w->txtEndTime[PairIndex(2, 4)], "half past", "half pas", kBadTime},
        };
        for (const Entry& e : entries) {
            t.messages.shown.clear();
            commandRan = false;
            Type(e.field, e.typed);
            LeaveBy(how, e.field);
            ASSERT_EQ(Prompts(), std::vector<std::string>{e.prompt})
                << static_cast<int>(how) << " " << e.typed;
            EXPECT_EQ(t.messages.shown[0].Title, "Entry Error");
            EXPECT_EQ(Focused(), e.field) << static_cast<int>(how) << " " << e.typed;
            EXPECT_EQ(e.field->text().toStdString(), e.shown);
            EXPECT_TRUE(WholeTextSelected(e.field)) << e.typed;
            EXPECT_FALSE(commandRan);
            // Put the field right again, so the next case can leave it.
            e.field->setText(" ");
            PressTab(e.field);
            EXPECT_NE(Focused(), e.field);
        }
    }
    // No refused text reached the records; the blanks put back are valid entries.
    EXPECT_EQ(t.relay(2).DaysOfWeek, " ");
    EXPECT_EQ(t.relay(2).DayHrEvenOdd, " ");
    EXPECT_EQ(t.frm().StartTime[PairIndex(2, 1)], "");
    EXPECT_EQ(t.frm().EndTime[PairIndex(2, 4)], "");
}

TEST_F(FieldEntryWidgetTest, AcceptedEntriesMoveOnAndReachTheRestartFile) {
    Type(w->txtDisplayName[1], "Pond pump");
    PressEnter(w->txtDisplayName[1]);
    EXPECT_EQ(Focused(), w->txtDaysOfWeek[1]);  // Enter moves by the tab order
    Type(w->txtDaysOfWeek[1], "246");
    PressTab(w->txtDaysOfWeek[1]);
    EXPECT_EQ(Focused(), w->txtDayHrEvenOdd[1]);
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

    EXPECT_TRUE(t.messages.shown.empty()) << Prompts()[0];
    EXPECT_EQ(t.relay(1).DisplayName, "Pond pump");
    EXPECT_EQ(t.relay(1).DaysOfWeek, "246");
    EXPECT_EQ(t.frm().StartTime[PairIndex(1, 0)], "7:15");
    EXPECT_EQ(t.frm().EndTime[PairIndex(1, 0)], "9:30 am");
    EXPECT_EQ(t.frm().StartTime[PairIndex(1, 3)], "1:00 PM");
    EXPECT_EQ(w->lblTotalTime[1]->text(), "02:45:00");
    EXPECT_EQ(t.frm().FileChanged, True);
    TestSystem u;
    ReadRestart(u);
    EXPECT_EQ(u.relay(1).DisplayName, "Pond pump");
    EXPECT_EQ(u.relay(1).DaysOfWeek, "246");
    EXPECT_EQ(u.frm().StartTime[PairIndex(1, 0)], "7:15");
    EXPECT_EQ(u.frm().EndTime[PairIndex(1, 0)], "9:30 am");
    EXPECT_EQ(u.frm().EndTime[PairIndex(1, 3)], "13:30");
}

TEST_F(FieldEntryWidgetTest, TheCodeFieldDropsDotsTurnsBlanksIntoZerosAndIsUpperCased) {
    struct Case {
        const char* keys;
        const char* typed;   // the field while typing
        const char* stored;  // after leaving it
    } cases[] = {
        {"e.d", "ed", "ED"}, {" ", "0", "0"},     {"  ", "00", "00"},
        {"3h", "3h", "3H"},  {"o.m", "om", "OM"},
    };
    for (const Case& c : cases) {
        QLineEdit* code = w->txtDayHrEvenOdd[4];
        t.relay(4).CycleStart = 1234;
        Type(code, c.keys);
        EXPECT_EQ(code->text().toStdString(), c.typed);
        EXPECT_EQ(t.relay(4).CycleStart, 0);  // every key restarts the cyclic method
        PressTab(code);
        EXPECT_EQ(Focused(), w->txtStartTime[PairIndex(4, 0)]) << c.keys;
        EXPECT_EQ(code->text().toStdString(), c.stored);
        EXPECT_EQ(t.relay(4).DayHrEvenOdd, c.stored);
    }
    EXPECT_TRUE(t.messages.shown.empty());
    TestSystem u;
    ReadRestart(u);
    EXPECT_EQ(u.relay(4).DayHrEvenOdd, "OM");
}

TEST_F(FieldEntryWidgetTest, StartEqualToEndIsRefusedFromBothSides) {
    const int k = PairIndex(0, 2);
    Type(w->txtStartTime[k], "09:00");
    PressTab(w->txtStartTime[k]);
    ASSERT_EQ(Focused(), w->txtEndTime[k]);
    QTest::keyClicks(w->txtEndTime[k], "9:00 am");
    PressTab(w->txtEndTime[k]);
    EXPECT_EQ(Prompts(), std::vector<std::string>{"ON time same as OFF"});
    EXPECT_EQ(Focused(), w->txtEndTime[k]);
    EXPECT_EQ(t.frm().EndTime[k], "");

    t.messages.shown.clear();
    Type(w->txtEndTime[k], "10:00");
    PressTab(w->txtEndTime[k]);
    Type(w->txtStartTime[k], "10.00");
    PressEnter(w->txtStartTime[k]);
    EXPECT_EQ(Prompts(), std::vector<std::string>{"ON time same as OFF"});
    EXPECT_EQ(Focused(), w->txtStartTime[k]);
    EXPECT_EQ(t.frm().StartTime[k], "09:00");

    t.messages.shown.clear();
    QTest::keyClicks(w->txtStartTime[k], "11:00");
    PressEnter(w->txtStartTime[k]);
    EXPECT_EQ(Prompts(), std::vector<std::string>{"ON time must be earlier then OFF time"});
    EXPECT_EQ(Focused(), w->txtStartTime[k]);
}

TEST_F(FieldEntryWidgetTest, TheOverlapWarningComparesTextsAndKeepsTheEntry) {
    t.mod().WarnOverLapTime = True;
    struct Case {
        const char* firstStart;
        bool warned;
    } cases[] = {{"09:00", true}, {"9:00", false}};
    for (const Case& c : cases) {
        t.messages.shown.clear();
        for (int p : {0, 1}) {  // clear the pairs, ends first
            Type(w->txtEndTime[PairIndex(3, p)], "");
            Type(w->txtStartTime[PairIndex(3, p)], "");
        }
        PressTab(w->txtStartTime[PairIndex(3, 1)]);
        Type(w->txtStartTime[PairIndex(3, 0)], c.firstStart);
        Type(w->txtEndTime[PairIndex(3, 0)], "12:00");
        Type(w->txtStartTime[PairIndex(3, 1)], "10:00");
        Type(w->txtEndTime[PairIndex(3, 1)], "11:00");
        PressTab(w->txtEndTime[PairIndex(3, 1)]);
        if (c.warned) {
            ASSERT_EQ(Prompts(),
                      std::vector<std::string>{"Your Last Entry Over-Laps another Time-Pair"});
            EXPECT_EQ(t.messages.shown[0].Title, "Warning !");
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
    ASSERT_EQ(t.messages.shown.size(), 1u);
    EXPECT_EQ(t.messages.shown[0].Title, "Unable to Create Restart File!");
    EXPECT_EQ(t.messages.shown[0].Prompt,
              "Start time Required with End time\r\nTo Remove time-pair...\r\n"
              "   Remove End time first\r\nTo create Time-pair...\r\n   Enter Start time first");
    EXPECT_NE(Focused(), w->txtEndTime[k]);
    EXPECT_EQ(t.frm().EndTime[k], "17:45");
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

TEST_F(FieldEntryWidgetTest, EchoesAndToolTips) {
    Focus(w->txtStartTime[PairIndex(0, 0)]);
    Type(w->txtDisplayName[2], "Lamp");
    EXPECT_EQ(Echo(), "> Relay 3 <");  // the name echoes when entered, not while typed
    Type(w->txtDaysOfWeek[2], "135");
    EXPECT_EQ(Echo(), "> 135 <");
    Type(w->txtDaysOfWeek[2], "");
    EXPECT_EQ(Echo(), "");

    EXPECT_TRUE(w->txtEndTime[9]->toolTip().isEmpty());
    MoveMouseOver(w->txtEndTime[9]);
    EXPECT_EQ(w->txtEndTime[9]->toolTip(), "End Time");
    MoveMouseOver(w->txtDayHrEvenOdd[1]);
    EXPECT_EQ(w->txtDayHrEvenOdd[1]->toolTip(),
              "(E)ven,(O)dd,(D)ay,(H)our,(M)inute,(S)econd, TH, MH, BH, ## Cyclic Minutes");
    EXPECT_EQ(Echo(), "> EO <");
}

}  // namespace
}  // namespace vantrellion::test
