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
struct Step {
    char op;
    std::string expected;
};

struct ReaderCase {
    const char* name;
    std::string input;
    std::vector<Step> steps;
};

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

const std::vector<ReaderCase>& Cases() {
    static const std::vector<ReaderCase> cases = {
        {"crlf lines", "abc\r\ndef\r\n", {{'T', "abc"}, {'T', "def"}, {'E', "<end>"}}},
        {"past the end is an error", "abc\r\n", {{'T', "abc"}, {'T', "!Input past end of file"}}},
        {"number past the end", "", {{'N', "!Input past end of file"}}},
        {"last line without line end", "abc", {{'T', "abc"}, {'E', "<end>"}}},
        {"lf and cr line ends",
         "a\nb\rc\r\n",
         {{'T', "a"}, {'T', "b"}, {'T', "c"}, {'E', "<end>"}}},
        {"cr cr lf is an empty line between", "a\r\r\nb", {{'T', "a"}, {'T', ""}, {'T', "b"}}},
        {"blank lines are empty values", "\r\n\r\n", {{'T', ""}, {'T', ""}, {'E', "<end>"}}},
        {"leading blanks dropped, trailing kept", "   Pump  \r\n", {{'T', "Pump  "}}},
        {"comma ends a text", "Pump, north\r\n", {{'T', "Pump"}, {'T', "north"}, {'E', "<end>"}}},
        {"comma at line end gives an empty field", "a,\r\nb", {{'T', "a"}, {'T', ""}, {'T', "b"}}},
        {"quotes keep commas", "\"Pump, north\"\r\nx", {{'T', "Pump, north"}, {'T', "x"}}},
        {"text after the closing quote dropped", "  \"ab\"cd,ef\r\n", {{'T', "ab"}, {'T', "ef"}}},
        {"quote runs over line ends", "\"a\r\nb\"\r\nc", {{'T', "a\r\nb"}, {'T', "c"}}},
        {"unterminated quote reads to the end", "\"abc\r\n", {{'T', "abc\r\n"}, {'E', "<end>"}}},
        {"quote inside a text is kept", "a\"b\r\n", {{'T', "a\"b"}}},
        {"latin-1 bytes as they stand", "\xE9t\xE9\xFF\r\n", {{'T', "\xE9t\xE9\xFF"}}},
        {"numeric-print form", " 1 \r\n-1 \r\n 0 \r\n", {{'N', "1"}, {'N', "-1"}, {'N', "0"}}},
        {"number then text on the next line", " 12 \r\nabc", {{'N', "12"}, {'T', "abc"}}},
        {"blank separates numbers", "1 2\r\n", {{'N', "1"}, {'N', "2"}, {'E', "<end>"}}},
        {"comma separates numbers", "1,2\r\n", {{'N', "1"}, {'N', "2"}, {'E', "<end>"}}},
        {"number ends at a blank, rest is the next field", " 5 x\r\n", {{'N', "5"}, {'T', "x"}}},
        {"empty number field is 0", "\r\n   \r\n", {{'N', "0"}, {'N', "0"}, {'E', "<end>"}}},
        {"number range", "-32768\r\n32767\r\n", {{'N', "-32768"}, {'N', "32767"}}},
        {"number overflow", "32768\r\n", {{'N', "!Overflow"}}},
        {"long number overflow", "99999999999999999999\r\n", {{'N', "!Overflow"}}},
        {"text as a number", "EO\r\n", {{'N', "!Type mismatch"}}},
        {"quoted number is a mismatch", "\"1\"\r\n", {{'N', "!Type mismatch"}}},
    };
    return cases;
}

TEST(FieldReader, ReadsFieldsAsTheRunFileReaderDoes) {
    for (const ReaderCase& c : Cases()) {
        FieldReader in(c.input);
        for (size_t i = 0; i < c.steps.size(); ++i) {
            EXPECT_EQ(ReadOne(in, c.steps[i].op), c.steps[i].expected) << c.name << ", step " << i;
        }
    }
}

TEST(FieldReader, NumberValues) {
    struct {
        const char* token;
        const char* expected;
    } cases[] = {
        {"", "0"},
        {"7", "7"},
        {"+7", "7"},
        {"-0", "0"},
        {"1.5", "2"},
        {"2.5", "2"},
        {"-2.5", "-2"},
        {"0.51", "1"},
        {"2.50001", "3"},
        {".5", "0"},
        {"5.", "5"},
        {"32767.4", "32767"},
        {"32767.5", "!Overflow"},
        {"-32768.5", "-32768"},
        {".", "!Type mismatch"},
        {"1e2", "!Type mismatch"},
        {"--1", "!Type mismatch"},
        {"1-", "!Type mismatch"},
        {"&H10", "!Type mismatch"},
        {"1.2.3", "!Type mismatch"},
    };
    for (const auto& c : cases) {
        std::string got;
        try {
            got = std::to_string(NumberFieldValue(c.token));
        } catch (const FieldReadError& e) {
            got = std::string("!") + e.what();
        }
        EXPECT_EQ(got, c.expected) << '"' << c.token << '"';
    }
}

TEST(FieldReader, RefusesAFieldWithoutBound) {
    FieldReader in(std::string(FieldReader::MaxFieldLength + 10, 'x'));
    EXPECT_EQ(ReadOne(in, 'T'), "!Out of string space");
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
