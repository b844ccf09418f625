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
        RowSystem u(dir);
        u.relay(3).DaysOfWeek = "135";
        u.relay(3).CycleStart = 777;
        std::string text = c.text;
        EXPECT_EQ(ValidateDaysOfWeek(u.s, 3, text), c.accepted) << c.text;
        if (c.accepted) {
            EXPECT_TRUE(u.messages.shown.empty()) << c.text;
            EXPECT_EQ(u.display.invertCaption[3], "Invert");
        } else {
            ExpectOneBox(u, "Invalid Days of Week Entered, please re-enter", "Entry Error");
        }
        EXPECT_EQ(u.relay(3).DaysOfWeek, c.accepted ? c.text : "135");
        EXPECT_EQ(u.relay(3).CycleStart, c.accepted ? 0 : 777) << c.text;
        EXPECT_EQ(u.frm().FileChanged, c.accepted ? True : False);
    }
}

TEST_F(ValidateFieldsTest, EvenOddIsUpperCasedAndCutBeforeTheCheck) {
    struct Case {
        const char* typed;
        const char* field;  // the field's text afterwards
        bool accepted;
    } cases[] = {
        {"ed", "ED", true}, {"3h", "3H", true},  {"xs", "XS", true}, {"eox", "EO", true},
        {"  ", "  ", true}, {"", "", true},      {"5", "5", true},   {"00", "00", true},
        {"-5", "-5", true}, {"zz", "ZZ", false}, {"E", "E", false},  {"hh", "HH", false},
    };
    for (const Case& c : cases) {
        RowSystem u(dir);
        u.relay(0).CycleStart = 55;
        u.screen.SetText(Control::txtDayHrEvenOdd, 0, c.typed);
        std::string text = c.typed;
        EXPECT_EQ(ValidateDayHrEvenOdd(u.s, 0, text), c.accepted) << c.typed;
        EXPECT_EQ(text, c.field);
        EXPECT_EQ(u.screen.Text(Control::txtDayHrEvenOdd, 0), c.field);
        if (!c.accepted)
            ExpectOneBox(u, "Invalid Even/Odd Entered, please re-enter", "Entry Error");
        // Only a code that differs from the stored "EO" restarts the cyclic method.
        EXPECT_EQ(u.relay(0).DayHrEvenOdd, c.accepted ? c.field : "EO");
        EXPECT_EQ(u.relay(0).CycleStart, c.accepted && std::string(c.field) != "EO" ? 0 : 55)
            << c.typed;
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
        // Cut to eight before reading: the "pm" of the fifth is lost. A "." typed becomes ":"
        // before it gets here.
        {"8:30", "8:30"},        {"08:30:15", "08:30:15"},   {"9:30 am", "9:30 am"},
        {"9:30pm", "9:30pm"},    {"09:30:00pm", "09:30:00"}, {"9:30:00 pm", "9:30:00 "},
        {"24:00", nullptr},      {"9.30", nullptr},          {"noon", nullptr},
        {"11/16/2026", nullptr}, {"13:00 pm", nullptr},      {"9:3", nullptr},
    };
    for (const Case& c : cases) {
        RowSystem u(dir);
        std::string text = c.typed;
        EXPECT_EQ(ValidateStartTime(u.s, 7, text), c.stored != nullptr) << c.typed;
        EXPECT_EQ(u.frm().StartTime[7], c.stored ? c.stored : "");
        if (c.stored) {
            EXPECT_EQ(text, c.stored);
            EXPECT_TRUE(u.messages.shown.empty()) << c.typed;
        } else {
            ExpectOneBox(u, kBadTime, "Entry Error");
        }
    }
}

// Every sun form is taken as typed and comes back from the restart file unchanged; the bad
// ones get the sun forms' message. Without a location the entry stays, with a box that says
// where to set it. Start and end are compared only where the order holds on every day.
TEST_F(ValidateFieldsTest, SunTimesInEveryFormAreTakenAndBadOnesRefused) {
    const char* good[] = {"SS", "sr", "Ss+0:30", "SR-1:15", "sS+23:59", "SS-0:05"};
    const char* bad[] = {"SS+", "SR+25:00", "SQ", "SS+1", "SS+1:5", "SR-0:60", "SR 1:00", "S"};
    t.mod().Location = GeoLocation{52.52, 13.405};
    for (int p = 0; p < 6; ++p) {
        std::string text = good[p];
        EXPECT_TRUE(ValidateStartTime(t.s, PairIndex(1, p), text)) << good[p];
    }
    EXPECT_TRUE(t.messages.shown.empty());
    TestSystem loaded;
    ReadRestart(loaded);
    for (int p = 0; p < 6; ++p)
        EXPECT_EQ(loaded.frm().StartTime[PairIndex(1, p)], good[p]);
    for (const char* typed : bad) {
        RowSystem u(dir);
        std::string text = typed;
        EXPECT_FALSE(ValidateStartTime(u.s, 7, text)) << typed;
        ExpectOneBox(u,
                     "Sun Time Entered is NOT a valid Time, please re-enter\r\n\r\n"
                     "Format is SR or SS (sunrise, sunset), optionally with +H:MM or -H:MM",
                     "Entry Error");
    }

    struct Order {
        const char *start, *end, *refusal;
    } orders[] = {{"SS", "SS+1:00", nullptr},
                  {"SR", "SS", nullptr},
                  {"20:00", "SS+1:00", nullptr},
                  {"SS", "ss", "ON time same as OFF"},
                  {"SS+0:30", "SS", "ON time must be earlier then OFF time"}};
    for (const Order& o : orders) {
        RowSystem u(dir);
        u.mod().Location = GeoLocation{52.52, 13.405};
        u.frm().StartTime[3] = o.start;
        std::string text = o.end;
        EXPECT_EQ(ValidateEndTime(u.s, 3, text), o.refusal == nullptr) << o.end;
        if (o.refusal) ExpectOneBox(u, o.refusal, "Entry Error");
    }

    RowSystem u(dir);
    std::string text = "SS+0:30";
    EXPECT_TRUE(ValidateStartTime(u.s, 2, text));
    EXPECT_EQ(u.frm().StartTime[2], "SS+0:30");
    ExpectOneBox(u,
                 "Sunrise and sunset times need the location of this machine.\r\n"
                 "Set Latitude and Longitude in the configuration screen (File, Configuration)."
                 "\r\nUntil then this time pair does not switch.",
                 "Location Needed");
}

TEST_F(ValidateFieldsTest, StartAndEndAreComparedAsTimesNotAsTexts) {
    struct Case {
        bool startSide;
        const char* other;  // the other side, already in the pair
        const char* typed;
        bool accepted;
    } cases[] = {
        {true, "1:00 pm", "11:00", true}, {false, "11:00", "1:00 pm", true},
        {true, "10:00", "9:59:59", true}, {true, "9:00", "10:00", false},
        {false, "10:00", "9:00", false},
    };
    for (const Case& c : cases) {
        RowSystem u(dir);
        const int k = PairIndex(5, 1);
        TimeField& own = c.startSide ? u.frm().StartTime[k] : u.frm().EndTime[k];
        (c.startSide ? u.frm().EndTime[k] : u.frm().StartTime[k]) = c.other;
        std::string text = c.typed;
        EXPECT_EQ(c.startSide ? ValidateStartTime(u.s, k, text) : ValidateEndTime(u.s, k, text),
                  c.accepted)
            << c.typed;
        EXPECT_EQ(own, c.accepted ? c.typed : "");
        if (!c.accepted) ExpectOneBox(u, "ON time must be earlier then OFF time", "Entry Error");
        EXPECT_EQ(u.frm().FileChanged, c.accepted ? True : False);
    }
}

TEST_F(ValidateFieldsTest, ClearingOneSideUnsetsThePairSilently) {
    t.SetPair(0, 0, "08:00", "12:00");
    t.SetPair(0, 1, "13:00", "14:00");
    std::string start = "", end = " ";
    EXPECT_TRUE(ValidateStartTime(t.s, 0, start));
    EXPECT_EQ(t.display.totalCaption[0], "01:00:00");  // only the second pair counts
    EXPECT_TRUE(ValidateEndTime(t.s, 1, end));
    EXPECT_EQ(t.frm().EndTime[1], "");
    EXPECT_TRUE(t.messages.shown.empty());
    EXPECT_EQ(t.frm().FileChanged, True);

    TestSystem u;
    ReadRestart(u);
    EXPECT_EQ(u.frm().StartTime[0], "");
    EXPECT_EQ(u.frm().EndTime[0], "12:00");
    EXPECT_EQ(u.frm().StartTime[1], "13:00");
    EXPECT_EQ(u.frm().EndTime[1], "");
}

TEST_F(ValidateFieldsTest, OverlapIsJudgedOnTheTextsOfTheRow) {
    struct Case {
        const char* pairs[2][2];
        bool overlap;
    } cases[] = {
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

}  // namespace
}  // namespace vantrellion::test
