// The days off and pauses at the end of a Run File, in both directions: a file written before
// the section existed loads and saves unchanged, and a file with the section keeps the fixed
// lines of the older reader, which stops before it, so that reader gets the same schedule.
#include <gtest/gtest.h>

#include "core/DateTimeText.h"
#include "core/ResetRelayRecords.h"
#include "runfile/RunFileLoad.h"
#include "runfile/RunFileSave.h"
#include "runfile/RunFileTestSupport.h"

namespace vantrellion::test {
namespace {

constexpr const char* kData = RUNFILE_TEST_DATA;

LocalSeconds At(const char* text) {
    return *ParseDateTimeText(text);
}

class DaysOffSectionTest : public RunFileTest {
  protected:
    int Load(System& into, const std::string& path, const std::string& name) {
        ResetRelayRecords(into);
        return LoadRunFile(into, path, name, true);
    }
};

TEST_F(DaysOffSectionTest, BothDirectionsOfTheFileFormat) {
    const std::string before = TempDir::ReadFile(std::string(kData) + "before-days-off.run");
    const std::string with = TempDir::ReadFile(std::string(kData) + "with-days-off.run");

    // The file with the section begins with the old file's lines, byte for byte: the fixed
    // lines the older reader takes are the same, and it reads nothing after them.
    ASSERT_EQ(with.substr(0, before.size()), before);

    // A file written before the section loads with no days off and saves back unchanged.
    ASSERT_EQ(Load(s, kData, "before-days-off.run"), RunFileLoaded);
    EXPECT_EQ(f.Holds, ScheduleHolds{});
    EXPECT_EQ(f.Relay[1].DisplayName,
              "Lampe K\xc3\xbc"
              "che");
    ASSERT_TRUE(SaveRunFile(s, dir.Path(), "old.run"));
    EXPECT_EQ(dir.Read("old.run"), before);

    // The file with the section: the same schedule, and the days off and the pause.
    TestSystem other;
    ASSERT_EQ(Load(other.s, kData, "with-days-off.run"), RunFileLoaded);
    EXPECT_TRUE(other.messages.shown.empty());
    ExpectSameSchedule(s, other.s);
    const ScheduleHolds& h = other.frm().Holds;
    ASSERT_EQ(h.DaysOff.size(), 2u);
    EXPECT_EQ(h.DaysOff[0],
              (DayOff{At("2026-12-25"), At("2026-12-25"), true, 0b11, "No\xc3\xabl"}));
    EXPECT_EQ(h.DaysOff[1],
              (DayOff{At("2026-08-01"), At("2026-08-15"), false, 0b10, "Ferien, Sommer"}));
    EXPECT_EQ(h.PausedUntil[1], At("2026-06-24 18:00:00"));
    EXPECT_EQ(h.PausedUntil[0], 0);
    // Written back in Latin-1, as the rest of the file, byte for byte.
    ASSERT_TRUE(SaveRunFile(other.s, dir.Path(), "new.run"));
    EXPECT_EQ(dir.Read("new.run"), with);

    // A note outside Latin-1 makes the whole file UTF-8, and it reads back.
    other.frm().Holds.DaysOff[0].Note = "Feiertag \xe2\x82\xac";
    ASSERT_TRUE(SaveRunFile(other.s, dir.Path(), "utf8.run"));
    EXPECT_NE(dir.Read("utf8.run").find("Lampe K\xc3\xbc"), std::string::npos);
    TestSystem third;
    ASSERT_EQ(Load(third.s, dir.Path(), "utf8.run"), RunFileLoaded);
    EXPECT_EQ(third.frm().Holds, other.frm().Holds);
    EXPECT_EQ(third.relay(1).DisplayName, other.relay(1).DisplayName);

    // A damaged section leaves the schedule loaded, without days off, and says so.
    dir.Write("cut.run", with.substr(0, with.size() - 60));
    TestSystem cut;
    ASSERT_EQ(Load(cut.s, dir.Path(), "cut.run"), RunFileLoaded);
    ExpectSameSchedule(s, cut.s);
    EXPECT_EQ(cut.frm().Holds, ScheduleHolds{});
    ASSERT_EQ(cut.messages.shown.size(), 1u);
    EXPECT_EQ(cut.messages.shown[0].Title, "Error Reading Run File");
}

}  // namespace
}  // namespace vantrellion::test
