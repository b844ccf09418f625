#include "history/HistorySettings.h"

#include <sys/stat.h>

#include "configuration/ConfigurationValueNames.h"
#include "configuration/KeyValueStore.h"
#include "core/NumericText.h"
#include "configuration/StringTable.h"
#include "configuration/modRegAPI.h"

namespace vantrellion {

namespace {

const char* const ConfigKey = "SOFTWARE\\Vantrellion\\Config";

bool Read(KeyValueStore& store, const std::string& name, std::string& out) {
    StoredValue v;
    if (store.QueryValue(HKEY_LOCAL_MACHINE, ConfigKey, name, v) != StoreStatus::Ok ||
        v.Kind != StoredValue::Data::Text)
        return false;
    out = v.Text;
    return true;
}

}  // namespace

HistorySettings ReadHistorySettings(const std::string& machineDirectory) {
    ModRelay m;
    for (int g = 0; g < 8; ++g)
        m.ColorRelayGroup[g] = ParseColorLiteral(StringTableText(StringId::DefaultGroupColor + g));
    m.LogFilePath = machineDirectory;

    // Only an existing store is opened: the store would otherwise make a new file.
    const std::string file = machineDirectory + "store.db";
    struct stat st {};
    if (::stat(file.c_str(), &st) == 0 && S_ISREG(st.st_mode)) {
        KeyValueStore store(file);
        std::string text;
        if (Read(store, "LogFilePath", text) && !text.empty() && text != " ") m.LogFilePath = text;
        for (int r = 0; r < RelaysPerBoard; ++r)
            if (Read(store, RelayNameValueName(0, r), text)) m.Board[0].RelayName[r] = text;
        for (int g = 0; g < 8; ++g) {
            if (!Read(store, GroupColorValueName(g), text)) continue;
            const Converted<int32_t> c = TextToInt32(text);
            if (c.Ok) m.ColorRelayGroup[g] = c.Value;
        }
    }
    HistorySettings out;
    out.LogDirectory = m.LogFilePath;
    out.Labels = HistoryLabelsFrom(m);
    return out;
}

}  // namespace vantrellion
