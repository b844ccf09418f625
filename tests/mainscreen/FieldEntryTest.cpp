// The field events other than validation: the key rules, the change reactions that depend on
// the field with the focus, the echo in the status bar and the lazy tool tips.
#include <gtest/gtest.h>

#include "mainscreen/FieldEntry.h"
#include "mainscreen/RowTestSupport.h"
#include "mainscreen/ToolTips.h"

namespace vantrellion::test {
namespace {

class FieldEntryTest : public RowTest {
  protected:
    std::string Echo() const { return t.screen.Text(Control::StatusBar1, 5); }
};

TEST_F(FieldEntryTest, KeyRulesOfEachKindOfField) {
    struct Case {
        Control field;
        int key;
        int passed;
        bool tab;
        bool restartsCycle;
    } cases[] = {
        {Control::txtDayHrEvenOdd, '.', 0, false, true},
        {Control::txtDayHrEvenOdd, ' ', '0', false, true},
        {Control::txtDayHrEvenOdd, 'e', 'e', false, true},
        {Control::txtDayHrEvenOdd, 8, 8, false, true},
        {Control::txtDayHrEvenOdd, KeyEnter, KeyEnter, true, true},
        {Control::txtStartTime, '.', ':', false, false},
        {Control::txtEndTime, '.', ':', false, false},
        {Control::txtEndTime, ' ', ' ', false, false},
        {Control::txtStartTime, KeyEnter, KeyEnter, true, false},
        {Control::txtDisplayName, '.', '.', false, false},
        {Control::txtDisplayName, KeyEnter, KeyEnter, true, false},
        {Control::txtDaysOfWeek, ' ', ' ', false, false},
        {Control::txtDaysOfWeek, KeyEnter, KeyEnter, true, false},
    };
    for (const Case& c : cases) {
        t.relay(0).CycleStart = 4321;
        const KeyPressResult r = Field_KeyPress(t.s, c.field, 0, c.key);
        EXPECT_EQ(r.KeyAscii, c.passed) << c.key;
        EXPECT_EQ(r.SendTab, c.tab) << c.key;
        EXPECT_EQ(t.relay(0).CycleStart, c.restartsCycle ? 0 : 4321) << c.key;
    }
}

TEST_F(FieldEntryTest, ChangeReactionsDependOnTheFieldWithTheFocus) {
    struct Case {
        Control field;
        int index;
        const char* active;
        bool echo;
        bool blanksTotal;    // of row 1
        bool restartsCycle;  // of row 1
    } cases[] = {
        // Typing a name shows nothing; only a change while an end time has the focus echoes.
        {Control::txtDisplayName, 1, "txtDisplayName", false, false, false},
        {Control::txtDisplayName, 1, "txtEndTime", true, false, false},
        {Control::txtDaysOfWeek, 1, "txtDaysOfWeek", true, false, false},
        {Control::txtDaysOfWeek, 1, "txtStartTime", false, false, false},
        {Control::txtDayHrEvenOdd, 1, "txtDayHrEvenOdd", true, true, false},
        {Control::txtDayHrEvenOdd, 1, "", true, false, false},
        {Control::txtStartTime, PairIndex(1, 0), "txtStartTime", true, true, true},
        {Control::txtStartTime, PairIndex(1, 0), "txtEndTime", false, false, false},
        {Control::txtStartTime, PairIndex(1, 3), "txtStartTime", true, false, false},
        {Control::txtEndTime, PairIndex(1, 0), "txtEndTime", true, true, true},
        {Control::txtEndTime, PairIndex(1, 5), "txtEndTime", true, false, false},
    };
    for (const Case& c : cases) {
        t.screen.text.clear();
        t.display.totalCaption[1] = "01:00:00";
        t.relay(1).CycleStart = 99;
        Field_Change(t.s, c.field, c.index, "abc", c.active);
        EXPECT_EQ(Echo(), c.echo ? "> abc <" : "") << static_cast<int>(c.field) << c.active;
        EXPECT_EQ(t.display.totalCaption[1], c.blanksTotal ? " " : "01:00:00") << c.active;
        EXPECT_EQ(t.relay(1).CycleStart, c.restartsCycle ? 0 : 99) << c.active;
    }
}

TEST_F(FieldEntryTest, EchoIsSilentWhileRowsAreRefilledAndClearedByAnEmptyField) {
    Field_GotFocus(t.s, Control::txtStartTime, 3, "8:30");
    EXPECT_EQ(Echo(), "> 8:30 <");
    EXPECT_EQ(t.screen.statusFontSize, 11);
    EXPECT_TRUE(t.screen.statusFontBold);

    Field_GotFocus(t.s, Control::txtDaysOfWeek, 3, "");
    EXPECT_EQ(Echo(), "");
    EXPECT_EQ(t.screen.statusFontSize, 8);
    EXPECT_FALSE(t.screen.statusFontBold);

    t.frm().RowsShown = False;
    Field_Change(t.s, Control::txtDayHrEvenOdd, 3, "ED", "txtDayHrEvenOdd");
    Field_GotFocus(t.s, Control::txtDisplayName, 3, "Pump");
    EXPECT_EQ(Echo(), "");
}

TEST_F(FieldEntryTest, ToolTipsComeFromTheStringTableOnTheFirstMove) {
    struct Case {
        Control field;
        const char* tip;
    } cases[] = {
        {Control::txtDisplayName, "User Defined Relay Name "},
        {Control::txtDaysOfWeek,
         "Selected Days of week: 1=Sun,2=Mon,3=Tue,4=Wed,5=Thur,6=Fri,7=Sat "},
        {Control::txtEndTime, "End Time"},
        {Control::txtStartTime, "Start Time"},
        {Control::txtDayHrEvenOdd,
         "(E)ven,(O)dd,(D)ay,(H)our,(M)inute,(S)econd, TH, MH, BH, ## Cyclic Minutes"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Field_MouseMove(t.s, c.field, "x1", ""), c.tip);
        EXPECT_EQ(Echo(), "> x1 <");
        EXPECT_EQ(Field_MouseMove(t.s, c.field, "x1", "set by hand"), "set by hand");
    }
}

}  // namespace
}  // namespace vantrellion::test
