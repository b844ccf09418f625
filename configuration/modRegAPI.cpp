#include "configuration/modRegAPI.h"

#include <optional>

#include "configuration/AutostartFolders.h"
#include "core/NumericText.h"
#include "core/FatalError.h"
#include "core/TextEncoding.h"

namespace vantrellion {

namespace {

// The place that holds a key: the autostart folders for the platform's start-up lists, the
// store for every other key.
class StoreFor {
  public:
    StoreFor(System& s, const std::string& keyPath)
        : folders_({s.platform.autostartMachineDirectory, s.platform.autostartUserDirectory}),
          store_(StartupListName(keyPath).empty() ? static_cast<KeyValueBackend*>(s.platform.store)
                                                  : &folders_) {}
    KeyValueBackend* get() const { return store_; }

  private:
    AutostartFolders folders_;
    KeyValueBackend* store_;
};

void LayerBox(System& s, const std::string& text) {
    s.Message(MessageBoxRequest{text, Buttons::OK, Icon::None, 1, AppTitle});
}

std::string CouldNotReadKey(const std::string& valueName) {
    return "Could not read Key\r\nkey=" + valueName;
}

// The general number-to-text conversion: a blank stands where a minus sign would.
std::string NumberText(int64_t v) {
    return (v < 0 ? "" : " ") + std::to_string(v);
}

// The text of a value that has been found, or nothing when its type or data cannot be read.
std::optional<std::string> ValueText(const StoredValue& v) {
    if (v.Type == RegTypeText && v.Kind == StoredValue::Data::Text) {
        // Texts are stored as UTF-8; a text that is not (written as Latin-1 bytes by an
        // earlier version, or by hand) is read as Latin-1, so nothing is lost or replaced.
        return IsValidUtf8(v.Text) ? v.Text : Latin1ToUtf8(v.Text);
    }
    if (v.Type == RegTypeNumber && v.Kind == StoredValue::Data::Integer && v.Integer >= INT32_MIN &&
        v.Integer <= INT32_MAX)
        return NumberText(v.Integer);
    return std::nullopt;
}

}  // namespace

bool IsRegSentinel(const std::string& text) {
    return text == REGKEYNOTFOUND || text == VALUENAMENOTFOUND;
}

void ShowStoreNotices(System& s) {
    if (!s.platform.store) return;
    for (const auto& text : s.platform.store->TakeNotices())
        s.Message(MessageBoxRequest{text, Buttons::OK, Icon::Exclamation, 1, AppTitle});
}

void RegDeleteKey(System& s, RegRoot root, const std::string& keyPath) {
    const StoreFor place(s, keyPath);
    KeyValueBackend* store = place.get();
    // The open for setting values comes first; its failure is told and the delete still runs.
    const StoreStatus open = store ? store->KeyExists(root, keyPath) : StoreStatus::Failed;
    ShowStoreNotices(s);
    if (open != StoreStatus::Ok) LayerBox(s, "Could not open key");
    const StoreStatus del = store ? store->DeleteKey(root, keyPath) : StoreStatus::Failed;
    ShowStoreNotices(s);
    if (del != StoreStatus::Ok) LayerBox(s, "Could not delete key");
}

void RegDeleteValue(System& s, RegRoot root, const std::string& keyPath,
                    const std::string& valueName) {
    const StoreFor place(s, keyPath);
    KeyValueBackend* store = place.get();
    const StoreStatus open = store ? store->KeyExists(root, keyPath) : StoreStatus::Failed;
    ShowStoreNotices(s);
    if (open != StoreStatus::Ok) {
        LayerBox(s, "Could not open key");
        return;
    }
    const StoreStatus del = store->DeleteValue(root, keyPath, valueName);
    ShowStoreNotices(s);
    if (del == StoreStatus::KeyNotFound)
        LayerBox(s, "Could not open key");
    else if (del != StoreStatus::Ok)
        LayerBox(s, "Could not delete key value");
}

std::string RegReadWithSentinels(System& s, RegRoot root, const std::string& keyPath,
                                 const std::string& valueName) {
    const StoreFor place(s, keyPath);
    KeyValueBackend* store = place.get();
    if (!store) return REGKEYNOTFOUND;
    StoredValue v;
    const StoreStatus st = store->QueryValue(root, keyPath, valueName, v);
    ShowStoreNotices(s);
    switch (st) {
        case StoreStatus::Ok:
            break;
        case StoreStatus::ValueNotFound:
            return VALUENAMENOTFOUND;
        default:
            return REGKEYNOTFOUND;  // the key could not be opened
    }
    if (auto text = ValueText(v)) return *text;
    LayerBox(s, CouldNotReadKey(valueName));
    return "";
}

std::string RegReadWithMessages(System& s, RegRoot root, const std::string& keyPath,
                                const std::string& valueName) {
    const StoreFor place(s, keyPath);
    KeyValueBackend* store = place.get();
    StoredValue v;
    const StoreStatus st =
        store ? store->QueryValue(root, keyPath, valueName, v) : StoreStatus::Failed;
    ShowStoreNotices(s);
    if (st == StoreStatus::Ok) {
        if (auto text = ValueText(v)) return *text;
    } else if (st != StoreStatus::ValueNotFound) {
        LayerBox(s, "Could not open key");
        return "";
    }
    // A missing value leaves the type unknown, which is told as an unreadable value.
    LayerBox(s, CouldNotReadKey(valueName));
    return "";
}

bool RegWriteValue(System& s, RegRoot root, const std::string& keyPath, const std::string& typeWord,
                   const std::string& valueName, const std::string& value, bool quiet) {
    const auto tell = [&](const std::string& text) {
        if (!quiet) LayerBox(s, text);
    };
    const auto notices = [&] {
        if (!quiet) ShowStoreNotices(s);
    };
    if (value.empty()) {
        tell("Bad input to creat value\r\nValue =  " + value);
        return false;
    }
    const StoreFor place(s, keyPath);
    KeyValueBackend* store = place.get();
    const StoreStatus open = store ? store->CreateKey(root, keyPath) : StoreStatus::Failed;
    notices();
    if (open != StoreStatus::Ok) {
        tell("Could not open key");
        return false;
    }
    StoredValue v;
    if (typeWord == "String") {
        v.Type = RegTypeText;
        v.Kind = StoredValue::Data::Text;
        v.Text = value;
    } else if (typeWord == "Number") {
        const auto n = TextToInt32(value);
        if (!n.Ok) throw FatalError(n.Error.Number, n.Error.Description, "modRegAPI");
        v.Type = RegTypeNumber;
        v.Kind = StoredValue::Data::Integer;
        v.Integer = n.Value;
    } else {
        tell("Bad input to create value\r\nType =  " + typeWord);
        return false;
    }
    const StoreStatus set = store->SetValue(root, keyPath, valueName, v);
    notices();
    if (set != StoreStatus::Ok) tell("Could not set value");
    return set == StoreStatus::Ok;
}

}  // namespace vantrellion
