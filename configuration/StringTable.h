// The string table of the program: texts by numeric id, compiled in. It holds the default board
// values, the chip types and address rows offered on the configuration screens, the default
// colours, the tool tips, and headings that mark the ranges of ids. Numbers in it are texts and
// are converted where they are used; each list is framed by two delimiter ids whose texts are
// the ids of its first and last items, so that a list can grow without a change of code.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/Flags.h"

namespace vantrellion {

// Ids of the table that the code reads.
namespace StringId {
inline constexpr int DefaultChipSetType = 500;  // four comma-separated items, one per board
inline constexpr int DefaultBaseAddress = 501;
inline constexpr int DefaultInputAddress = 502;
inline constexpr int DefaultCntlAddress = 503;
inline constexpr int DefaultPortConfigValue = 504;
inline constexpr int ChipTypesFirst = 547;  // delimiters of the chip types
inline constexpr int ChipTypesLast = 548;
inline constexpr int AddressRowsFirst = 597;  // delimiters of the address rows
inline constexpr int AddressRowsLast = 598;
inline constexpr int GroupColorToolTipsFirst = 338;   // + index of cmdSetColorGroupBkgrnd
inline constexpr int StatusColorToolTipsFirst = 350;  // + index of cmdSetColorIndicator
inline constexpr int DefaultGroupColor = 360;         // + group index 0 to 7
inline constexpr int DefaultStatusColor = 368;        // + index 0 to 9 of cmdSetColorIndicator
inline constexpr int StopColor = 378;
inline constexpr int AutomaticRestartTitle = 1400;
}  // namespace StringId

// The text of an id, or nothing when the table has no such id.
std::optional<std::string> StringTableFind(int id);
// The text of an id; "" when the table has none.
std::string StringTableText(int id);
// Every id of the table, in ascending order.
std::vector<int> StringTableIds();

// A comma list split at every ",", items counted from 0. An address row's comment is its
// fifth item.
std::vector<std::string> SplitCommaList(const std::string& text);
// Item index of the comma list of an id; "" when the list is shorter.
std::string StringTableListItem(int id, int index);

// The text of a delimiter id as a signed 16-bit number: the id of a list's first or last item.
int16_t DelimiterId(int id);
// The texts of the ids from the one held in firstDelimiter to the one held in lastDelimiter.
std::vector<std::string> DelimitedList(int firstDelimiter, int lastDelimiter);
// The chip types offered in cmbChipSetType, and the sixteen address rows.
std::vector<std::string> ChipTypeList();
std::vector<std::string> AddressRows();

// A colour literal, "&HC0FFFF" or "&HFF00&", as a 32-bit colour with blue in the high byte.
// Colour texts of the table are always literals; another text is a fault of the program and
// throws FatalError.
Color ParseColorLiteral(const std::string& text);
// The colour of an id of the table.
Color StringTableColor(int id);

}  // namespace vantrellion
