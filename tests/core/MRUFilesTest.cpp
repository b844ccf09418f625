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

class RecordingMenu : public MenuArray {
  public:
    explicit RecordingMenu(int entries) : visible(entries, true), caption(entries) {}
    std::vector<bool> visible;
    std::vector<std::string> caption;
    void SetVisible(int i, bool v) override {
        if (i < static_cast<int>(visible.size())) visible[i] = v;
    }
    void SetCaption(int i, const std::string& c) override {
        if (i < static_cast<int>(caption.size())) caption[i] = c;
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

TEST(MRUFiles, TheListIsKeptAcrossARestart) {
    MemorySettings settings;
    {
        clsMRUmostRecentlyUsedFiles m(settings);
        for (const char* name : {"/x.run", "/y.run", "/z.run"})
            m.Add(name);
        m.Save();
    }
    const auto& stored = settings.data["Vantrellion"]["colMRUFiles"];
    EXPECT_EQ(stored, (std::vector<std::pair<std::string, std::string>>{
                          {"1", "/z.run"}, {"2", "/y.run"}, {"3", "/x.run"}}));

    clsMRUmostRecentlyUsedFiles next(settings);
    next.Add("/kept-if-nothing-stored.run");
    next.Load("Other");  // nothing stored under that application: the list stays
    EXPECT_EQ(Items(next), (Names{"/kept-if-nothing-stored.run"}));
    next.Load();
    EXPECT_EQ(Items(next), (Names{"/z.run", "/y.run", "/x.run"}));

    // A list stored longer than the capacity loads whole; a name stored twice is kept once.
    settings.data["Vantrellion"]["colMRUFiles"] = {{"1", "a"}, {"2", "b"}, {"3", "A"}, {"4", "c"},
                                                   {"5", "d"}, {"6", "e"}, {"7", "f"}};
    next.Load();
    EXPECT_EQ(Items(next), (Names{"a", "b", "c", "d", "e", "f"}));
    next.Clear();
    next.Save();
    EXPECT_TRUE(settings.GetAllSettings("Vantrellion", "colMRUFiles").empty());
}

}  // namespace
}  // namespace vantrellion::test
