// The change reactions of the schedule fields, which depend on the field with the focus; the
// key rules are driven through the window.
#include <gtest/gtest.h>

#include "mainscreen/FieldEntry.h"
#include "mainscreen/RowTestSupport.h"

namespace vantrellion::test {
namespace {

class FieldEntryTest : public RowTest {};

TEST_F(FieldEntryTest, ChangeReactionsDependOnTheFieldWithTheFocus) {
    struct Case {
        Control field;
        int index;
        const char* active;
        bool echo;
        bool blanksTotal;    // of row 1
        bool restartsCycle;  // of row 1
    } cases[] = {
        // Only a change while an end time has the focus echoes the name.
        {Control::txtDisplayName, 1, "txtEndTime", true, false, false},
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
        EXPECT_EQ(t.screen.Text(Control::StatusBar1, 5), c.echo ? "> abc <" : "")
            << static_cast<int>(c.field) << c.active;
        EXPECT_EQ(t.display.totalCaption[1], c.blanksTotal ? " " : "01:00:00") << c.active;
        EXPECT_EQ(t.relay(1).CycleStart, c.restartsCycle ? 0 : 99) << c.active;
    }
}

}  // namespace
}  // namespace vantrellion::test
