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

}  // namespace
}  // namespace vantrellion::test
