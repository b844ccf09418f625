// The entries of the string table, sorted by id.
#pragma once

#include <span>

namespace vantrellion {

struct StringEntry {
    int Id;
    const char* Text;
};

std::span<const StringEntry> StringTableEntries();

}  // namespace vantrellion
