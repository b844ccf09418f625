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
        for (int p = 0; p < 6; ++p) {
            const bool given = p < static_cast<int>(pairs.size());
            t.SetPair(i, p, given ? pairs[p].first : "", given ? pairs[p].second : "");
        }
    }
};

TEST_F(RowTotalsTest, TotalsTextAndCaption) {
    const Pairs wholeDays(6, {"0:00", "23:59:59"});
    // Top, middle and bottom of the hour, each from its own pair, then a plain pair.
    const Pairs threeHours = {
        {"09:10", "11:00"}, {"09:15", "11:25"}, {"09:50", "11:00"}, {"12:00", "12:30"}};
    struct Case {
        const char* code;
        Pairs pairs;
        const char *total, *caption;
    } cases[] = {
        {"EO", {{" ", "10:00"}, {"09:00", ""}}, "00:00:00", "00:00:00"},
        {"EO", {{"08:00", "15:00"}, {"10:00", "09:00"}}, "07:00:00", "07:00:00"},
        {"  ", {{"8:00 am", "3:30 pm"}}, "07:30:00", "07:30:00"},
        // Halves round ties to even: 1.5, 2.5 and 3.5 seconds.
        {"EH", {{"09:00:00", "09:00:03"}}, "00:00:02", "00:00:02"},
        {"ES", {{"09:00:00", "09:00:05"}}, "00:00:02", "00:00:02"},
        {"OM", {{"09:00:00", "09:00:07"}, {"10:00", "11:00"}}, "00:30:04", "00:30:04"},
        // The sum may pass a day; the caption says so, the text keeps the figure.
        {"EO", {{"00:00", "13:00"}, {"06:00", "18:00"}}, "25:00:00", "Over24hr"},
        {"EO", {{"00:00", "23:59:59"}, {"0:00", "0:00:01"}}, "24:00:00", "24:00:00"},
        {"EO", wholeDays, "143:59:54", "Over24hr"},
        // Codes that only select days count as plain pairs.
        {"SS", {{"08:00", "12:00"}, {"13:00", "14:00"}}, "05:00:00", "05:00:00"},
        // The hour methods apply to the first pair only.
        {"TH", {{"09:10", "18:00"}, {"19:00", "20:00"}}, "02:30:00", "02:30:00"},
        {"BH", {{"09:50", "18:00"}}, "01:30:00", "01:30:00"},
        {"MH", {{"09:15", "18:25"}}, "01:40:00", "01:40:00"},
        {"5", {{"08:00", "09:00"}}, "00:30:00", "00:30:00"},
        {"-1", {{"08:00", "08:00:10"}}, "00:-06:00", "00:-06:00"},  // signs kept in the text
        {"3H", threeHours, "01:40:00", "01:40:00"},
    };
    for (const auto& c : cases) {
        Fill(2, c.code, c.pairs);
        RefreshRowTotal(t.s, PairIndex(2, 4));
        EXPECT_EQ(t.relay(2).TotalTime, c.total) << '"' << c.code << '"';
        EXPECT_EQ(t.display.totalCaption[2], c.caption) << '"' << c.code << '"';
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
        {5, "08:00", "08:05", 300},       // one period ending on the end
        {5, "08:00", "08:02", 180},       // the part of the period beyond the end
        {5, "08:00", "08:12", 480},       // on 300, off 300, on: 300 - 120 beyond
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
