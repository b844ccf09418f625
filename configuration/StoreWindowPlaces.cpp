#include "configuration/StoreWindowPlaces.h"

#include "configuration/KeyValueStore.h"
#include "configuration/ProgramLocation.h"
#include "configuration/modRegAPI.h"

namespace vantrellion {

namespace {

std::string KeyOf(const std::string& keyPath, const std::string& section) {
    return (keyPath.empty() ? ProgramName() : keyPath) + "\\" + section;
}

}  // namespace

std::string StoreWindowPlaces::ReadPlace(RegRoot root, const std::string& keyPath,
                                         const std::string& section, const std::string& window) {
    if (!s_.platform.store) return {};
    StoredValue v;
    if (s_.platform.store->QueryValue(root, KeyOf(keyPath, section), window, v) != StoreStatus::Ok)
        return {};
    if (v.Kind != StoredValue::Data::Text || IsRegSentinel(v.Text)) return {};
    return v.Text;
}

void StoreWindowPlaces::WritePlace(RegRoot root, const std::string& keyPath,
                                   const std::string& section, const std::string& window,
                                   const std::string& text) {
    if (!s_.platform.store) return;
    StoredValue value;
    value.Type = RegTypeText;
    value.Kind = StoredValue::Data::Text;
    value.Text = text;
    s_.platform.store->SetValue(root, "\\" + KeyOf(keyPath, section) + "\\", window, value);
}

}  // namespace vantrellion
