#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "runfile/RunFileFields.h"
#include "support/TempDir.h"

namespace vantrellion {
namespace {

// One read: 'T' text, 'N' number, 'E' expects the end of the input. The expected value of a
// read is its text, the number in decimal, or "!" followed by the error's description.
using Steps = std::vector<std::pair<char, std::string>>;

std::string ReadOne(FieldReader& in, char op) {
    try {
        switch (op) {
            case 'T':
                return in.ReadText();
            case 'N':
                return std::to_string(in.ReadNumber());
            default:
                return in.AtEnd() ? "<end>" : "<more>";
        }
    } catch (const FieldReadError& e) {
        return std::string("!") + e.what();
    }
}

TEST(FieldReader, ReadsFieldsAsTheRunFileReaderDoes) {
    const struct {
        const char* name;
        std::string input;
        Steps steps;
    } cases[] = {
        {"crlf lines", "abc\r\ndef\r\n", {{'T', "abc"}, {'T', "def"}, {'E', "<end>"}}},
        {"past the end is an error", "abc\r\n", {{'T', "abc"}, {'T', "!Input past end of file"}}},
        {"last line without line end", "abc", {{'T', "abc"}, {'E', "<end>"}}},
        {"lf, cr", "a\nb\rc\r\n", {{'T', "a"}, {'T', "b"}, {'T', "c"}, {'E', "<end>"}}},
        {"cr cr lf is an empty line between", "a\r\r\nb", {{'T', "a"}, {'T', ""}, {'T', "b"}}},
        {"leading blanks dropped, trailing kept", "   Pump  \r\n", {{'T', "Pump  "}}},
        {"comma at line end gives an empty field", "a,\r\nb", {{'T', "a"}, {'T', ""}, {'T', "b"}}},
        {"text after the closing quote dropped", "  \"ab\"cd,ef\r\n", {{'T', "ab"}, {'T', "ef"}}},
        {"quote runs over line ends", "\"a\r\nb\"\r\nc", {{'T', "a\r\nb"}, {'T', "c"}}},
        {"unterminated quote reads to the end", "\"abc\r\n", {{'T', "abc\r\n"}, {'E', "<end>"}}},
        {"quote inside a text is kept", "a\"b\r\n", {{'T', "a\"b"}}},
        {"two quotes inside a quoted text are one",
         "\"a \"\"b\"\", c\"\r\nd",
         {{'T', "a \"b\", c"}, {'T', "d"}}},
        {"an empty quoted text", "\"\"\r\nd", {{'T', ""}, {'T', "d"}}},
        {"latin-1 bytes as they stand", "\xE9t\xE9\xFF\r\n", {{'T', "\xE9t\xE9\xFF"}}},
        {"blank separates numbers", "1 2\r\n", {{'N', "1"}, {'N', "2"}, {'E', "<end>"}}},
        {"comma separates numbers", "1,2\r\n", {{'N', "1"}, {'N', "2"}, {'E', "<end>"}}},
        {"number ends at a blank, rest is the next field", " 5 x\r\n", {{'N', "5"}, {'T', "x"}}},
        {"empty number field is 0", "\r\n   \r\n", {{'N', "0"}, {'N', "0"}, {'E', "<end>"}}},
        {"number range", "-32768\r\n32767\r\n", {{'N', "-32768"}, {'N', "32767"}}},
        {"number overflow", "32768\r\n", {{'N', "!Overflow"}}},
        {"text as a number", "EO\r\n", {{'N', "!Type mismatch"}}},
        {"quoted number is a mismatch", "\"1\"\r\n", {{'N', "!Type mismatch"}}},
        {"a field of the bound's length reads whole",
         std::string(FieldReader::MaxFieldLength, 'x') + "\r\ny",
         {{'T', std::string(FieldReader::MaxFieldLength, 'x')}, {'T', "y"}}},
        {"one more is refused",
         std::string(FieldReader::MaxFieldLength + 1, 'x'),
         {{'T', "!Out of string space"}}},
    };
    for (const auto& c : cases) {
        FieldReader in(c.input);
        for (size_t i = 0; i < c.steps.size(); ++i)
            EXPECT_EQ(ReadOne(in, c.steps[i].first), c.steps[i].second) << c.name << ", step " << i;
    }
}

TEST(FieldReader, NumberValues) {
    const auto number = [](const char* token) {
        try {
            return std::to_string(NumberFieldValue(token));
        } catch (const FieldReadError& e) {
            return std::string("!") + e.what();
        }
    };
    const std::pair<const char*, int> values[] = {
        {"", 0},        {"+7", 7}, {"-0", 0}, {"1.5", 2},         {"2.5", 2},          {"-2.5", -2},
        {"2.50001", 3}, {".5", 0}, {"5.", 5}, {"32767.4", 32767}, {"-32768.5", -32768}};
    for (auto [token, value] : values)
        EXPECT_EQ(number(token), std::to_string(value)) << '"' << token << '"';
    EXPECT_EQ(number("32767.5"), "!Overflow");
    for (const char* token : {".", "1e2", "--1", "1-", "&H10", "1.2.3"})
        EXPECT_EQ(number(token), "!Type mismatch") << '"' << token << '"';
}

// Reading from a file goes through a buffer that is refilled in chunks: fields that straddle
// a refill must read exactly as from memory.
TEST(FieldReader, FileReadsMatchMemoryReadsAcrossRefills) {
    std::string bytes;
    for (int n = 0; n < 20000; ++n) {
        bytes += (n % 3 == 0)   ? " " + std::to_string(n % 30000) + " \r\n"
                 : (n % 3 == 1) ? "name " + std::to_string(n) + ",x\r\n"
                                : "\"q\r\n" + std::to_string(n) + "\"\n";
    }
    test::TempDir dir;
    dir.Write("big", bytes);
    const int fd = ::open(dir.File("big").c_str(), O_RDONLY);
    ASSERT_GE(fd, 0);
    FieldReader fromFile(fd);
    FieldReader fromMemory(bytes);
    const std::string ops = "NTTT";
    for (size_t i = 0; !fromMemory.AtEnd(); ++i) {
        const char op = ops[i % ops.size()];
        ASSERT_EQ(ReadOne(fromFile, op), ReadOne(fromMemory, op)) << "read " << i;
    }
    EXPECT_TRUE(fromFile.AtEnd());
    ::close(fd);
}

}  // namespace
}  // namespace vantrellion
