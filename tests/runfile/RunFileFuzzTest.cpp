// Randomised loads: random bytes, and valid files damaged at random. Whatever the bytes, a
// load ends with one of its result codes, shows at most its one message, touches nothing
// outside the driven records and neither crashes nor hangs. Run it under AddressSanitizer to
// catch out-of-bounds access.
#include <random>

#include "runfile/RunFileLoad.h"
#include "runfile/RunFileSave.h"
#include "runfile/RunFileTestSupport.h"

namespace vantrellion {
namespace {

// Up to maxLength random bytes; those that matter to the reader turn up far more often than
// in uniform noise.
std::string RandomBytes(std::mt19937& rng, size_t maxLength) {
    static const std::string special = "\r\n,\" 0123456789-+.|FV";
    std::string out(std::uniform_int_distribution<size_t>(0, maxLength)(rng), '\0');
    for (char& c : out) {
        const bool any = std::uniform_int_distribution<int>(0, 3)(rng) == 0;
        c = any ? static_cast<char>(std::uniform_int_distribution<int>(0, 255)(rng))
                : special[std::uniform_int_distribution<size_t>(0, special.size() - 1)(rng)];
    }
    return out;
}

// One random change: a byte replaced, a range deleted, random bytes inserted, a range
// duplicated, or the file cut short.
void Mutate(std::mt19937& rng, std::string& bytes) {
    auto at = [&](size_t size) { return std::uniform_int_distribution<size_t>(0, size)(rng); };
    const size_t where = at(bytes.size());
    switch (std::uniform_int_distribution<int>(0, 4)(rng)) {
        case 0:
            bytes.replace(where, 1, RandomBytes(rng, 1));
            break;
        case 1:
            bytes.erase(where, at(40));
            break;
        case 2:
            bytes.insert(where, RandomBytes(rng, 12));
            break;
        case 3:
            bytes.insert(where, bytes.substr(at(bytes.size()), at(80)));
            break;
        default:
            bytes.resize(where);
    }
}

using RunFileFuzz = test::RunFileTest;

// Loads each of 6000 inputs into a fresh system and checks what must hold whatever they were:
// random bytes behind a version line, and a valid file damaged by one to eight changes.
TEST_F(RunFileFuzz, RandomAndDamagedFilesLoadWithoutHarm) {
    for (int i = 0; i <= LastRelay; ++i) {
        f.Relay[i].DisplayName = "Zone " + std::to_string(i);
        f.Relay[i].DayHrEvenOdd = i % 2 ? "15" : "EO";
        f.Relay[i].Count = static_cast<int16_t>(i * 7);
        ts.SetPair(i, i % 6, "08:00", "9:30 pm");
    }
    s.modRelay.LoggingOnOff = True;
    ASSERT_TRUE(SaveRunFile(s, dir.Path(), "valid.run"));
    const std::string valid = dir.Read("valid.run");
    const std::string heads[] = {"", "FV20000424\r\n", "FV.2001.02.29\r\n",
                                 "FV.2001.05.01|.b0.r7.t5\r\n",
                                 "FV.2001.05.01|.b0.r7.t5\r\n 1 \r\n"};

    std::mt19937 rng(20260424);
    std::array<int, 6> loads{};
    for (int n = 0; n < 6000 && !HasFailure(); ++n) {
        std::string bytes = valid;
        if (n % 2 == 0) {
            bytes = heads[n / 2 % 5] + RandomBytes(rng, 700);
        } else {
            for (int c = std::uniform_int_distribution<int>(1, 8)(rng); c > 0; --c)
                Mutate(rng, bytes);
        }
        SCOPED_TRACE("input #" + std::to_string(n));
        test::TestSystem t;
        dir.Write("fuzz.run", bytes);
        const int changes = t.timer.changes;
        const int result = LoadRunFile(t.s, dir.Path(), "fuzz.run", true);
        ASSERT_GE(result, RunFileLoaded);
        ASSERT_LE(result, RunFileFutureVersion);
        ++loads[result];
        // One message at most: the failure, or the fields that were loaded blank. Nothing that
        // field entry would refuse is left for the engine.
        EXPECT_LE(t.messages.shown.size(), 1u);
        if (result == RunFileLoaded) {
            for (int k = 0; k < PairSlots; ++k) {
                EXPECT_NE(t.s.frmRelay.StartTime[k].Value(), TimeField::Unreadable);
                EXPECT_NE(t.s.frmRelay.EndTime[k].Value(), TimeField::Unreadable);
            }
            for (const RelayRecord& rec : t.s.frmRelay.Relay)
                EXPECT_TRUE(IsEvenOddCode(rec.DayHrEvenOdd.Text()));
        }
        EXPECT_EQ(t.timer.changes, changes);
        const RelayRecord& spare = t.s.frmRelay.Relay[RelaySlots - 1];
        EXPECT_EQ(spare.DisplayName, "");
        EXPECT_EQ(spare.Count, 0);
        EXPECT_TRUE(t.s.modRelay.LoggingOnOff == True || t.s.modRelay.LoggingOnOff == False);
    }
    // The damage must actually reach every outcome that a damaged file can have.
    EXPECT_GT(loads[RunFileLoaded], 0);
    EXPECT_GT(loads[RunFileHeaderError], 0);
    EXPECT_GT(loads[RunFileTimeArrayError], 0);
    EXPECT_GT(loads[RunFileUnknownVersion], 0);
}

}  // namespace
}  // namespace vantrellion
