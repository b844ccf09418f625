#include <gtest/gtest.h>

#include "core/FatalError.h"
#include "engine/TimeOfDay.h"

namespace vantrellion::test {
namespace {

int Hms(int h, int m, int s) {
    return h * 3600 + m * 60 + s;
}

TEST(ParseTimeOfDay, AcceptsTheEntryForms) {
    struct Case {
        const char* text;
        int seconds;
    } cases[] = {
        {"08:00:00", Hms(8, 0, 0)},
        {"08:00", Hms(8, 0, 0)},
        {"8:00", Hms(8, 0, 0)},
        {"8:05:09", Hms(8, 5, 9)},
        {"0:00", 0},
        {"00:00:00", 0},
        {"23:59:59", Hms(23, 59, 59)},
        {"23:59", Hms(23, 59, 0)},
        {"9:30 pm", Hms(21, 30, 0)},
        {"9:30pm", Hms(21, 30, 0)},
        {"9:30 PM", Hms(21, 30, 0)},
        {"9:30 Pm", Hms(21, 30, 0)},
        {"09:30 am", Hms(9, 30, 0)},
        {"09:30AM", Hms(9, 30, 0)},
        {"12:00 am", 0},
        {"12:30:15 am", Hms(0, 30, 15)},
        {"12:00 pm", Hms(12, 0, 0)},
        {"12:59:59pm", Hms(12, 59, 59)},
        {"11:59:59 pm", Hms(23, 59, 59)},
        {"1:00 am", Hms(1, 0, 0)},
        {"0:15 am", Hms(0, 15, 0)},
        {" 8:00", Hms(8, 0, 0)},
        {"8:00 ", Hms(8, 0, 0)},
    };
    for (const auto& c : cases) {
        std::optional<int> t = ParseTimeOfDay(c.text);
        ASSERT_TRUE(t.has_value()) << '"' << c.text << '"';
        EXPECT_EQ(*t, c.seconds) << '"' << c.text << '"';
        EXPECT_EQ(TimeOfDayOrFail(c.text), c.seconds);
    }
}

TEST(ParseTimeOfDay, RefusesEverythingElse) {
    const char* cases[] = {
        "",
        " ",
        "8",
        "800",
        "8:0",
        "8:000",
        "8:00:0",
        "8:00:",
        ":00",
        "123:00",
        "24:00",
        "25:00:00",
        "8:60",
        "8:00:60",
        "13:00 pm",
        "13:00am",
        "8:00 xm",
        "8:00 a",
        "8:00 p.m.",
        "8:00 am pm",
        "8.30",
        "8-30",
        "-8:00",
        "+8:00",
        "11/14/2026",
        "11/14/2026 8:00",
        "noon",
        "8:00:00:00",
        "8 :00",
        "8: 00",
        "abc",
        "8:00 amx",
        "08:00:00pmx",
    };
    for (const char* text : cases) {
        EXPECT_FALSE(ParseTimeOfDay(text).has_value()) << '"' << text << '"';
        try {
            TimeOfDayOrFail(text);
            ADD_FAILURE() << "no error for \"" << text << '"';
        } catch (const FatalError& e) {
            EXPECT_EQ(e.Number(), ErrTypeMismatch);
            EXPECT_STREQ(e.what(), "Type mismatch");
        }
    }
}

}  // namespace
}  // namespace vantrellion::test
