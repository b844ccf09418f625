#include <gtest/gtest.h>

#include <map>

#include "core/clsMRUmostRecentlyUsedFiles.h"

namespace vantrellion::test {
namespace {

// Settings in memory: application, section, then the keys in the order stored.
class MemorySettings : public SettingsStore {
  public:
    std::map<std::string, std::map<std::string, std::vector<std::pair<std::string, std::string>>>>
        data;
    std::vector<std::pair<std::string, std::string>> GetAllSettings(
        const std::string& app, const std::string& section) override {
        return data[app][section];
    }
    void DeleteSection(const std::string& app, const std::string& section) override {
        data[app].erase(section);
    }
    void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                     const std::string& value) override {
        data[app][section].emplace_back(key, value);
    }
};

std::vector<std::string> Items(const clsMRUmostRecentlyUsedFiles& m) {
    std::vector<std::string> items;
    for (int16_t n = 1; n <= m.Count(); ++n)
        items.push_back(m.Item(n));
    return items;
}

using Names = std::vector<std::string>;

TEST(MRUFiles, AddsGoToTheTopOnceWhateverTheCaseAndTheOldestFallsOff) {
    MemorySettings settings;
    clsMRUmostRecentlyUsedFiles m(settings);
    EXPECT_EQ(m.Number(), 5);
    for (const char* name : {"/a.run", "/b.run", "/c.run"})
        m.Add(name);
    EXPECT_EQ(Items(m), (Names{"/c.run", "/b.run", "/a.run"}));
    m.Add("/A.RUN");
    EXPECT_EQ(Items(m), (Names{"/A.RUN", "/c.run", "/b.run"}));
    m.Add("/a.run");  // the later spelling stays
    EXPECT_EQ(Items(m), (Names{"/a.run", "/c.run", "/b.run"}));
    for (const char* name : {"/d.run", "/e.run", "/f.run"})
        m.Add(name);
    EXPECT_EQ(Items(m), (Names{"/f.run", "/e.run", "/d.run", "/a.run", "/c.run"}));
    EXPECT_EQ(m.Item(6), "");
    EXPECT_EQ(m.Item(0), "");
    EXPECT_EQ(m.Item(-1), "");

    m.Remove("/NOT-THERE.run");
    m.Remove("/E.RUN");
    EXPECT_EQ(Items(m), (Names{"/f.run", "/d.run", "/a.run", "/c.run"}));
    m.Clear();
    EXPECT_EQ(m.Count(), 0);
}

}  // namespace
}  // namespace vantrellion::test
