// The forms shared by the schedule preview and the run-time history, in their windows and on
// their command lines: dates as typed, export names with their type's extension, and the
// switch times of a lane's tool tip.
#include <gtest/gtest.h>

#include "core/DateTimeText.h"
#include "core/ExportFileName.h"
#include "core/LaneSwitchTimes.h"
#include "support/Fakes.h"
#include "support/TempDir.h"

namespace vantrellion::test {
namespace {

TEST(DateTimeText, TakesADateAloneOrWithMinutesOrSecondsExactlyAsTyped) {
    const auto at = [](int y, int mo, int d, int h, int mi, int s) {
        return ToLocalSeconds({y, mo, d, h, mi, s, 1});
    };
    EXPECT_EQ(ParseDateTimeText("2026-11-28 06:30:00"), at(2026, 11, 28, 6, 30, 0));
    EXPECT_EQ(ParseDateTimeText(" 2026-11-28T06:30 "), at(2026, 11, 28, 6, 30, 0));
    EXPECT_EQ(ParseDateTimeText("2026-11-28 6:30:09"), at(2026, 11, 28, 6, 30, 9));
    EXPECT_EQ(ParseDateTimeText("2028-02-29"), at(2028, 2, 29, 0, 0, 0));
    for (const char* bad : {"2026-11-31", "2027-02-29", "2026-11-28 24:00", "2026-11-28 6:3",
                            "2026-11-28 06:30:0", "2026-11-28 nonsense", "28.11.2026", ""})
        EXPECT_FALSE(ParseDateTimeText(bad)) << bad;
    EXPECT_EQ(DateTimeText(at(2026, 11, 28, 6, 30, 0)), "2026-11-28 06:30:00");
}

TEST(ExportFileName, ANameWithoutExtensionGetsTheTypesAndTheDialogStartsInTheDocuments) {
    EXPECT_EQ(WithExtension("week", ".png"), "week.png");
    EXPECT_EQ(WithExtension("out.d/week", ".csv"), "out.d/week.csv");
    EXPECT_EQ(WithExtension("week.PNG", ".png"), "week.PNG");
    EXPECT_EQ(WithExtension("week.old", ".png"), "week.old");
    EXPECT_TRUE(NameTheSameFile("./out//a.png", "out/x/../a.png"));
    EXPECT_FALSE(NameTheSameFile("a.png", "a.csv"));

    TempDir dir;
    TestSystem t;
    const ExportFileRequest request{"Export Chart", "PNG Picture (*.png)|*.png", "c.png", ".png"};
    t.dialogs.answers = {dir.File("week"), dir.File("old"), dir.File("old")};
    EXPECT_EQ(AskExportFileName(t.s, request), dir.File("week.png"));
    EXPECT_EQ(t.dialogs.saved.at(0).InitialDirectory, kDocuments);
    EXPECT_EQ(t.dialogs.saved.at(0).Flags, 2);
    EXPECT_TRUE(t.messages.shown.empty());
    // The dialog asked about "old", not about "old.png", which exists: a box asks.
    dir.Write("old.png", "x");
    t.messages.answers = {Answer::No, Answer::Yes};
    EXPECT_EQ(AskExportFileName(t.s, request), std::nullopt);
    EXPECT_EQ(AskExportFileName(t.s, request), dir.File("old.png"));
    ASSERT_EQ(t.messages.shown.size(), 2u);
    EXPECT_EQ(t.messages.shown[0].Prompt,
              dir.File("old.png") + " already exists.\r\nDo you want to replace it?");
}

TEST(LaneSwitchTimes, TheEdgesOfWhatIsShownAreNoSwitchTimes) {
    const LocalSeconds day = ToLocalSeconds({2026, 11, 16, 0, 0, 0, 2});
    Timeline t;
    t.Range = {day + 7 * 3600, day + 86400 + 7 * 3600};
    t.Gaps = {{day + 86400 + 3600, t.Range.To}};
    t.Lanes = {{"Pump",
                0,
                {{t.Range.From, day + 9 * 3600}, {day + 20 * 3600, day + 86400 + 3600}},
                {},
                {}},
               {"Fan", 0, {t.Range}, {}, {}}};
    EXPECT_EQ(LaneSwitchTimesText(t, 0, day),
              "Pump\nalready on   off 2026-11-16 09:00:00\non  2026-11-16 20:00:00   still on");
    EXPECT_EQ(LaneSwitchTimesText(t, 1, day), "Fan\non throughout");
}

}  // namespace
}  // namespace vantrellion::test
