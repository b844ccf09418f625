// Sets the process's time zone (TZ) for one scope and puts the old one back.
#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace vantrellion::test {

class ZoneScope {
  public:
    explicit ZoneScope(const std::string& zone) {
        if (const char* old = std::getenv("TZ")) old_ = old;
        setenv("TZ", zone.c_str(), 1);
        tzset();
    }
    ~ZoneScope() {
        if (old_)
            setenv("TZ", old_->c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }

  private:
    std::optional<std::string> old_;
};

}  // namespace vantrellion::test
