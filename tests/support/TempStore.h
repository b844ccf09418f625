// A key/value store in a fresh temporary machine directory, wired into a System.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "configuration/KeyValueStore.h"
#include "core/SharedState.h"
#include "support/TempDir.h"

namespace vantrellion::test {

// store.db in a fresh temporary machine directory, wired into the System it is given.
class TempStore {
  public:
    explicit TempStore(System& s, int busyTimeoutMs = 500)
        : store_(std::make_unique<KeyValueStore>(dir_.Path() + "store.db", busyTimeoutMs)) {
        s.platform.machineDirectory = dir_.Path();
        s.platform.store = store_.get();
    }
    KeyValueStore& store() { return *store_; }
    std::string FilePath() const { return dir_.Path() + "store.db"; }
    const TempDir& dir() const { return dir_; }

  private:
    TempDir dir_;
    std::unique_ptr<KeyValueStore> store_;
};

}  // namespace vantrellion::test
