#include <gtest/gtest.h>

#include "configuration/NumericText.h"
#include "configuration/ProgramLocation.h"
#include "configuration/clsExeOrIDE.h"
#include "configuration/clsWin32Version.h"

namespace vantrellion {
namespace {

TEST(NumericText, ConvertsToSigned16And32BitNumbers) {
    struct Case {
        const char* text;
        std::optional<int32_t> int32;  // nothing: the conversion fails
        int error32;
        std::optional<int16_t> int16;
        int error16;
    };
    const Case cases[] = {
        {"768", 768, 0, 768, 0},
        {" -5 ", -5, 0, -5, 0},
        {"+7", 7, 0, 7, 0},
        {"2.5", 2, 0, 2, 0},  // half to even
        {"3.5", 4, 0, 4, 0},
        {"-2.5", -2, 0, -2, 0},
        {"1E3", 1000, 0, 1000, 0},
        {"1.5d1", 15, 0, 15, 0},
        {".5", 0, 0, 0, 0},
        {"&H300", 768, 0, 768, 0},
        {"&HFFFF", -1, 0, -1, 0},
        {"&H8000", -32768, 0, -32768, 0},
        {"&HFFFF&", 65535, 0, std::nullopt, 6},
        {"&O17", 15, 0, 15, 0},
        {"40000", 40000, 0, std::nullopt, 6},
        {"2147483647", INT32_MAX, 0, std::nullopt, 6},
        {"2147483648", std::nullopt, 6, std::nullopt, 6},
        {"-2147483648", INT32_MIN, 0, std::nullopt, 6},
        {"", std::nullopt, 13, std::nullopt, 13},
        {" ", std::nullopt, 13, std::nullopt, 13},
        {"12x", std::nullopt, 13, std::nullopt, 13},
        {"1,5", std::nullopt, 13, std::nullopt, 13},
        {"1.2.3", std::nullopt, 13, std::nullopt, 13},
        {"e5", std::nullopt, 13, std::nullopt, 13},
        {"&H", std::nullopt, 13, std::nullopt, 13},
        {"&O8", std::nullopt, 13, std::nullopt, 13},
        {"--1", std::nullopt, 13, std::nullopt, 13},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string("'") + c.text + "'");
        const auto v32 = TextToInt32(c.text);
        EXPECT_EQ(v32.Ok, c.int32.has_value());
        if (c.int32)
            EXPECT_EQ(v32.Value, *c.int32);
        else
            EXPECT_EQ(v32.Error.Number, c.error32);
        const auto v16 = TextToInt16(c.text);
        EXPECT_EQ(v16.Ok, c.int16.has_value());
        if (c.int16)
            EXPECT_EQ(v16.Value, *c.int16);
        else
            EXPECT_EQ(v16.Error.Number, c.error16);
    }
    EXPECT_EQ(TextToInt32("x").Error.Description, "Type mismatch");
    EXPECT_EQ(TextToInt32("1e20").Error.Description, "Overflow");
}

TEST(PlatformChecks, LinuxPassesAndADeliveredBuildIsNoDevelopmentHost) {
    EXPECT_EQ(getVersion32(), "95");
#ifdef VANTRELLION_DEV_MENU
    EXPECT_EQ(RunningInIDE(), -1);
    EXPECT_EQ(RunningInEXE(), 0);
#else
    EXPECT_EQ(RunningInIDE(), 0);
    EXPECT_EQ(RunningInEXE(), -1);
#endif
    EXPECT_EQ(ProgramDirectory().front(), '/');
    EXPECT_NE(ProgramDirectory().back(), '/');
    EXPECT_FALSE(ProgramName().empty());
    EXPECT_EQ(ProgramName().find('.'), std::string::npos);
}

}  // namespace
}  // namespace vantrellion
