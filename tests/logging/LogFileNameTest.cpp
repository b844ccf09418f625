#include <gtest/gtest.h>

#include "logging/LogFileName.h"
#include "support/Fakes.h"

namespace vantrellion {
namespace {

TEST(LogFileName, ComesFromFixedPositionsOfTheShortDate) {
    const std::pair<const char*, const char*> cases[] = {
        {"11/14/2026", "Vantrellion_2026_11_14.Log"},
        {"14.11.2026", "Vantrellion_2026_14.11.Log"},  // no "/" to replace
        {"11/14/26", "Vantrellion_26_11_14.Log"},
        {"1/2/2026", "Vantrellion_26_1_2_2.Log"},  // one-digit month and day shift the cut
        {"", "Vantrellion__.Log"},
    };
    for (const auto& [date, name] : cases)
        EXPECT_EQ(LogFileNameForDate(date), name) << date;
}

// A clock whose short date is any text, as regional settings might make it, and a store that
// notes each saved log file name.
class TextDateClock : public test::FakeClock {
  public:
    std::string shortDate = "11/14/2026";
    std::string ShortDate() override { return shortDate; }
};

class CountingStore : public ConfigurationStore {
  public:
    explicit CountingStore(System& s) : s(s) {}
    bool ConfigurationLogFileNameSave(bool quiet) override {
        saved.push_back(s.modRelay.LogFileName + (quiet ? " (quiet)" : ""));
        if (refusals == 0) return true;
        --refusals;
        return false;
    }
    void ConfigurationDataFileNameSave() override {}
    void ConfigurationDataFilePathSave() override {}
    void ConfigurationFlagLoggingSave() override {}
    void ConfigurationFlagRunNoBoardsSave() override {}
    System& s;
    std::vector<std::string> saved;
    int refusals = 0;  // the next saves that the store does not take
};

TEST(LogFileName, StoresAChangedNameOnceAndJoinsThePathAsItStands) {
    test::TestSystem ts;
    TextDateClock clock;
    CountingStore store(ts.s);
    ts.s.platform.clock = &clock;
    ts.s.platform.configuration = &store;
    ts.s.modRelay.LogFilePath = "/var/log/farm/";
    ts.s.modRelay.LogFileName = "VantrellionLog.Log";

    EXPECT_EQ(MakeLogFileName(ts.s), "/var/log/farm/Vantrellion_2026_11_14.Log");
    EXPECT_EQ(MakeLogFileName(ts.s), "/var/log/farm/Vantrellion_2026_11_14.Log");
    clock.shortDate = "11/15/2026";
    // A path without its closing separator is used as it stands.
    ts.s.modRelay.LogFilePath = "/var/log/farm";
    EXPECT_EQ(MakeLogFileName(ts.s), "/var/log/farmVantrellion_2026_11_15.Log");
    EXPECT_EQ(store.saved, (std::vector<std::string>{"Vantrellion_2026_11_14.Log",
                                                     "Vantrellion_2026_11_15.Log"}));
}

// A name that the store did not take (held by another program) is stored again at each next
// line, quietly, until it is taken; then no more.
TEST(LogFileName, ANameTheStoreDidNotTakeIsStoredAgainAtTheNextLine) {
    test::TestSystem ts;
    TextDateClock clock;
    CountingStore store(ts.s);
    ts.s.platform.clock = &clock;
    ts.s.platform.configuration = &store;
    ts.s.modRelay.LogFilePath = "/var/log/farm/";
    store.refusals = 2;
    for (int line = 0; line < 5; ++line)
        MakeLogFileName(ts.s);
    EXPECT_EQ(store.saved, (std::vector<std::string>{"Vantrellion_2026_11_14.Log",
                                                     "Vantrellion_2026_11_14.Log (quiet)",
                                                     "Vantrellion_2026_11_14.Log (quiet)"}));
    EXPECT_FALSE(ts.s.modRelay.LogFileNameUnsaved);
}

}  // namespace
}  // namespace vantrellion
