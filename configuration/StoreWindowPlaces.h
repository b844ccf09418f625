// Window places kept in the configuration store, through the access layer's sentinels: a text
// that a read could not find counts as none.
#pragma once

#include "core/SharedState.h"

namespace vantrellion {

class StoreWindowPlaces : public WindowPlaceSettings {
  public:
    // Uses whatever store the system has at the time of each call.
    explicit StoreWindowPlaces(System& s) : s_(s) {}
    std::string ReadPlace(RegRoot root, const std::string& keyPath, const std::string& section,
                          const std::string& window) override;
    void WritePlace(RegRoot root, const std::string& keyPath, const std::string& section,
                    const std::string& window, const std::string& text) override;

  private:
    System& s_;
};

}  // namespace vantrellion
