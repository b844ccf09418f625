#include <gtest/gtest.h>

#include "configuration/KeyValueStore.h"
#include "configuration/modRegAPI.h"
#include "history/HistoryReport.h"
#include "history/HistorySettings.h"
#include "tests/history/HistoryTestSupport.h"

namespace vantrellion::test {
namespace {

TEST(HistoryReport, DatesOfTheCommandLine) {
    struct Case {
        const char* text;
        bool ok;
        const char* back;
    } cases[] = {
        {"2026-11-01", true, "2026-11-01"},
        {"2024-02-29", true, "2024-02-29"},
        {"2026-11-01T08:00", true, "2026-11-01"},
        {"2025-02-29", false, ""},
        {"2026-4-1", false, ""},
        {"11/01/2026", false, ""},
        {"2026-11-01x", false, ""},
        {"", false, ""},
    };
    for (const Case& c : cases) {
        LocalSeconds day = -1;
        EXPECT_EQ(ParseIsoDate(c.text, day), c.ok) << c.text;
        if (c.ok) {
            EXPECT_EQ(IsoDate(day), c.back);
        }
    }
}

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
}

TEST_F(HistoryReportTest, TableShowsHoursPerDayAndMarksTheMissingDay) {
    const std::string table = HistoryTableText(ReadDays(dir, d1, d2), labels);
    EXPECT_NE(table.find("  R1  Lights, north\n"), std::string::npos) << table;
    EXPECT_NE(table.find("2026-11-14   6.25   0.00   0.50"), std::string::npos) << table;
    EXPECT_NE(table.find("24.00        0  no log file\n"), std::string::npos) << table;
}

TEST_F(HistoryReportTest, TimelineOfADayIsClippedToIt) {
    const RunTimeHistory h = ReadDays(dir, d1, d2);
    const Timeline t = HistoryTimeline(h, labels, {d1 + At(12, 0), d1 + 86400 + At(6, 0)});
    ASSERT_EQ(t.Lanes.size(), 8u);
    EXPECT_EQ(t.Lanes[0].Name, "Lights, north");
    EXPECT_EQ(t.Lanes[2].GroupColor, 102);
    ASSERT_EQ(t.Lanes[0].On.size(), 1u);
    EXPECT_EQ(t.Lanes[0].On[0].From, d1 + At(12, 0));
    EXPECT_EQ(t.Lanes[0].On[0].To, d1 + At(12, 15));
    ASSERT_EQ(t.Gaps.size(), 1u);
    EXPECT_EQ(t.Gaps[0].From, d2);
    EXPECT_EQ(t.Gaps[0].To, d2 + At(6, 0));
}

TEST(HistorySettings, NamesColoursAndLogDirectoryComeFromTheStoreWhenThereIsOne) {
    TempDir machine;
    // No store: the defaults, and no store file is made.
    HistorySettings none = ReadHistorySettings(machine.Path());
    EXPECT_EQ(none.LogDirectory, machine.Path());
    EXPECT_EQ(none.Labels.RelayNames[4], "Relay 5");
    EXPECT_EQ(none.Labels.GroupColors[0], 12648447);
    EXPECT_FALSE(machine.Exists("store.db"));

    {
        KeyValueStore store(machine.File("store.db"));
        auto set = [&](const char* name, const char* text) {
            StoredValue v;
            v.Type = RegTypeText;
            v.Kind = StoredValue::Data::Text;
            v.Text = text;
            store.SetValue(HKEY_LOCAL_MACHINE, "SOFTWARE\\Vantrellion\\Config", name, v);
        };
        set("LogFilePath", "/srv/farm/logs/");
        set("Brd1RNam5", "Pump");
        set("ColorRelayGroup1", "255");
        set("ColorRelayGroup2", "not a colour");
    }
    HistorySettings s = ReadHistorySettings(machine.Path());
    EXPECT_EQ(s.LogDirectory, "/srv/farm/logs/");
    EXPECT_EQ(s.Labels.RelayNames[4], "Pump");
    EXPECT_EQ(s.Labels.GroupColors[0], 255);
    EXPECT_EQ(s.Labels.GroupColors[1], 8421631);  // the unreadable value leaves the default
}

}  // namespace
}  // namespace vantrellion::test
