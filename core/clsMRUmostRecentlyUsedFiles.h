// The list of recently used file names: the most recent first, each name once whatever its
// case, at most Number of them. It is kept between runs in a per-user settings store (section
// "colMRUFiles", keys "1", "2", ... in list order) and shown on a menu array whose entry 0 is a
// separator.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace vantrellion {

// A per-user settings store of application, section and key. The desktop layer serves it
// with QSettings.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    // The key and value pairs of a section, in the order they were stored.
    virtual std::vector<std::pair<std::string, std::string>> GetAllSettings(
        const std::string& application, const std::string& section) = 0;
    virtual void DeleteSection(const std::string& application, const std::string& section) = 0;
    virtual void SaveSetting(const std::string& application, const std::string& section,
                             const std::string& key, const std::string& value) = 0;
};

// A menu array: entry 0 the separator, entries 1 and up the names. An index the array does
// not have is ignored.
class MenuArray {
  public:
    virtual ~MenuArray() = default;
    virtual void SetVisible(int index, bool visible) = 0;
    virtual void SetCaption(int index, const std::string& caption) = 0;
};

class clsMRUmostRecentlyUsedFiles {
  public:
    explicit clsMRUmostRecentlyUsedFiles(SettingsStore& settings) : settings_(settings) {}

    void Add(const std::string& fileName);
    void Clear();
    int32_t Count() const { return static_cast<int32_t>(files_.size()); }
    // The name at a position, 1 first; "" past either end.
    std::string Item(int16_t position) const;
    // An empty application stands for the program's title.
    void Load(const std::string& application = "");
    int16_t Number() const { return number_; }
    void SetNumber(int16_t n) { number_ = n; }
    void Remove(const std::string& fileName);
    void Save(const std::string& application = "");
    void Update(MenuArray& menu) const;

  private:
    struct Entry {
        std::string key;  // the name in upper case
        std::string name;
    };
    void RemoveKey(const std::string& key);

    SettingsStore& settings_;
    std::vector<Entry> files_;
    int16_t number_ = 5;
};

// The section of the settings store that holds the list.
inline constexpr const char* MRUSection = "colMRUFiles";

}  // namespace vantrellion
