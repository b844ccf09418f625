// modRegAPI: the one module that talks to the key/value store. It turns the store's results
// into message boxes and sentinel texts, so that callers deal only in text: a root, a key path,
// a value name and, for writing, a type word. Every box of the layer has an OK button, no icon
// and the program's title; after a box the operation returns and the caller goes on.
//
// The store is s.platform.store; without one, every key is missing and every write refused.
// The platform's start-up lists (SOFTWARE\Microsoft\Windows\CurrentVersion\Run and its
// siblings) are held in the autostart folders of the platform instead (AutostartFolders.h).
#pragma once

#include <string>

#include "configuration/KeyValueStore.h"
#include "core/SharedState.h"

namespace vantrellion {


// The texts that a sentinel read returns in place of a value it did not find.
inline constexpr const char* REGKEYNOTFOUND = "REGKEYNOTFOUND";
inline constexpr const char* VALUENAMENOTFOUND = "VALUENAMENOTFOUND";

bool IsRegSentinel(const std::string& text);

// Deletes a key with its values. "Could not open key" when it does not exist, and then "Could
// not delete key" as the delete itself fails too.
void RegDeleteKey(System& s, RegRoot root, const std::string& keyPath);

// Deletes one value: "Could not open key" for a missing key, "Could not delete key value" when
// the value cannot be removed.
void RegDeleteValue(System& s, RegRoot root, const std::string& keyPath,
                    const std::string& valueName);

// The value as text, "REGKEYNOTFOUND" for a missing key, "VALUENAMENOTFOUND" for a missing
// value, neither with a box. A text value comes back as stored; a 32-bit number as the general
// number-to-text conversion writes it, with a blank before a positive number (" 5"). A value of
// another type, or one that cannot be read, shows "Could not read Key" and gives "".
std::string RegReadWithSentinels(System& s, RegRoot root, const std::string& keyPath,
                                 const std::string& valueName);

// The value as text, or "" after a box: "Could not open key" for a missing key, "Could not read
// Key" with the value's name for a missing or unreadable value.
std::string RegReadWithMessages(System& s, RegRoot root, const std::string& keyPath,
                                const std::string& valueName);

// Stores a value under typeWord "String" (as text) or "Number" (rounded to a signed 32-bit
// number). An empty value is refused before the key is touched; the key is then created if
// missing, and only then is the type word checked, exactly and with its case. A "Number" whose
// text is not a number, or does not fit 32 bits, throws FatalError with the conversion's
// error: the layer has no handler of its own there. True when the value was stored. A quiet
// write shows no box; the store's notices wait for the next call that shows them.
bool RegWriteValue(System& s, RegRoot root, const std::string& keyPath, const std::string& typeWord,
                   const std::string& valueName, const std::string& value, bool quiet = false);

// Shows the store's own notices that are due (a damaged, locked or read-only file).
void ShowStoreNotices(System& s);

}  // namespace vantrellion
