// The recent files list on the main screen's File menu (mnuMRUFiles(0..5), the separator at
// 0): every Run File opened or saved under a new name goes to the top, and a click on an entry
// opens that file the way File > Open does. A file that no longer loads leaves the list.
#pragma once

#include "core/RecentFiles.h"
#include "core/SharedState.h"
#include "desktop/QtSettingsStore.h"

namespace vantrellion {

class frmRelay;

class RecentFilesMenu : public RecentFiles {
  public:
    RecentFilesMenu(System& s, frmRelay& window) : s_(s), window_(window) {}

    // The stored list onto the menu.
    void Show();
    void FileUsed(const std::string& fullName) override;
    std::string MostRecent() override;
    // mnuMRUFiles(index): opens the entry's file.
    void Open(int index);

  private:
    System& s_;
    frmRelay& window_;
    QtSettingsStore settings_;
};

}  // namespace vantrellion
