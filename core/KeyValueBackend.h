// What the access layer modRegAPI needs of a place that holds keys and values. The SQLite store
// (KeyValueStore) holds the configuration; the autostart folders (AutostartFolders) hold the
// start-up lists. The layer picks one by the key path and turns the results into its texts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantrellion {

using RegRoot = uint32_t;
inline constexpr RegRoot HKEY_CURRENT_USER = 0x80000001u;
inline constexpr RegRoot HKEY_LOCAL_MACHINE = 0x80000002u;

// Stored types: a text, or a 32-bit number.
inline constexpr int32_t RegTypeText = 1;
inline constexpr int32_t RegTypeNumber = 4;

enum class StoreStatus {
    Ok,
    KeyNotFound,
    ValueNotFound,
    Refused,  // the store will not do it: a key with subkeys, or a root key, cannot be deleted
    Failed,   // the store could not do it (locked, read-only, disk full, damaged)
};

// A value as stored: its type, and its data, a text or an integer when it holds one.
struct StoredValue {
    int32_t Type = 0;
    enum class Data { None, Text, Integer } Kind = Data::None;
    std::string Text;
    int64_t Integer = 0;
};

class KeyValueBackend {
  public:
    virtual ~KeyValueBackend() = default;
    // Whether the key can be opened to change its values: Ok, KeyNotFound, or Failed.
    virtual StoreStatus KeyExists(RegRoot root, const std::string& keyPath) = 0;
    // Opens the key for writing, creating it and its missing parents; Ok when it exists already.
    virtual StoreStatus CreateKey(RegRoot root, const std::string& keyPath) = 0;
    virtual StoreStatus QueryValue(RegRoot root, const std::string& keyPath,
                                   const std::string& name, StoredValue& out) = 0;
    virtual StoreStatus SetValue(RegRoot root, const std::string& keyPath, const std::string& name,
                                 const StoredValue& value) = 0;
    virtual StoreStatus DeleteValue(RegRoot root, const std::string& keyPath,
                                    const std::string& name) = 0;
    virtual StoreStatus DeleteKey(RegRoot root, const std::string& keyPath) = 0;
    // The notices that are due for the user, each told once; the list is emptied.
    virtual std::vector<std::string> TakeNotices() { return {}; }
};

// Where window places are kept: one text per window, "Left,Top,Width,Height", under
// keyPath\section of a root; an empty keyPath stands for the program's name. The store's access
// layer implements it.
class WindowPlaceSettings {
  public:
    virtual ~WindowPlaceSettings() = default;
    // The text stored for the window, or "" when there is none or it cannot be read.
    virtual std::string ReadPlace(RegRoot root, const std::string& keyPath,
                                  const std::string& section, const std::string& window) = 0;
    // Stores the text; a failed write is lost, as nothing about window places is ever reported.
    virtual void WritePlace(RegRoot root, const std::string& keyPath, const std::string& section,
                            const std::string& window, const std::string& text) = 0;
};

}  // namespace vantrellion
