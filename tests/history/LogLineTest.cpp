#include <gtest/gtest.h>

#include "history/LogLine.h"

namespace vantrellion {
namespace {

TEST(LogLine, KindsAndContentsOfTheLinesALogHolds) {
    struct Case {
        const char* line;
        LogLineKind kind;
        int seconds = 0;
        int relayGroups = 0, inputGroups = 0;
        uint32_t relayBits = 0, inputBits = 0;
    };
    using K = LogLineKind;
    const Case cases[] = {
        {"14:07:00 <1 - 3 - - - - 8>R><I<- 2 - - - - - ->I ", K::State, 50820, 1, 1, 0x85, 0x02},
        {"14:07:00 <1 - 3 - - - - 8>R><I<- 2 - - - - - ->I \r", K::State, 50820, 1, 1, 0x85, 0x02},
        {"14:07:00 <1 - 3 - - - - 8>R><I<- 2 - - - - - ->I", K::State, 50820, 1, 1, 0x85, 0x02},
        {"23:59:00 <1 2 3 4 5 6 7 8>R><II ", K::State, 86340, 1, 0, 0xFF, 0},  // no input port
        {"14:07:00 R><II ", K::State, 50820, 0, 0, 0, 0},                      // no board logged
        {"00:00:01 <- - - - - - - 8><1 - - - - - - ->R><I<- - - - - - - ->I ", K::State, 1, 2, 1,
         0x0180, 0},  // two boards
        // Cut, garbled or joined lines.
        {"14:07:00 <1 - 3 - - - - 8>R><I<- 2 -", K::Damaged},
        {"14:07:00 <1 - 3 -14:08:00 <1 - 3 - - - - 8>R><I<- - - - - - - ->I ", K::Damaged},
        {"14:07:00 <1 - 3 - - - - 7>R><I<- - - - - - - ->I ", K::Damaged},  // 7 in bit 7
        {"14:07:00 <1 - 3 - - - - 8>R><I<- - - - - - - ->I x", K::Damaged},
        {"14:07:00 <1 - 3 - - - - 8>R><I<- - - - - - - ->I <", K::Damaged},
        {"14:07:00 <1 - 3 - - - - 8><1 - - - - - - -><- - - - - - - -><- - - - - - - -><- - - - "
         "- - - ->R><II ",
         K::Damaged},  // five boards
        {"25:07:00 <1 - 3 - - - - 8>R><I<- - - - - - - ->I ", K::Foreign},
        {"14:07:00 11/14/2026", K::Damaged},  // no first text
        {"14:07:00 hello world", K::Damaged},
        // Other writers and the port listing.
        {"-------Begin H200-H279----------------------------", K::Listing},
        {"Decimal: 512 Hex: 200 :1 - 3 - - - - -", K::Listing},
        {"some note a person typed", K::Foreign},
        {"", K::Blank},
        {"\r", K::Blank},
    };
    for (const Case& c : cases) {
        const std::string_view text(c.line);
        const LogLine l = ParseLogLine(text);
        EXPECT_EQ(l.Kind, c.kind) << text;
        if (c.kind != LogLineKind::State) continue;
        EXPECT_EQ(l.SecondsOfDay, c.seconds) << text;
        EXPECT_EQ(l.RelayGroups, c.relayGroups) << text;
        EXPECT_EQ(l.InputGroups, c.inputGroups) << text;
        EXPECT_EQ(l.RelayBits, c.relayBits) << text;
        EXPECT_EQ(l.InputBits, c.inputBits) << text;
    }
}

}  // namespace
}  // namespace vantrellion
