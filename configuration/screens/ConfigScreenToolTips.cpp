#include "configuration/screens/ConfigScreenToolTips.h"

#include <map>

#include "configuration/StringTable.h"

namespace vantrellion {

int ConfigToolTipId(const std::string& controlName, int index) {
    // The colour buttons count from the first id that their delimiter names.
    if (controlName == "cmdSetColorGroupBkgrnd")
        return DelimiterId(StringId::GroupColorToolTipsFirst) + index;
    if (controlName == "cmdSetColorIndicator")
        return DelimiterId(StringId::StatusColorToolTipsFirst) + index;
    static const std::map<std::string, int> ids = {
        {"lblBoard", 300},           {"lblChipSetType", 302},       {"cmbChipSetType", 302},
        {"lblBackground", 302},      {"lblBaseAddress", 303},       {"cmbBaseAddress", 303},
        {"lblInputAddress", 304},    {"cmbInputAddress", 304},      {"lblCntlAddress", 306},
        {"cmbCntlAddress", 306},     {"lblPortConfig", 308},        {"cmbPortConfigValue", 308},
        {"lblRelayName", 311},       {"txtRelayName", 311},         {"chkLogBoard", 312},
        {"lblResetOnExit", 314},     {"chkResetOnExit", 314},       {"lblLogFilePath", 316},
        {"txtLogFilePath", 316},     {"cmdLogFilePathBrowse", 316}, {"lblLoggingYN", 316},
        {"chkWarnOverlapTime", 318},
    };
    const auto it = ids.find(controlName);
    return it == ids.end() ? 0 : it->second;
}

std::string ConfigToolTip(const std::string& controlName, int index) {
    const int id = ConfigToolTipId(controlName, index);
    return id == 0 ? std::string() : StringTableText(id);
}

}  // namespace vantrellion
