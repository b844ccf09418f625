#include "desktop/RecentFilesMenu.h"

#include "core/clsMRUmostRecentlyUsedFiles.h"
#include "desktop/QtConvert.h"
#include "desktop/frmRelay.h"
#include "mainscreen/FileCommands.h"

namespace vantrellion {

namespace {

class MRUMenu : public MenuArray {
  public:
    explicit MRUMenu(frmRelay& w) : w_(w) {}
    void SetVisible(int index, bool visible) override {
        if (QAction* a = Entry(index)) a->setVisible(visible);
    }
    void SetCaption(int index, const std::string& caption) override {
        // "&" in a file name is a letter, not a mnemonic.
        if (QAction* a = Entry(index)) a->setText(Q(caption).replace("&", "&&"));
    }

  private:
    QAction* Entry(int index) const {
        QAction* a = w_.Menu("mnuMRUFiles", index);
        return a && a->data().toInt() == index ? a : nullptr;
    }
    frmRelay& w_;
};

}  // namespace

void RecentFilesMenu::Show() {
    clsMRUmostRecentlyUsedFiles files(settings_);
    files.Load();
    MRUMenu menu(window_);
    files.Update(menu);
}

void RecentFilesMenu::FileUsed(const std::string& fullName) {
    clsMRUmostRecentlyUsedFiles files(settings_);
    files.Load();
    files.Add(fullName);
    files.Save();
    MRUMenu menu(window_);
    files.Update(menu);
}

std::string RecentFilesMenu::MostRecent() {
    clsMRUmostRecentlyUsedFiles files(settings_);
    files.Load();
    return files.Item(1);
}

void RecentFilesMenu::Open(int index) {
    clsMRUmostRecentlyUsedFiles files(settings_);
    files.Load();
    const std::string name = files.Item(static_cast<int16_t>(index));
    if (name.empty()) return;
    if (mnuMRUFiles(s_, name)) return;  // a loaded file has moved to the top by now
    files.Load();
    files.Remove(name);
    files.Save();
    MRUMenu menu(window_);
    files.Update(menu);
}

}  // namespace vantrellion
