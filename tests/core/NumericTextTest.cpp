#include <gtest/gtest.h>

#include "configuration/ProgramLocation.h"
#include "configuration/clsExeOrIDE.h"
#include "core/NumericText.h"

namespace vantrellion {
namespace {

// Halves round to even; "d" is an exponent too; &H gives the 16-bit pattern, &H...& 32 bits.
TEST(NumericText, ConvertsToSigned16And32BitNumbers) {
    const std::pair<const char*, int32_t> both[] = {
        {" -5 ", -5}, {"2.5", 2}, {"3.5", 4}, {"1.5d1", 15}, {"&HFFFF", -1}, {"&O17", 15},
    };
    for (const auto& [text, value] : both) {
        EXPECT_EQ(TextToInt32(text).Value, value) << text;
        EXPECT_EQ(TextToInt16(text).Value, value) << text;
    }
    const std::pair<const char*, int32_t> only32[] = {
        {"&HFFFF&", 65535}, {"40000", 40000}, {"-2147483648", INT32_MIN}};
    for (const auto& [text, value] : only32) {
        EXPECT_EQ(TextToInt32(text).Value, value) << text;
        EXPECT_FALSE(TextToInt16(text).Ok) << text;
        EXPECT_EQ(TextToInt16(text).Error.Number, 6) << text;
    }
    const std::pair<const char*, int> neither[] = {
        {"2147483648", 6}, {"", 13}, {"12x", 13}, {"1,5", 13}, {"&H", 13}, {"&O8", 13}, {"--1", 13},
    };
    for (const auto& [text, error] : neither) {
        EXPECT_FALSE(TextToInt32(text).Ok) << text;
        EXPECT_EQ(TextToInt32(text).Error.Number, error) << text;
        EXPECT_EQ(TextToInt16(text).Error.Number, error) << text;
    }
    EXPECT_EQ(TextToInt32("x").Error.Description, "Type mismatch");
    EXPECT_EQ(TextToInt32("1e20").Error.Description, "Overflow");
}

TEST(DevelopmentHost, ADeliveredBuildIsNone) {
#ifdef VANTRELLION_DEV_MENU
    EXPECT_EQ(RunningInIDE(), -1);
    EXPECT_EQ(RunningInEXE(), 0);
#else
    EXPECT_EQ(RunningInIDE(), 0);
    EXPECT_EQ(RunningInEXE(), -1);
#endif
    EXPECT_EQ(ProgramDirectory().front(), '/');
    EXPECT_NE(ProgramDirectory().back(), '/');
    EXPECT_EQ(ProgramName().find_first_of("./"), std::string::npos);
}

}  // namespace
}  // namespace vantrellion
