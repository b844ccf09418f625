#include <gtest/gtest.h>

#include "configuration/StringTable.h"
#include "core/FatalError.h"

namespace vantrellion {
namespace {

// (The chip types, the address lists and the tool tips are also checked where the screens show
// them.)
TEST(StringTable, SixteenAddressRowsGiveFourIndependentLists) {
    const auto rows = AddressRows();
    ASSERT_EQ(rows.size(), 16u);
    std::vector<std::string> base, config;
    for (const auto& row : rows) {
        const auto fields = SplitCommaList(row);
        ASSERT_EQ(fields.size(), 5u) << row;  // the comment survives as a fifth item
        base.push_back(fields[0]);
        config.push_back(fields[3]);
    }
    EXPECT_EQ(base,
              (std::vector<std::string>{"200", "220", "240", "260", "280", "2A0", "2C0", "2E0",
                                        "300", "310", "318", "320", "328", "330", "338", "340"}));
    EXPECT_EQ(config, (std::vector<std::string>{"80", "81", "82", "83", "88", "89", "8A", "8B",
                                                "90", "91", "92", "93", "98", "99", "9A", "9B"}));
    // Comments are kept as typed, irregular blanks included; the legend is not in the list.
    EXPECT_EQ(rows[14], "338,339,33B,9A,         index 14  H9A  -I -I - IO   ");
    EXPECT_EQ(StringTableText(550), "Base,Input,Cntl,Config                      A B CC");
    EXPECT_EQ(SplitCommaList("a,,b,"), (std::vector<std::string>{"a", "", "b", ""}));
}

TEST(StringTable, ColoursInBothLiteralFormsAndTheDefaults) {
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
    EXPECT_EQ(StringTableColor(361), 8421631);
    EXPECT_EQ(StringTableColor(378), 255);
    EXPECT_EQ(StringTableColor(StringId::StopColor), Rgb(255, 0, 0));
}

TEST(StringTable, ListItemsDelimitersAndTheWholeTableInOrder) {
    const std::tuple<int, int, const char*> items[] = {
        {500, 1, "CBRelay16B"}, {501, 3, "30A"}, {504, 2, "0"}, {501, 4, ""}};
    for (const auto& [id, board, text] : items)
        EXPECT_EQ(StringTableListItem(id, board), text) << id << " " << board;
    EXPECT_EQ(DelimitedList(516, 517).size(), 5u);
    EXPECT_EQ(StringTableText(DelimiterId(StringId::StatusColorToolTipsFirst)),
              "Select Bachground Color for Relay Name");
    EXPECT_EQ(StringTableText(347), "Select Color to Indictae Input is ON (High)");

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

}  // namespace
}  // namespace vantrellion
