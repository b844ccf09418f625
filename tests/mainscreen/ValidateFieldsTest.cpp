// The validators of the schedule fields: what they accept, what they refuse with which
// message, and what an accepted change leaves in the records and the restart file.
#include <gtest/gtest.h>

#include "mainscreen/RowTestSupport.h"
#include "mainscreen/ValidateFields.h"

namespace vantrellion::test {
namespace {

constexpr const char* kBadTime =
    "Time Entered is NOT a valid Time, please re-enter\r\n\r\n"
    "Format is HH:MM:SS or HH:MM am/pm (:SS is optional)";

class ValidateFieldsTest : public RowTest {};

TEST_F(ValidateFieldsTest, DaysOfWeekAcceptsTheNamedFormsAndNumbersOnly) {
    struct Case {
        const char* text;
        bool accepted;
    } cases[] = {
        {"All Days", true}, {"ALL Days", true},  {"All", true},       {"ALL", true},
        {"Days", true},     {" ", true},         {"", true},          {"246", true},
        {"1234567", true},  {"all days", false}, {"ALL DAYS", false}, {"Mon", false},
        {"2 4 6", false},   {"2,4", false},
    };
    for (const Case& c : cases) {
        TestSystem u;
        u.s.platform.machineDirectory = dir.Path();
        u.relay(3).DaysOfWeek = "135";
        u.relay(3).CycleStart = 777;
        std::string text = c.text;
        EXPECT_EQ(ValidateDaysOfWeek(u.s, 3, text), c.accepted) << c.text;
        if (c.accepted) {
            EXPECT_EQ(u.relay(3).DaysOfWeek, c.text);
            EXPECT_EQ(u.relay(3).CycleStart, 0) << c.text;
            EXPECT_EQ(u.display.invertCaption[3], "Invert");
            EXPECT_EQ(u.frm().FileChanged, True);
            EXPECT_TRUE(u.messages.shown.empty()) << c.text;
        } else {
            ASSERT_EQ(u.messages.shown.size(), 1u) << c.text;
            const MessageBoxRequest& m = u.messages.shown[0];
            EXPECT_EQ(m.Prompt, "Invalid Days of Week Entered, please re-enter");
            EXPECT_EQ(m.Title, "Entry Error");
            EXPECT_EQ(m.BoxIcon, Icon::Exclamation);
            EXPECT_EQ(m.ButtonSet, Buttons::OK);
            EXPECT_EQ(u.relay(3).DaysOfWeek, "135");
            EXPECT_EQ(u.relay(3).CycleStart, 777);
            EXPECT_EQ(u.frm().FileChanged, False);
        }
    }
}

TEST_F(ValidateFieldsTest, EvenOddIsUpperCasedAndCutBeforeTheCheck) {
    struct Case {
        const char* typed;
        const char* field;  // the field's text afterwards
        bool accepted;
    } cases[] = {
        {"ed", "ED", true},  {"eD", "ED", true},  {"3h", "3H", true},  {"xs", "XS", true},
        {"eox", "EO", true}, {"  ", "  ", true},  {"", "", true},      {"5", "5", true},
        {"00", "00", true},  {"-5", "-5", true},  {"zz", "ZZ", false}, {"E", "E", false},
        {"3", "3", true},    {"hh", "HH", false},
    };
    for (const Case& c : cases) {
        TestSystem u;
        u.s.platform.machineDirectory = dir.Path();
        u.relay(0).CycleStart = 55;
        std::string text = c.typed;
        EXPECT_EQ(ValidateDayHrEvenOdd(u.s, 0, text), c.accepted) << c.typed;
        EXPECT_EQ(text, c.field);
        if (text != c.typed) {
            EXPECT_EQ(u.screen.Text(Control::txtDayHrEvenOdd, 0), c.field);
        }
        if (c.accepted) {
            // Only a code that differs from the stored one restarts the cyclic method.
            EXPECT_EQ(u.relay(0).DayHrEvenOdd, c.field);
            EXPECT_EQ(u.relay(0).CycleStart, std::string(c.field) == "EO" ? 55 : 0) << c.typed;
        } else {
            ASSERT_EQ(u.messages.shown.size(), 1u);
            EXPECT_EQ(u.messages.shown[0].Prompt, "Invalid Even/Odd Entered, please re-enter");
            EXPECT_EQ(u.messages.shown[0].Title, "Entry Error");
            EXPECT_EQ(u.relay(0).DayHrEvenOdd, "EO");
            EXPECT_EQ(u.relay(0).CycleStart, 55);
        }
    }
}

TEST_F(ValidateFieldsTest, ANumericCodeDropsInvertAndAnotherCodeRestoresTheInvertLabel) {
    t.relay(2).Invert = True;
    t.SetPair(2, 0, "08:00", "09:00");
    std::string text = "5";
    ASSERT_TRUE(ValidateDayHrEvenOdd(t.s, 2, text));
    EXPECT_EQ(t.relay(2).Invert, False);
    EXPECT_EQ(t.display.totalCaption[2], "00:30:00");  // the cyclic total of the first pair
    EXPECT_EQ(t.display.invertCaption.count(2), 0u);

    t.display.invertCaption[2] = "08:05:00";
    text = "eh";
    ASSERT_TRUE(ValidateDayHrEvenOdd(t.s, 2, text));
    EXPECT_EQ(t.display.invertCaption[2], "Invert");
    EXPECT_EQ(t.display.totalCaption[2], "00:30:00");  // half of the hour
}

TEST_F(ValidateFieldsTest, AnUnchangedEntryWritesNothing) {
    t.relay(1).DisplayName = "Pump";
    t.relay(1).DaysOfWeek = "All Days";
    t.SetPair(1, 2, "08:00", "09:00");
    std::string name = "Pump", days = "All Days", start = "08:00", end = "09:00";
    EXPECT_TRUE(ValidateDisplayName(t.s, 1, name));
    EXPECT_TRUE(ValidateDaysOfWeek(t.s, 1, days));
    EXPECT_TRUE(ValidateStartTime(t.s, PairIndex(1, 2), start));
    EXPECT_TRUE(ValidateEndTime(t.s, PairIndex(1, 2), end));
    EXPECT_EQ(t.frm().FileChanged, False);
    EXPECT_FALSE(RestartWritten());
    EXPECT_TRUE(t.messages.shown.empty());
}

TEST_F(ValidateFieldsTest, TimesAreReadWithTheEngineParserAndCutToEight) {
    struct Case {
        const char* typed;
        const char* stored;  // nullptr when refused
    } cases[] = {
        {"8:30", "8:30"},
        {"08:30:15", "08:30:15"},
        {"9:30 am", "9:30 am"},
        {"9:30pm", "9:30pm"},
        {"12:00 am", "12:00 am"},
        {"09:30:00pm", "09:30:00"},  // cut to eight before reading: the "pm" is lost
        {"9:30:00 pm", "9:30:00 "},
        {"24:00", nullptr},
        {"9.30", nullptr},  // a "." typed becomes ":" before it gets here
        {"noon", nullptr},
        {"11/16/2026", nullptr},
        {"13:00 pm", nullptr},
        {"9:3", nullptr},
    };
    for (const Case& c : cases) {
        TestSystem u;
        u.s.platform.machineDirectory = dir.Path();
        std::string text = c.typed;
        const bool accepted = ValidateStartTime(u.s, 7, text);
        EXPECT_EQ(accepted, c.stored != nullptr) << c.typed;
        if (c.stored) {
            EXPECT_EQ(u.frm().StartTime[7], c.stored);
            EXPECT_EQ(text, c.stored);
            EXPECT_TRUE(u.messages.shown.empty()) << c.typed;
        } else {
            EXPECT_EQ(u.frm().StartTime[7], "");
            ASSERT_EQ(u.messages.shown.size(), 1u) << c.typed;
            EXPECT_EQ(u.messages.shown[0].Prompt, kBadTime);
            EXPECT_EQ(u.messages.shown[0].Title, "Entry Error");
            EXPECT_EQ(u.messages.shown[0].BoxIcon, Icon::Exclamation);
        }
    }
}

TEST_F(ValidateFieldsTest, ALongTextIsCutInTheFieldEvenWhenRefused) {
    std::string text = "9:3x:00 pm";
    EXPECT_FALSE(ValidateEndTime(t.s, 3, text));
    EXPECT_EQ(text, "9:3x:00 ");
    EXPECT_EQ(t.screen.Text(Control::txtEndTime, 3), "9:3x:00 ");
    EXPECT_EQ(t.frm().EndTime[3], "");
}

TEST_F(ValidateFieldsTest, StartAndEndAreCheckedAgainstEachOtherFromBothSides) {
    struct Case {
        bool startSide;
        const char* stored;  // the other side, already in the pair
        const char* typed;
        const char* message;  // nullptr when accepted
    } cases[] = {
        {true, "09:00", "09:00", "ON time same as OFF"},
        {false, "09:00", "09:00", "ON time same as OFF"},
        {true, "09:00", "9:00:00", "ON time same as OFF"},  // compared as times
        {false, "9:00 am", "09:00", "ON time same as OFF"},
        {true, "09:00", "10:00", "ON time must be earlier then OFF time"},
        {false, "10:00", "09:00", "ON time must be earlier then OFF time"},
        {true, "1:00 pm", "11:00", nullptr},
        {false, "11:00", "1:00 pm", nullptr},
        {true, "10:00", "9:59:59", nullptr},
    };
    for (const Case& c : cases) {
        TestSystem u;
        u.s.platform.machineDirectory = dir.Path();
        const int k = PairIndex(5, 1);
        std::string& own = c.startSide ? u.frm().StartTime[k] : u.frm().EndTime[k];
        (c.startSide ? u.frm().EndTime[k] : u.frm().StartTime[k]) = c.stored;
        std::string text = c.typed;
        const bool accepted =
            c.startSide ? ValidateStartTime(u.s, k, text) : ValidateEndTime(u.s, k, text);
        EXPECT_EQ(accepted, c.message == nullptr) << c.typed;
        if (c.message) {
            ASSERT_EQ(u.messages.shown.size(), 1u) << c.typed;
            EXPECT_EQ(u.messages.shown[0].Prompt, c.message);
            EXPECT_EQ(u.messages.shown[0].Title, "Entry Error");
            EXPECT_EQ(own, "");
            EXPECT_EQ(u.frm().FileChanged, False);
            EXPECT_FALSE(dir.Exists(RestartFileName));
        } else {
            EXPECT_EQ(own, c.typed);
            EXPECT_TRUE(u.messages.shown.empty());
        }
    }
}

TEST_F(ValidateFieldsTest, ClearingOneSideUnsetsThePairSilently) {
    t.SetPair(0, 0, "08:00", "12:00");
    t.SetPair(0, 1, "13:00", "14:00");
    for (const char* blank : {"", " "}) {
        std::string text = blank;
        EXPECT_TRUE(ValidateStartTime(t.s, 0, text));
        EXPECT_EQ(t.frm().StartTime[0], "");
        EXPECT_EQ(t.frm().EndTime[0], "12:00");
        EXPECT_TRUE(t.messages.shown.empty());
        EXPECT_EQ(t.display.totalCaption[0], "01:00:00");
        t.frm().StartTime[0] = "08:00";
    }
    std::string text = " ";
    EXPECT_TRUE(ValidateEndTime(t.s, 1, text));
    EXPECT_EQ(t.frm().EndTime[1], "");
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(t.frm().FileChanged, True);

    TestSystem u;
    ReadRestart(u);
    EXPECT_EQ(u.frm().StartTime[1], "13:00");
    EXPECT_EQ(u.frm().EndTime[1], "");
}

TEST_F(ValidateFieldsTest, OverlapIsJudgedOnTheTextsOfTheRow) {
    struct Case {
        const char* pairs[2][2];
        bool overlap;
    } cases[] = {
        {{{"09:00", "12:00"}, {"10:00", "11:00"}}, true},
        {{{"9:00", "12:00"}, {"10:00", "11:00"}}, false},  // "9:00" sorts after "10:00"
        {{{"08:00", "10:00"}, {"09:00", "11:00"}}, true},
        {{{"09:00", "11:00"}, {"08:00", "10:00"}}, true},
        {{{"08:00", "09:00"}, {"09:00", "10:00"}}, false},  // touching is no overlap
        {{{"08:00", "12:00"}, {"08:00", "12:00"}}, false},  // identical pairs neither
        {{{"08:00", "12:00"}, {"08:00", "10:00"}}, true},   // an end inside the other pair
        {{{"08:00", "12:00"}, {"10:00", ""}}, false},       // an unset pair does not count
    };
    for (const Case& c : cases) {
        TestSystem u;
        u.SetPair(6, 0, c.pairs[0][0], c.pairs[0][1]);
        u.SetPair(6, 4, c.pairs[1][0], c.pairs[1][1]);
        u.SetPair(7, 0, "10:30", "10:45");  // another row never counts
        EXPECT_EQ(CheckTimePairOverlap(u.s, PairIndex(6, 4)), c.overlap)
            << c.pairs[0][0] << "-" << c.pairs[0][1] << " " << c.pairs[1][0];
        EXPECT_EQ(CheckTimePairOverlap(u.s, PairIndex(6, 0)), c.overlap);
    }
}

TEST_F(ValidateFieldsTest, TheOverlapWarningFollowsWarnOverLapTimeAndKeepsTheEntry) {
    for (Flag warn : {True, False}) {
        TestSystem u;
        u.s.platform.machineDirectory = dir.Path();
        u.mod().WarnOverLapTime = warn;
        u.SetPair(0, 0, "09:00", "12:00");
        u.frm().EndTime[1] = "11:00";
        std::string text = "10:00";
        EXPECT_TRUE(ValidateStartTime(u.s, 1, text));
        EXPECT_EQ(u.frm().StartTime[1], "10:00");
        EXPECT_EQ(u.frm().FileChanged, True);
        if (warn) {
            ASSERT_EQ(u.messages.shown.size(), 1u);
            EXPECT_EQ(u.messages.shown[0].Prompt, "Your Last Entry Over-Laps another Time-Pair");
            EXPECT_EQ(u.messages.shown[0].Title, "Warning !");
            EXPECT_EQ(u.messages.shown[0].BoxIcon, Icon::Exclamation);
        } else {
            EXPECT_TRUE(u.messages.shown.empty());
        }
    }
}

TEST_F(ValidateFieldsTest, AFailedRestartWriteIsToldOnceAndTheChangeStays) {
    t.s.platform.machineDirectory = "/dev/full/";
    std::string a = "Heater", b = "Cooler";
    EXPECT_TRUE(ValidateDisplayName(t.s, 0, a));
    EXPECT_EQ(t.relay(0).DisplayName, "Heater");
    EXPECT_FALSE(t.messages.shown.empty());
    const size_t told = t.messages.shown.size();
    EXPECT_EQ(t.messages.shown.back().Prompt, "Restart Capability will be Disabled");
    EXPECT_TRUE(ValidateDisplayName(t.s, 0, b));
    EXPECT_EQ(t.relay(0).DisplayName, "Cooler");
    EXPECT_EQ(t.messages.shown.size(), told);
}

}  // namespace
}  // namespace vantrellion::test
