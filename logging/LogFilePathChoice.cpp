#include "logging/LogFilePathChoice.h"

namespace vantrellion {

std::string LogFilePathStartDirectory(System& s) {
    return s.modRelay.LogFilePath.empty() ? s.platform.documentsDirectory : s.modRelay.LogFilePath;
}

void SelectLogFilePath(System& s, const std::string& chosenPath) {
    if (chosenPath.empty()) return;
    s.modRelay.LogFilePath = chosenPath.back() == '/' ? chosenPath : chosenPath + "/";
}

}  // namespace vantrellion
