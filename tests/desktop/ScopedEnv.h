// Sets an environment variable for the life of the object, and puts the old state back.
#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <string>

namespace vantrellion::test {

class ScopedEnv {
  public:
    ScopedEnv(const char* name, const std::string& value)
        : name_(name), had_(qEnvironmentVariableIsSet(name)), old_(qgetenv(name)) {
        qputenv(name, QByteArray::fromStdString(value));
    }
    ~ScopedEnv() {
        if (had_)
            qputenv(name_, old_);
        else
            qunsetenv(name_);
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

  private:
    const char* name_;
    bool had_;
    QByteArray old_;
};

}  // namespace vantrellion::test
