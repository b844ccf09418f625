#include "configuration/ConfigurationStoreAdapter.h"

#include "configuration/clsConfiguration.h"

namespace vantrellion {

bool ConfigurationStoreAdapter::ConfigurationLogFileNameSave(bool quiet) {
    return vantrellion::ConfigurationLogFileNameSave(s_, quiet);
}

void ConfigurationStoreAdapter::ConfigurationDataFileNameSave() {
    vantrellion::ConfigurationDataFileNameSave(s_);
}

void ConfigurationStoreAdapter::ConfigurationDataFilePathSave() {
    vantrellion::ConfigurationDataFilePathSave(s_);
}

void ConfigurationStoreAdapter::ConfigurationFlagLoggingSave() {
    vantrellion::ConfigurationFlagLoggingSave(s_, s_.modRelay.LoggingOnOff);
}

void ConfigurationStoreAdapter::ConfigurationFlagRunNoBoardsSave() {
    vantrellion::ConfigurationFlagRunNoBoardsSave(s_, s_.modRelay.RunNoBoards);
}

}  // namespace vantrellion
