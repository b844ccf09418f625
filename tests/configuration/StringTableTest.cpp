#include <gtest/gtest.h>

#include "configuration/StringTable.h"
#include "core/FatalError.h"

namespace vantrellion {
namespace {

TEST(StringTable, ColoursInBothLiteralForms) {
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

}  // namespace
}  // namespace vantrellion
