#include "configuration/StringTable.h"

#include <algorithm>

#include "core/NumericText.h"
#include "configuration/StringTableEntries.h"
#include "core/FatalError.h"

namespace vantrellion {

std::optional<std::string> StringTableFind(int id) {
    const auto& entries = StringTableEntries();
    const auto it = std::lower_bound(entries.begin(), entries.end(), id,
                                     [](const StringEntry& e, int v) { return e.Id < v; });
    if (it == entries.end() || it->Id != id) return std::nullopt;
    return std::string(it->Text);
}

std::string StringTableText(int id) {
    return StringTableFind(id).value_or("");
}

std::vector<int> StringTableIds() {
    std::vector<int> ids;
    for (const auto& e : StringTableEntries())
        ids.push_back(e.Id);
    return ids;
}

std::vector<std::string> SplitCommaList(const std::string& text) {
    std::vector<std::string> items;
    size_t start = 0;
    for (;;) {
        const size_t comma = text.find(',', start);
        items.push_back(text.substr(start, comma - start));
        if (comma == std::string::npos) break;
        start = comma + 1;
    }
    return items;
}

std::string StringTableListItem(int id, int index) {
    const auto items = SplitCommaList(StringTableText(id));
    return index >= 0 && index < static_cast<int>(items.size()) ? items[index] : "";
}

int16_t DelimiterId(int id) {
    const auto v = TextToInt16(StringTableText(id));
    if (!v.Ok) throw FatalError(v.Error.Number, v.Error.Description);
    return v.Value;
}

std::vector<std::string> DelimitedList(int firstDelimiter, int lastDelimiter) {
    std::vector<std::string> items;
    const int last = DelimiterId(lastDelimiter);
    for (int id = DelimiterId(firstDelimiter); id <= last; ++id)
        items.push_back(StringTableText(id));
    return items;
}

std::vector<std::string> ChipTypeList() {
    return DelimitedList(StringId::ChipTypesFirst, StringId::ChipTypesLast);
}

std::vector<std::string> AddressRows() {
    return DelimitedList(StringId::AddressRowsFirst, StringId::AddressRowsLast);
}

Color ParseColorLiteral(const std::string& text) {
    const auto v = TextToInt32(text);
    if (!v.Ok) throw FatalError(v.Error.Number, v.Error.Description);
    return v.Value;
}

Color StringTableColor(int id) {
    return ParseColorLiteral(StringTableText(id));
}

}  // namespace vantrellion
