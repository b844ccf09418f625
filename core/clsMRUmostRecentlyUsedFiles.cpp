#include "core/clsMRUmostRecentlyUsedFiles.h"

#include <algorithm>
#include <cctype>

#include "core/Constants.h"

namespace vantrellion {

namespace {

std::string UpperKey(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

std::string ApplicationOrTitle(const std::string& application) {
    return application.empty() ? std::string(AppTitle) : application;
}

}  // namespace

void clsMRUmostRecentlyUsedFiles::RemoveKey(const std::string& key) {
    auto it =
        std::find_if(files_.begin(), files_.end(), [&](const Entry& e) { return e.key == key; });
    if (it != files_.end()) files_.erase(it);
}

void clsMRUmostRecentlyUsedFiles::Add(const std::string& fileName) {
    const std::string key = UpperKey(fileName);
    if (files_.empty()) {
        files_.push_back({key, fileName});
        return;
    }
    RemoveKey(key);
    files_.insert(files_.begin(), {key, fileName});
    // One name falls off at a time: a capacity lowered by more than one is reached only by
    // later adds.
    if (Count() > number_) files_.pop_back();
}

void clsMRUmostRecentlyUsedFiles::Clear() {
    files_.clear();
}

std::string clsMRUmostRecentlyUsedFiles::Item(int16_t position) const {
    if (position < 1 || position > Count()) return {};
    return files_[position - 1].name;
}

void clsMRUmostRecentlyUsedFiles::Remove(const std::string& fileName) {
    RemoveKey(UpperKey(fileName));
}

void clsMRUmostRecentlyUsedFiles::Load(const std::string& application) {
    const auto stored = settings_.GetAllSettings(ApplicationOrTitle(application), MRUSection);
    if (stored.empty()) return;
    Clear();
    // The last stored entry first, then each earlier one before it, so that the stored order
    // stands. A name stored twice is kept once, where it stands first.
    for (auto it = stored.rbegin(); it != stored.rend(); ++it) {
        const std::string key = UpperKey(it->second);
        RemoveKey(key);
        files_.insert(files_.begin(), {key, it->second});
    }
}

void clsMRUmostRecentlyUsedFiles::Save(const std::string& application) {
    const std::string app = ApplicationOrTitle(application);
    settings_.DeleteSection(app, MRUSection);
    for (int32_t n = 1; n <= Count(); ++n)
        settings_.SaveSetting(app, MRUSection, std::to_string(n), files_[n - 1].name);
}

void clsMRUmostRecentlyUsedFiles::Update(MenuArray& menu) const {
    for (int n = 1; n <= number_; ++n)
        menu.SetVisible(n, false);
    if (files_.empty()) {
        menu.SetVisible(0, false);
        return;
    }
    menu.SetVisible(0, true);
    for (int32_t n = 1; n <= Count(); ++n) {
        menu.SetCaption(n, files_[n - 1].name);
        menu.SetVisible(n, true);
    }
    for (int32_t n = Count() + 1; n <= number_; ++n)
        menu.SetVisible(n, false);
}

}  // namespace vantrellion
