#include "configuration/ConfigurationStoreAdapter.h"

#include "configuration/KeyValueStore.h"
#include "configuration/clsConfiguration.h"

namespace vantrellion {

// The data file's location and the two switches are stored only at the user's command (Open,
// Save As, the Logging and Emulation Mode tools): what they write is the user's change. The
// day's log file name is the program's own.

bool ConfigurationStoreAdapter::ConfigurationLogFileNameSave(bool quiet) {
    return vantrellion::ConfigurationLogFileNameSave(s_, quiet);
}

void ConfigurationStoreAdapter::ConfigurationDataFileNameSave() {
    const KeyValueStore::UserChange byUser(s_.platform.store);
    vantrellion::ConfigurationDataFileNameSave(s_);
}

void ConfigurationStoreAdapter::ConfigurationDataFilePathSave() {
    const KeyValueStore::UserChange byUser(s_.platform.store);
    vantrellion::ConfigurationDataFilePathSave(s_);
}

void ConfigurationStoreAdapter::ConfigurationFlagLoggingSave() {
    const KeyValueStore::UserChange byUser(s_.platform.store);
    vantrellion::ConfigurationFlagLoggingSave(s_, s_.modRelay.LoggingOnOff);
}

void ConfigurationStoreAdapter::ConfigurationFlagRunNoBoardsSave() {
    const KeyValueStore::UserChange byUser(s_.platform.store);
    vantrellion::ConfigurationFlagRunNoBoardsSave(s_, s_.modRelay.RunNoBoards);
}

}  // namespace vantrellion
