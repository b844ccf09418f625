// The scheduled on-time of a row: the sums of each code, the text and the caption.
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "core/FatalError.h"
#include "engine/RowTotals.h"
#include "support/Fakes.h"

namespace vantrellion::test {
namespace {

using Pairs = std::vector<std::pair<const char*, const char*>>;

class RowTotalsTest : public ::testing::Test {
  protected:
    TestSystem t;
    // Fills row i with the code and pairs; the rest of its pairs are unset.
    void Fill(int i, const char* code, const Pairs& pairs) {
        t.relay(i).DayHrEvenOdd = code;
        for (int p = 0; p < 6; ++p)
            t.SetPair(i, p, "", "");
        for (size_t p = 0; p < pairs.size(); ++p) {
            t.SetPair(i, static_cast<int>(p), pairs[p].first, pairs[p].second);
        }
    }
};

TEST_F(RowTotalsTest, TotalsTextAndCaption) {
    struct Case {
        const char* code;
        Pairs pairs;
        const char* total;
        const char* caption;
    } cases[] = {
        {"EO", {}, "00:00:00", "00:00:00"},
        {"EO", {{" ", "10:00"}, {"09:00", ""}}, "00:00:00", "00:00:00"},
        {"EO", {{"08:00", "15:00"}}, "07:00:00", "07:00:00"},
        {"  ", {{"8:00 am", "3:30 pm"}}, "07:30:00", "07:30:00"},
        {"EH", {{"09:00:00", "09:00:03"}}, "00:00:02", "00:00:02"},
        {"ES", {{"09:00:00", "09:00:05"}}, "00:00:02", "00:00:02"},
        {"OM", {{"09:00:00", "09:00:07"}, {"10:00", "11:00"}}, "00:30:04", "00:30:04"},
        {"EO", {{"00:00", "13:00"}, {"06:00", "18:00"}}, "25:00:00", "Over24hr"},
        {"EO",
         {{"00:00", "12:00"}, {"12:00", "23:59:59"}, {"0:00", "0:00:01"}},
         "24:00:00",
         "24:00:00"},
        {"EO",
         {{"00:00", "12:00"}, {"12:00", "23:59:59"}, {"0:00", "0:00:02"}},
         "24:00:01",
         "Over24hr"},
        {"EO",
         {{"0:00", "23:59:59"},
          {"0:00", "23:59:59"},
          {"0:00", "23:59:59"},
          {"0:00", "23:59:59"},
          {"0:00", "23:59:59"},
          {"0:00", "23:59:59"}},
         "143:59:54",
         "Over24hr"},
        {"EO", {{"10:00", "09:00"}}, "00:00:00", "00:00:00"},
        // Codes that only select days count as plain pairs.
        {"OD", {{"09:30", "14:00"}}, "04:30:00", "04:30:00"},
        {"SS", {{"08:00", "12:00"}, {"13:00", "14:00"}}, "05:00:00", "05:00:00"},
        {"TH", {{"09:10", "18:00"}}, "01:30:00", "01:30:00"},
        {"TH", {{"09:10", "18:00"}, {"19:00", "20:00"}}, "02:30:00", "02:30:00"},
        {"BH", {{"09:50", "18:00"}}, "01:30:00", "01:30:00"},
        {"MH", {{"09:15", "18:25"}}, "01:40:00", "01:40:00"},
        {"5", {{"08:00", "09:00"}}, "00:30:00", "00:30:00"},
        {"3H",
         {{"09:10", "11:00"}, {"09:15", "11:25"}, {"09:50", "11:00"}, {"12:00", "12:30"}},
         "01:40:00",
         "01:40:00"},
    };
    for (const auto& c : cases) {
        Fill(2, c.code, c.pairs);
        RefreshRowTotal(t.s, PairIndex(2, 4));
        EXPECT_EQ(t.relay(2).TotalTime, c.total) << '"' << c.code << '"';
        EXPECT_EQ(t.display.totalCaption[2], c.caption) << '"' << c.code << '"';
    }
}

TEST_F(RowTotalsTest, HalfRoundsTiesToEven) {
    struct Case {
        const char* end;
        int32_t half;
    } cases[] = {{"09:00:00", 0}, {"09:00:01", 0}, {"09:00:02", 1}, {"09:00:03", 2},
                 {"09:00:05", 2}, {"09:00:07", 4}, {"09:00:09", 4}, {"10:00:00", 1800}};
    for (const auto& c : cases) {
        t.SetPair(0, 0, "09:00:00", c.end);
        EXPECT_EQ(PairSecondsHalf(t.s, 0), c.half) << c.end;
    }
}

TEST_F(RowTotalsTest, HourFramesWithTheirQuirks) {
    struct Case {
        const char *start, *end;
        int32_t top, middle, bottom;
    } cases[] = {
        // End on a full hour: the end's hour has no window (hour 23 kept for the bottom).
        {"09:10", "18:00", 9 * 600, 10 * 3000, 9 * 3000},
        // End minute after the start minute: the end's hour counts.
        {"09:10", "18:15", 10 * 600, 10 * 300, 10 * 3000},
        // End minute before the start minute: last hour one less, and m2 minutes carried.
        {"09:10", "18:05", 300 + 9 * 600, 10 * (55 * 60), 300 + 9 * 3000},
        {"09:10:30", "18:05", 300 + 9 * 630, 10 * (54 * 60 + 30), 300 + 9 * 3030},
        // End on minute 0 with seconds earlier than the start's: their difference is carried.
        {"09:10:30", "18:00:10", 20 + 10 * 630, 10 * (49 * 60 + 40), 20 + 10 * 3030},
        // Hour 23 is spared for the bottom of the hour only.
        {"22:50", "23:00", 3000, 2 * 600, 2 * 600},
        {"22:50", "23:59:59", 2 * 3000, 2 * (9 * 60 + 59), 2 * 600},
        // Within one hour.
        {"09:15", "09:25", 900, 600, 2700},
    };
    for (const auto& c : cases) {
        t.SetPair(1, 0, c.start, c.end);
        const int k = PairIndex(1, 0);
        EXPECT_EQ(PairSecondsTopOfHour(t.s, k), c.top) << c.start << "-" << c.end;
        EXPECT_EQ(PairSecondsMiddleOfHour(t.s, k), c.middle) << c.start << "-" << c.end;
        EXPECT_EQ(PairSecondsBottomOfHour(t.s, k), c.bottom) << c.start << "-" << c.end;
    }
}

TEST_F(RowTotalsTest, CyclicCountsOnPeriodsAndThePartBeyondTheEnd) {
    struct Case {
        int16_t minutes;
        const char *start, *end;
        int32_t seconds;
    } cases[] = {
        {5, "08:00", "09:00", 1800},  // twelve periods, six on
        {5, "08:00", "08:05", 300},   // one period ending on the end
        {5, "08:00", "08:02", 180},   // the part of the period beyond the end
        {5, "08:00", "08:12", 480},   // on 300, off 300, on: 300 - 120 beyond
        {7, "08:00", "08:07", 420},
        {0, "08:00", "08:00:10", 0},      // no progress: the round limit ends it
        {-1, "08:00", "08:00:10", -360},  // eleven rounds, six on, of -60 each
        {5, "09:00", "08:00", 0},
    };
    for (const auto& c : cases) {
        t.SetPair(0, 0, c.start, c.end);
        EXPECT_EQ(PairSecondsCyclic(t.s, c.minutes, 0), c.seconds)
            << c.minutes << " " << c.start << "-" << c.end;
    }
}

TEST_F(RowTotalsTest, NegativeTotalKeepsItsSignsInTheText) {
    Fill(0, "-1", {{"08:00", "08:00:10"}});
    RefreshRowTotal(t.s, 0);
    EXPECT_EQ(t.relay(0).TotalTime, "00:-06:00");
}

TEST_F(RowTotalsTest, UnreadableTimeEndsTheProgram) {
    Fill(0, "EO", {{"08:00", "8 o'clock"}});
    try {
        RefreshRowTotal(t.s, 0);
        FAIL() << "no error";
    } catch (const FatalError& e) {
        EXPECT_EQ(e.Number(), ErrTypeMismatch);
    }
}

}  // namespace
}  // namespace vantrellion::test
