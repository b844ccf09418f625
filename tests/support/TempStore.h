// A temporary machine directory for a test, made with mkdtemp under /tmp and removed with all
// it holds when the test ends, and a key/value store in it wired into a System.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <memory>
#include <string>

#include "configuration/KeyValueStore.h"
#include "core/SharedState.h"

namespace vantrellion::test {

class TempDirectory {
  public:
    TempDirectory() {
        char pattern[] = "/tmp/vantrellion-test-XXXXXX";
        if (mkdtemp(pattern)) path_ = pattern;
    }
    ~TempDirectory() {
        std::error_code ec;
        if (!path_.empty()) std::filesystem::remove_all(path_, ec);
    }
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;

    // The directory without a trailing "/"; "" if it could not be made.
    const std::string& Path() const { return path_; }
    // The directory with its trailing "/", as the machine directory is written.
    std::string Slashed() const { return path_ + "/"; }

  private:
    std::string path_;
};

// store.db in a fresh temporary machine directory, wired into the System it is given.
class TempStore {
  public:
    explicit TempStore(System& s, int busyTimeoutMs = 500)
        : store_(std::make_unique<KeyValueStore>(dir_.Slashed() + "store.db", busyTimeoutMs)) {
        s.platform.machineDirectory = dir_.Slashed();
        s.platform.store = store_.get();
    }
    KeyValueStore& store() { return *store_; }
    std::string FilePath() const { return dir_.Slashed() + "store.db"; }
    const TempDirectory& dir() const { return dir_; }

  private:
    TempDirectory dir_;
    std::unique_ptr<KeyValueStore> store_;
};

}  // namespace vantrellion::test
