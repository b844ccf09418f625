#include "mqtt/MqttSettings.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>

#include "configuration/ConfigurationValueNames.h"
#include "configuration/clsConfiguration.h"
#include "core/TrimmedText.h"

namespace vantrellion {

namespace {

// "1" and "0" as the store keeps flags; anything else keeps the default.
bool FlagSetting(const std::string& text, bool fallback) {
    if (text == "1") return true;
    if (text == "0") return false;
    return fallback;
}

// A text of the store without the blanks around it (the store keeps an empty text as " ").
std::string Load(System& s, const char* name) {
    return TrimmedText(ConfigurationTextLoad(s, name));
}

}  // namespace

std::optional<MqttBroker> ParseMqttUrl(const std::string& url, std::string& error) {
    MqttBroker b;
    std::string rest;
    if (url.rfind("mqtt://", 0) == 0) {
        rest = url.substr(7);
    } else if (url.rfind("mqtts://", 0) == 0) {
        rest = url.substr(8);
        b.Tls = true;
        b.Port = 8883;
    } else {
        error = "the broker's URL \"" + url + "\" does not begin with mqtt:// or mqtts://";
        return std::nullopt;
    }
    if (!rest.empty() && rest.back() == '/') rest.pop_back();
    std::string port;
    if (!rest.empty() && rest.front() == '[') {
        const size_t close = rest.find(']');
        if (close == std::string::npos) {
            error = "the broker's URL \"" + url + "\" has an unclosed [";
            return std::nullopt;
        }
        b.Host = rest.substr(1, close - 1);
        const std::string after = rest.substr(close + 1);
        if (!after.empty()) {
            if (after.front() != ':') {
                error = "the broker's URL \"" + url + "\" has text after the address";
                return std::nullopt;
            }
            port = after.substr(1);
        }
    } else {
        const size_t colon = rest.rfind(':');
        b.Host = rest.substr(0, colon);
        if (colon != std::string::npos) port = rest.substr(colon + 1);
        if (colon != std::string::npos && port.empty()) port = "-";
    }
    if (b.Host.empty() || b.Host.find_first_of("/@ ") != std::string::npos) {
        error = "the broker's URL \"" + url + "\" names no host";
        return std::nullopt;
    }
    if (!port.empty()) {
        if (port.size() > 5 || port.find_first_not_of("0123456789") != std::string::npos ||
            std::stoi(port) < 1 || std::stoi(port) > 65535) {
            error = "the broker's URL \"" + url + "\" has no valid port";
            return std::nullopt;
        }
        b.Port = std::stoi(port);
    }
    return b;
}

std::optional<std::string> ReadMqttPasswordFile(const std::string& path, std::string& error) {
    struct stat st {};
    errno = 0;
    if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode)) {
        error = "the password file " + path +
                " cannot be read: " + (errno ? std::strerror(errno) : "it is not a file");
        return std::nullopt;
    }
    // A password that others can read is no secret: the bridge will not send it.
    if (st.st_mode & (S_IRGRP | S_IROTH | S_IWGRP | S_IWOTH)) {
        error = "the password file " + path +
                " may be read or written by other users; not used (chmod 600 " + path + ")";
        return std::nullopt;
    }
    std::ifstream in(path);
    std::string line;
    if (!in || !std::getline(in, line)) {
        error = "the password file " + path + " cannot be read";
        return std::nullopt;
    }
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return line;
}

std::string MachineName() {
    char name[256] = {};
    if (::gethostname(name, sizeof name - 1) != 0 || name[0] == '\0') return "vantrellion";
    return name;
}

std::string DefaultMqttBaseTopic() {
    return "vantrellion/" + MachineName();
}

std::string EffectiveBaseTopic(const MqttSettings& settings) {
    std::string base = settings.BaseTopic;
    while (!base.empty() && base.back() == '/')
        base.pop_back();
    return base.empty() ? DefaultMqttBaseTopic() : base;
}

MqttSettings LoadMqttSettings(System& s) {
    MqttSettings m;
    m.Url = Load(s, MqttUrlValueName);
    m.User = Load(s, MqttUserValueName);
    m.PasswordFile = Load(s, MqttPasswordFileValueName);
    m.BaseTopic = Load(s, MqttBaseTopicValueName);
    m.Discovery = FlagSetting(Load(s, MqttDiscoveryValueName), true);
    m.RemoteControl = FlagSetting(Load(s, MqttRemoteControlValueName), false);
    return m;
}

void SaveMqttSettings(System& s, const MqttSettings& m) {
    ConfigurationTextSave(s, MqttUrlValueName, m.Url);
    ConfigurationTextSave(s, MqttUserValueName, m.User);
    ConfigurationTextSave(s, MqttPasswordFileValueName, m.PasswordFile);
    ConfigurationTextSave(s, MqttBaseTopicValueName, m.BaseTopic);
    ConfigurationTextSave(s, MqttDiscoveryValueName, m.Discovery ? "1" : "0");
    ConfigurationTextSave(s, MqttRemoteControlValueName, m.RemoteControl ? "1" : "0");
}

}  // namespace vantrellion
