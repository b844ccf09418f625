// The saves of the configuration that other subsystems reach through the ConfigurationStore
// interface, served by clsConfiguration from the shared state of one System.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

class ConfigurationStoreAdapter final : public ConfigurationStore {
  public:
    explicit ConfigurationStoreAdapter(System& s) : s_(s) {}
    bool ConfigurationLogFileNameSave(bool quiet) override;
    void ConfigurationDataFileNameSave() override;
    void ConfigurationDataFilePathSave() override;
    void ConfigurationFlagLoggingSave() override;      // LoggingOnOff as it stands
    void ConfigurationFlagRunNoBoardsSave() override;  // RunNoBoards as it stands

  private:
    System& s_;
};

}  // namespace vantrellion
