#include <gtest/gtest.h>

#include "configuration/KeyValueStore.h"
#include "configuration/modRegAPI.h"
#include "history/HistoryReport.h"
#include "history/HistorySettings.h"
#include "tests/history/HistoryTestSupport.h"

namespace vantrellion::test {
namespace {

class HistoryReportTest : public ::testing::Test {
  protected:
    TempDir dir;
    const LocalSeconds d1 = Day(2026, 11, 14), d2 = d1 + 86400;
    HistoryLabels labels;
    void SetUp() override {
        ModRelay m;
        m.Board[0].RelayName = {"Lights, north", " ", "Pump \"A\"", "", "", "", "", ""};
        for (int g = 0; g < 8; ++g)
            m.ColorRelayGroup[g] = 100 + g;
        labels = HistoryLabelsFrom(m);
        // Day 1: relay 1 on from 06:00 to 12:15 and relay 3 from 12:00 to 12:30, all day
        // logged; day 2 has no file.
        WriteDay(dir, d1,
                 StateLines(0, 86400, [](int t) {
                     Bytes b;
                     if (t >= At(6, 0) && t < At(12, 15)) b.relays |= 1;
                     if (t >= At(12, 0) && t < At(12, 30)) b.relays |= 4;
                     return b;
                 }) + "12:40:00 11/14/2026 ReStart ****** System Crashed & Restarted ******\r\n");
    }
};

TEST_F(HistoryReportTest, CsvHasOneRowPerDayWithHoursAndTheMissingDay) {
    const RunTimeHistory h = ReadDays(dir, d1, d2);
    const std::string csv = HistoryCsv(h, labels);
    EXPECT_EQ(csv.substr(0, csv.find("\r\n")),
              "Date,\"Lights, north\",Relay 2,\"Pump \"\"A\"\"\",Relay 4,Relay 5,Relay 6,Relay 7,"
              "Relay 8,Input 1,Input 2,Input 3,Input 4,Input 5,Input 6,Input 7,Input 8,Logged,"
              "Not logged,Restarts,Log file");
    EXPECT_NE(csv.find("\r\n2026-11-14,6.25,0.00,0.50,0.00,0.00,0.00,0.00,0.00,0.00,0.00,0.00,"
                       "0.00,0.00,0.00,0.00,0.00,24.00,0.00,1,yes\r\n"),
              std::string::npos)
        << csv;
    EXPECT_NE(csv.find("\r\n2026-11-15,0.00,"), std::string::npos);
    EXPECT_NE(csv.find(",0.00,24.00,0,no\r\n"), std::string::npos);

    // The day view opens on today when it has a log, else on the last day that has one.
    EXPECT_EQ(DayViewDay(h, d1), d1);
    EXPECT_EQ(DayViewDay(h, d2), d1);
    EXPECT_EQ(DayViewDay(ReadDays(dir, d2, d2 + 86400), d2 + 86400), d2 + 86400);
}

}  // namespace
}  // namespace vantrellion::test
