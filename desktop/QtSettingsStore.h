// The per-user settings store of the recent files list, in QSettings: one file per application
// under the user's configuration directory ($XDG_CONFIG_HOME/<application>/<application>.conf,
// by default ~/.config/Vantrellion/Vantrellion.conf), a group per section.
#pragma once

#include "core/clsMRUmostRecentlyUsedFiles.h"

namespace vantrellion {

class QtSettingsStore : public SettingsStore {
  public:
    // Numbered keys in the order of their numbers, then any others by name.
    std::vector<std::pair<std::string, std::string>> GetAllSettings(
        const std::string& application, const std::string& section) override;
    void DeleteSection(const std::string& application, const std::string& section) override;
    void SaveSetting(const std::string& application, const std::string& section,
                     const std::string& key, const std::string& value) override;
};

}  // namespace vantrellion
