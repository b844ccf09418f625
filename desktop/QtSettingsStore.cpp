#include "desktop/QtSettingsStore.h"

#include <QSettings>
#include <algorithm>

#include "desktop/QtConvert.h"

namespace vantrellion {

std::vector<std::pair<std::string, std::string>> QtSettingsStore::GetAllSettings(
    const std::string& application, const std::string& section) {
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, Q(application),
                       Q(application));
    settings.beginGroup(Q(section));
    QStringList keys = settings.childKeys();
    std::stable_sort(keys.begin(), keys.end(), [](const QString& a, const QString& b) {
        bool aNumber = false, bNumber = false;
        const qlonglong x = a.toLongLong(&aNumber), y = b.toLongLong(&bNumber);
        if (aNumber != bNumber) return aNumber;
        return aNumber ? x < y : a < b;
    });
    std::vector<std::pair<std::string, std::string>> all;
    for (const QString& key : keys)
        all.emplace_back(S(key), S(settings.value(key).toString()));
    return all;
}

void QtSettingsStore::DeleteSection(const std::string& application, const std::string& section) {
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, Q(application),
                       Q(application));
    settings.remove(Q(section));
}

void QtSettingsStore::SaveSetting(const std::string& application, const std::string& section,
                                  const std::string& key, const std::string& value) {
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, Q(application),
                       Q(application));
    settings.setValue(Q(section) + "/" + Q(key), Q(value));
}

}  // namespace vantrellion
