#include <gtest/gtest.h>

#include "core/FatalError.h"
#include "engine/TimeOfDay.h"

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
        EXPECT_EQ(TimeOfDayOrFail(c.text), c.seconds);
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
