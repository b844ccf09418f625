#include <gtest/gtest.h>

#include "configuration/StringTable.h"
#include "core/FatalError.h"

namespace vantrellion {
namespace {

TEST(StringTable, ChipTypesStopBeforeLast) {
    EXPECT_EQ(ChipTypeList(),
              (std::vector<std::string>{"CBRelay08", "CBRelay16A", "CBRelay16B", "8255PortA",
                                        "8255PortB", "PCL-725", "ACL-7125"}));
    EXPECT_EQ(StringTableText(527), "LAST");
}

TEST(StringTable, SixteenAddressRowsGiveFourIndependentLists) {
    const auto rows = AddressRows();
    ASSERT_EQ(rows.size(), 16u);
    std::vector<std::string> base, input, cntl, config;
    for (const auto& row : rows) {
        const auto fields = SplitCommaList(row);
        ASSERT_EQ(fields.size(), 5u) << row;  // the comment survives as a fifth item
        base.push_back(fields[0]);
        input.push_back(fields[1]);
        cntl.push_back(fields[2]);
        config.push_back(fields[3]);
    }
    EXPECT_EQ(base,
              (std::vector<std::string>{"200", "220", "240", "260", "280", "2A0", "2C0", "2E0",
                                        "300", "310", "318", "320", "328", "330", "338", "340"}));
    EXPECT_EQ(input.front(), "201");
    EXPECT_EQ(cntl[10], "31B");
    EXPECT_EQ(config, (std::vector<std::string>{"80", "81", "82", "83", "88", "89", "8A", "8B",
                                                "90", "91", "92", "93", "98", "99", "9A", "9B"}));
    // Comments are kept as typed, irregular blanks and "OP" included.
    EXPECT_EQ(rows[6], "2C0,2C1,2C3,8A,        index 6   H8A -O -I -OP");
    EXPECT_EQ(rows[14], "338,339,33B,9A,         index 14  H9A  -I -I - IO   ");
    // The legend and the end marker are not in the list.
    EXPECT_EQ(StringTableText(550), "Base,Input,Cntl,Config                      A B CC");
    EXPECT_EQ(StringTableText(567), "Last");
}

TEST(StringTable, DefaultColoursParseToBgrNumbers) {
    const std::pair<int, Color> cases[] = {
        {360, 12648447}, {361, 8421631},  {362, 8438015},  {363, 8454143}, {364, 16777088},
        {365, 16744576}, {366, 16744703}, {367, 16777215}, {368, 65535},   {369, 65280},
        {370, 12632256}, {371, 65280},    {372, 12632256}, {373, 65280},   {374, 12632256},
        {375, 65280},    {376, 12632256}, {377, 12632256}, {378, 255},
    };
    for (const auto& [id, color] : cases)
        EXPECT_EQ(StringTableColor(id), color) << id;
    EXPECT_EQ(StringTableColor(StringId::StopColor), Rgb(255, 0, 0));
}

TEST(StringTable, ColourLiteralsInBothForms) {
    const std::pair<const char*, Color> cases[] = {
        {"&HFF00&", 65280},
        {"&HC0FFFF", 12648447},
        {"&hff&", 255},
        {"&HFFFF", -1},
        {"&HFFFF&", 65535},
        {"&HFFFFFFFF", -1},
        {"&H80000000&", INT32_MIN},
        {"12632256", 12632256},
        {" &HFF& ", 255},
    };
    for (const auto& [text, color] : cases)
        EXPECT_EQ(ParseColorLiteral(text), color) << text;
    for (const char* bad : {"", "&H", "&HG0", "FF00", "&H1FFFFFFFF", "#FF00"})
        EXPECT_THROW(ParseColorLiteral(bad), FatalError) << bad;
}

TEST(StringTable, DefaultBoardValuesAreItemsByBoard) {
    const std::tuple<int, int, const char*> cases[] = {
        {500, 0, "CBRelay16A"}, {500, 1, "CBRelay16B"}, {501, 0, "300"}, {501, 3, "30A"},
        {502, 0, "301"},        {503, 0, "0"},          {504, 2, "0"},   {501, 4, ""},
    };
    for (const auto& [id, board, text] : cases)
        EXPECT_EQ(StringTableListItem(id, board), text) << id << " " << board;
    EXPECT_EQ(DelimitedList(516, 517).size(), 5u);
}

TEST(StringTable, ToolTipsAreReachedThroughTheirDelimiters) {
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(StringTableText(DelimiterId(StringId::GroupColorToolTipsFirst) + i),
                  "Choose Backgroung Color For Group " + std::to_string(i + 1));
    EXPECT_EQ(StringTableText(DelimiterId(StringId::StatusColorToolTipsFirst) + 0),
              "Select Bachground Color for Relay Name");
    EXPECT_EQ(StringTableText(DelimiterId(StringId::StatusColorToolTipsFirst) + 6),
              "Select Color to Indicate MAanual is NOT ON");
    EXPECT_EQ(StringTableText(347), "Select Color to Indictae Input is ON (High)");
    EXPECT_EQ(StringTableText(303), "Usually the same as \"Base Address\", see Documentation");
    EXPECT_EQ(StringTableText(255),
              "\"STOP\" and RESET this relay, (overrides ALL other settings)");
    EXPECT_EQ(StringTableText(225), "User Defined Relay Name ");
    EXPECT_EQ(StringTableText(StringId::AutomaticRestartTitle),
              "AUTOMATIC RESTART following System Crash");
}

TEST(StringTable, LookupByIdAndTheWholeTableInOrder) {
    EXPECT_FALSE(StringTableFind(305).has_value());
    EXPECT_EQ(StringTableText(305), "");
    EXPECT_EQ(StringTableFind(101), "FV.2001.02.29");
    const auto ids = StringTableIds();
    EXPECT_TRUE(std::is_sorted(ids.begin(), ids.end()));
    EXPECT_EQ(ids.front(), 101);
    EXPECT_EQ(ids.back(), 22000);
    for (int id : {199, 297, 299, 328, 352, 356, 358, 399, 519, 568})
        EXPECT_EQ(StringTableText(id), "-") << id;
}

TEST(StringTable, CommaListsKeepEmptyItems) {
    EXPECT_EQ(SplitCommaList("a,,b,"), (std::vector<std::string>{"a", "", "b", ""}));
    EXPECT_EQ(SplitCommaList(""), std::vector<std::string>{""});
}

}  // namespace
}  // namespace vantrellion
