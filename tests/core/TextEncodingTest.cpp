// How texts go to and come from text files: Latin-1 while every character fits, UTF-8 when
// one does not, and the reader's rule that tells the two apart.
#include <gtest/gtest.h>

#include "core/TextEncoding.h"

namespace vantrellion {
namespace {

TEST(TextEncoding, ReadingTellsUtf8FromLatin1) {
    const struct {
        const char* name;
        std::string bytes;
        TextFileEncoding is;
    } cases[] = {
        {"empty", "", TextFileEncoding::Latin1},
        {"ascii only", "08:00 Pump\r\n", TextFileEncoding::Latin1},
        {"latin-1 e acute", "Caf\xE9\r\n", TextFileEncoding::Latin1},
        {"utf-8 e acute", "Caf\xC3\xA9\r\n", TextFileEncoding::Utf8},
        {"utf-8 cyrillic and euro", "\xD0\x9D\xD0\xB0 \xE2\x82\xAC", TextFileEncoding::Utf8},
        {"utf-8 then a stray latin-1 byte", "\xC3\xA9 \xE9t", TextFileEncoding::Latin1},
        {"overlong form", "\xC0\xAF", TextFileEncoding::Latin1},
        {"surrogate", "\xED\xA0\x80", TextFileEncoding::Latin1},
        {"above U+10FFFF", "\xF4\x90\x80\x80", TextFileEncoding::Latin1},
        {"sequence cut by the end", "ab \xC3\xA9 \xE2\x82", TextFileEncoding::Utf8},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DetectTextFileEncoding(c.bytes), c.is) << c.name;
    EXPECT_EQ(DecodeTextFile("Caf\xE9 \xFF"), "Caf\xC3\xA9 \xC3\xBF");
    EXPECT_EQ(DecodeTextFile("Caf\xC3\xA9"), "Caf\xC3\xA9");
}

// A log read for the viewer: each line by its own bytes.
TEST(TextEncoding, ALogIsReadLineByLine) {
    EXPECT_EQ(DecodeLogText("09:00 Gew\xE4"
                            "chshaus\r\n09:01 Gew\xC3\xA4"
                            "chshaus \xCE\xA9\r\nend"),
              "09:00 Gew\xC3\xA4"
              "chshaus\r\n09:01 Gew\xC3\xA4"
              "chshaus \xCE\xA9\r\nend");
}

TEST(TextEncoding, WritingKeepsLatin1WheneverEveryCharacterFits) {
    const struct {
        std::string text;
        std::string bytes;
        TextFileEncoding used;
    } cases[] = {
        {"Pump 1", "Pump 1", TextFileEncoding::Latin1},
        {"Caf\xC3\xA9 \xC3\xBF", "Caf\xE9 \xFF", TextFileEncoding::Latin1},
        {"Caf\xC3\xA9 \xE2\x82\xAC", "Caf\xC3\xA9 \xE2\x82\xAC", TextFileEncoding::Utf8},
        {"\xC4\x80", "\xC4\x80", TextFileEncoding::Utf8},  // U+0100, the first beyond Latin-1
    };
    for (const auto& c : cases) {
        TextFileEncoding used;
        EXPECT_EQ(EncodeTextFileBytes(c.text, used), c.bytes) << c.text;
        EXPECT_EQ(used, c.used) << c.text;
        EXPECT_EQ(DecodeTextFile(c.bytes), c.text) << "round trip of " << c.text;
    }
}

TEST(TextEncoding, APrefixNeverCutsACharacter) {
    EXPECT_EQ(Utf8Prefix("08:00:00 pm", 8), "08:00:00");
    EXPECT_EQ(Utf8Prefix("\xD0\x9D\xD0\xB0\xD1\x81", 2), "\xD0\x9D\xD0\xB0");
    EXPECT_EQ(Utf8Prefix("e\xE2\x82\xAC!", 2), "e\xE2\x82\xAC");
    EXPECT_EQ(Utf8Prefix("ab", 5), "ab");
}

}  // namespace
}  // namespace vantrellion
