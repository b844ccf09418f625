#include <gtest/gtest.h>

#include "core/FatalError.h"
#include "core/ScheduleText.h"

namespace vantrellion::test {
namespace {

constexpr int Hms(int h, int m, int s) {
    return h * 3600 + m * 60 + s;
}

TEST(ParseTimeOfDay, AcceptsTheEntryForms) {
    struct Case {
        const char* text;
        int seconds;
    } cases[] = {{"08:00:00", Hms(8, 0, 0)},       {"8:00", Hms(8, 0, 0)},
                 {"8:05:09", Hms(8, 5, 9)},        {"0:00", 0},
                 {"23:59:59", Hms(23, 59, 59)},    {"9:30 pm", Hms(21, 30, 0)},
                 {"9:30pm", Hms(21, 30, 0)},       {"9:30 Pm", Hms(21, 30, 0)},
                 {"09:30AM", Hms(9, 30, 0)},       {"12:00 am", 0},
                 {"12:30:15 am", Hms(0, 30, 15)},  {"12:00 pm", Hms(12, 0, 0)},
                 {"11:59:59 pm", Hms(23, 59, 59)}, {"0:15 am", Hms(0, 15, 0)},
                 {" 8:00", Hms(8, 0, 0)},          {"8:00 ", Hms(8, 0, 0)}};
    for (const auto& c : cases) {
        EXPECT_EQ(ParseTimeOfDay(c.text), std::optional<int>(c.seconds)) << '"' << c.text << '"';
        EXPECT_EQ(TimeField(c.text).SecondsOrFail(), c.seconds);
    }
}

TEST(ParseTimeOfDay, RefusesEverythingElse) {
    for (const char* text : {"",           " ",          "8",        "8:0",      "8:000",
                             "8:00:0",     "8:00:",      ":00",      "123:00",   "24:00",
                             "8:60",       "8:00:60",    "13:00 pm", "8:00 xm",  "8:00 a",
                             "8:00 p.m.",  "8:00 am pm", "8.30",     "+8:00",    "11/14/2026 8:00",
                             "8:00:00:00", "8 :00",      "8: 00",    "8:00 amx", "8:0x",
                             "2x:00",      "08:5x:00",   "08:00;00", "8x00",     "23:59:60"}) {
        EXPECT_FALSE(ParseTimeOfDay(text).has_value()) << '"' << text << '"';
        const TimeField field(text);
        try {
            field.SecondsOrFail();
            ADD_FAILURE() << "no error for \"" << text << '"';
        } catch (const FatalError& e) {
            EXPECT_EQ(e.Number(), ErrTypeMismatch);
            EXPECT_STREQ(e.what(), "Type mismatch");
        }
    }
}

// A field keeps its text byte for byte and is read once, when the text is set.
TEST(ScheduleText, FieldsKeepTheirTextAndReadItOnce) {
    TimeField t = "8:00 xm";
    EXPECT_EQ(t, "8:00 xm");
    EXPECT_EQ(t.Value(), TimeField::Unreadable);
    t = " ";
    EXPECT_TRUE(t.IsBlank());
    t = "9:30 pm";
    EXPECT_EQ(t.Value(), Hms(21, 30, 0));

    struct Code {
        const char* text;
        CodeRule rule;
    } codes[] = {{"EO", CodeRule::Plain},         {"  ", CodeRule::Plain},
                 {"ed", CodeRule::Plain},         {"OD", CodeRule::EvenOddDay},
                 {"EH", CodeRule::EvenOddHour},   {"OM", CodeRule::EvenOddMinute},
                 {"ES", CodeRule::EvenOddSecond}, {"XS", CodeRule::Weekend},
                 {"TH", CodeRule::TopOfHour},     {"3H", CodeRule::ThreeWindows},
                 {"MH", CodeRule::MiddleOfHour},  {"BH", CodeRule::BottomOfHour},
                 {" 5", CodeRule::Cyclic},        {"-3", CodeRule::Cyclic}};
    for (const Code& c : codes)
        EXPECT_EQ(EvenOddCode(c.text).Rule(), c.rule) << c.text;
    EXPECT_TRUE(EvenOddCode("ED").Even());
    EXPECT_FALSE(EvenOddCode("OS").Even());
    EXPECT_TRUE(EvenOddCode("SS").HeldOn(1) && EvenOddCode("SS").HeldOn(7));
    EXPECT_TRUE(EvenOddCode("XS").HeldOn(1) && !EvenOddCode("XS").HeldOn(7));
    EXPECT_TRUE(!EvenOddCode("SX").HeldOn(1) && EvenOddCode("SX").HeldOn(7));
    EXPECT_EQ(EvenOddCode("2.5").CycleMinutes(), 2);
    EXPECT_THROW(EvenOddCode("999999").CycleMinutes(), FatalError);

    EXPECT_TRUE(DaysField("All").Matches(3));
    EXPECT_TRUE(DaysField("246").Matches(4));
    EXPECT_FALSE(DaysField("246").Matches(3));
    EXPECT_FALSE(DaysField("all days").Matches(1));
}

}  // namespace
}  // namespace vantrellion::test
