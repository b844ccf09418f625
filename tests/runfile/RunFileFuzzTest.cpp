// Randomised loads: random bytes, and valid files damaged at random. Whatever the bytes, a
// load ends with one of its result codes, touches nothing outside the driven records and
// neither crashes nor hangs. Run it under AddressSanitizer to catch out-of-bounds access.
#include <random>

#include "runfile/RunFileLoad.h"
#include "runfile/RunFileSave.h"
#include "runfile/RunFileTestSupport.h"

namespace vantrellion {
namespace {

// Bytes that matter to the reader turn up far more often than in uniform noise.
char RandomByte(std::mt19937& rng) {
    static const std::string special = "\r\n,\" 0123456789-+.|FV";
    std::uniform_int_distribution<int> pick(0, 3);
    if (pick(rng) == 0) return static_cast<char>(std::uniform_int_distribution<int>(0, 255)(rng));
    return special[std::uniform_int_distribution<size_t>(0, special.size() - 1)(rng)];
}

std::string RandomBytes(std::mt19937& rng, size_t maxLength) {
    std::string out(std::uniform_int_distribution<size_t>(0, maxLength)(rng), '\0');
    for (char& c : out)
        c = RandomByte(rng);
    return out;
}

// One random change: a byte replaced, a range deleted, random bytes inserted, a range
// duplicated, or the file cut short.
void Mutate(std::mt19937& rng, std::string& bytes) {
    auto at = [&](size_t size) { return std::uniform_int_distribution<size_t>(0, size)(rng); };
    switch (std::uniform_int_distribution<int>(0, 4)(rng)) {
        case 0:
            if (!bytes.empty()) bytes[at(bytes.size() - 1)] = RandomByte(rng);
            break;
        case 1: {
            const size_t from = at(bytes.size());
            bytes.erase(from, at(40));
            break;
        }
        case 2:
            bytes.insert(at(bytes.size()), RandomBytes(rng, 12));
            break;
        case 3: {
            const size_t from = at(bytes.size());
            bytes.insert(at(bytes.size()), bytes.substr(from, at(80)));
            break;
        }
        default:
            bytes.resize(at(bytes.size()));
            break;
    }
}

class RunFileFuzz : public test::RunFileTest {
  protected:
    // Loads the bytes into a fresh system and checks what must hold whatever they were.
    void LoadAndCheck(const std::string& bytes, const std::string& what) {
        test::TestSystem t;
        dir.Write("fuzz.run", bytes);
        const int changes = t.timer.changes;
        const int result = LoadRunFile(t.s, dir.Path(), "fuzz.run", true);
        ASSERT_GE(result, RunFileLoaded) << what;
        ASSERT_LE(result, RunFileFutureVersion) << what;
        EXPECT_EQ(t.messages.shown.size(), result == RunFileLoaded ? 0u : 1u) << what;
        EXPECT_EQ(t.timer.changes, changes) << what;
        const RelayRecord& spare = t.s.frmRelay.Relay[RelaySlots - 1];
        EXPECT_EQ(spare.DisplayName, "") << what;
        EXPECT_EQ(spare.Count, 0) << what;
        const Flag logging = t.s.modRelay.LoggingOnOff;
        EXPECT_TRUE(logging == True || logging == False) << what;
        ++loads[result];
    }

    std::array<int, 6> loads{};
};

TEST_F(RunFileFuzz, RandomBytes) {
    std::mt19937 rng(20260424);
    const std::vector<std::string> heads = {"", "FV20000424\r\n", "FV.2001.02.29\r\n",
                                            "FV.2001.05.01|.b0.r7.t5\r\n",
                                            "FV.2001.05.01|.b0.r7.t5\r\n 1 \r\n"};
    for (int n = 0; n < 3000 && !HasFailure(); ++n) {
        const std::string bytes = heads[n % heads.size()] + RandomBytes(rng, 700);
        LoadAndCheck(bytes, "random #" + std::to_string(n));
    }
}

TEST_F(RunFileFuzz, DamagedValidFiles) {
    for (int i = 0; i <= LastRelay; ++i) {
        f.Relay[i].DisplayName = "Zone " + std::to_string(i);
        f.Relay[i].DayHrEvenOdd = i % 2 ? "15" : "EO";
        f.Relay[i].Count = static_cast<int16_t>(i * 7);
        ts.SetPair(i, i % 6, "08:00", "9:30 pm");
    }
    s.modRelay.LoggingOnOff = True;
    ASSERT_TRUE(SaveRunFile(s, dir.Path(), "valid.run"));
    const std::string valid = dir.Read("valid.run");

    std::mt19937 rng(19991231);
    for (int n = 0; n < 3000 && !HasFailure(); ++n) {
        std::string bytes = valid;
        const int changes = std::uniform_int_distribution<int>(1, 8)(rng);
        for (int c = 0; c < changes; ++c)
            Mutate(rng, bytes);
        LoadAndCheck(bytes, "mutant #" + std::to_string(n));
    }
    // The damage must actually reach every outcome that a damaged file can have.
    EXPECT_GT(loads[RunFileLoaded], 0);
    EXPECT_GT(loads[RunFileHeaderError], 0);
    EXPECT_GT(loads[RunFileTimeArrayError], 0);
    EXPECT_GT(loads[RunFileUnknownVersion], 0);
}

}  // namespace
}  // namespace vantrellion
