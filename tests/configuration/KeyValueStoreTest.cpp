#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iterator>

#include "configuration/KeyValueStore.h"
#include "support/TempStore.h"

namespace vantrellion {
namespace {

using test::TempDirectory;

constexpr RegRoot kMachine = 0x80000002u;
constexpr RegRoot kUser = 0x80000001u;
constexpr const char* kConfig = "SOFTWARE\\Vantrellion\\Config";

StoredValue Text(const std::string& t) {
    StoredValue v;
    v.Type = RegTypeText;
    v.Kind = StoredValue::Data::Text;
    v.Text = t;
    return v;
}

std::string ReadText(KeyValueStore& store, const std::string& key, const std::string& name) {
    StoredValue v;
    EXPECT_EQ(store.QueryValue(kMachine, key, name, v), StoreStatus::Ok) << key << " " << name;
    return v.Text;
}

std::vector<std::string> Names(KeyValueStore& store, const std::string& key) {
    std::vector<std::string> names;
    EXPECT_EQ(store.ValueNames(kMachine, key, names), StoreStatus::Ok) << key;
    return names;
}

std::string FileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// Runs SQL on its own connection to the file, for looking behind the store; the first column
// of the first row comes back.
std::string RawQuery(const std::string& path, const std::string& sql) {
    sqlite3* db = nullptr;
    sqlite3_open(path.c_str(), &db);
    sqlite3_stmt* st = nullptr;
    std::string out;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr) == SQLITE_OK &&
        sqlite3_step(st) == SQLITE_ROW && sqlite3_column_text(st, 0))
        out = reinterpret_cast<const char*>(sqlite3_column_text(st, 0));
    sqlite3_finalize(st);
    sqlite3_close(db);
    return out;
}

TEST(KeyValueStore, KeyFormsAndCaseReachOneKeyAndParentsAreCreated) {
    TempDirectory dir;
    KeyValueStore store(dir.Slashed() + "store.db");
    ASSERT_EQ(store.SetValue(kMachine, "\\\\SOFTWARE\\\\Vantrellion\\Config\\", "LogFileName",
                             Text("a.log")),
              StoreStatus::Ok);
    EXPECT_EQ(ReadText(store, kConfig, "LogFileName"), "a.log");
    EXPECT_EQ(ReadText(store, "software\\VANTRELLION\\config\\", "logfilename"), "a.log");
    EXPECT_EQ(store.KeyExists(kMachine, "Software\\Vantrellion"), StoreStatus::Ok);
    EXPECT_EQ(store.KeyExists(kUser, kConfig), StoreStatus::KeyNotFound) << "a store of its own";
    // Overwriting under another spelling keeps one value, under its first name.
    ASSERT_EQ(store.SetValue(kMachine, kConfig, "LOGFILENAME", Text("b")), StoreStatus::Ok);
    EXPECT_EQ(Names(store, kConfig), std::vector<std::string>{"LogFileName"});
    EXPECT_EQ(ReadText(store, kConfig, "LogFileName"), "b");
}

TEST(KeyValueStore, DeletesAKeyWithItsValuesButNotOneWithSubkeys) {
    TempDirectory dir;
    KeyValueStore store(dir.Slashed() + "store.db");
    ASSERT_EQ(store.SetValue(kMachine, "A\\B\\C", "v", Text("1")), StoreStatus::Ok);
    ASSERT_EQ(store.SetValue(kMachine, "A\\B", "w", Text("2")), StoreStatus::Ok);
    ASSERT_EQ(store.SetValue(kMachine, "A\\BC", "x", Text("3")), StoreStatus::Ok);
    EXPECT_EQ(store.DeleteKey(kMachine, "A\\B"), StoreStatus::Refused);
    EXPECT_EQ(store.DeleteKey(kMachine, ""), StoreStatus::Refused);
    EXPECT_EQ(store.DeleteKey(kMachine, "a\\b\\c"), StoreStatus::Ok);
    EXPECT_EQ(store.DeleteKey(kMachine, "A\\B"), StoreStatus::Ok);
    // A sibling whose name only begins like the deleted key stays; a key made again has no
    // values left over.
    EXPECT_EQ(ReadText(store, "A\\BC", "x"), "3");
    ASSERT_EQ(store.CreateKey(kMachine, "A\\B"), StoreStatus::Ok);
    StoredValue v;
    EXPECT_EQ(store.QueryValue(kMachine, "A\\B", "w", v), StoreStatus::ValueNotFound);
}

TEST(KeyValueStore, KeepsTextsAndNumbersAcrossARestartInWalMode) {
    TempDirectory dir;
    const std::string file = dir.Slashed() + "sub/dir/store.db";  // the folder is made on need
    StoredValue n;
    n.Type = RegTypeNumber;
    n.Kind = StoredValue::Data::Integer;
    n.Integer = -7;
    {
        KeyValueStore store(file);
        ASSERT_EQ(store.SetValue(kMachine, "K", "t", Text(std::string("a\0b", 3))),
                  StoreStatus::Ok);
        ASSERT_EQ(store.SetValue(kMachine, "K", "n", n), StoreStatus::Ok);
        EXPECT_TRUE(store.TakeNotices().empty());
    }
    KeyValueStore store(file);
    EXPECT_EQ(ReadText(store, "K", "t"), std::string("a\0b", 3));
    StoredValue back;
    ASSERT_EQ(store.QueryValue(kMachine, "K", "n", back), StoreStatus::Ok);
    EXPECT_EQ(back.Type, RegTypeNumber);
    EXPECT_EQ(back.Integer, -7);
    EXPECT_FALSE(store.InMemory());
    EXPECT_EQ(RawQuery(file, "PRAGMA journal_mode"), "wal");
}

TEST(KeyValueStore, TwoConnectionsWritingInTurnLoseNothing) {
    TempDirectory dir;
    const std::string file = dir.Slashed() + "store.db";
    KeyValueStore first(file, 2000), second(file, 2000);
    for (int i = 0; i < 100; ++i) {
        const std::string n = std::to_string(i);
        ASSERT_EQ(first.SetValue(kMachine, "\\SOFTWARE\\Shared\\", "a" + n, Text(n)),
                  StoreStatus::Ok);
        ASSERT_EQ(second.SetValue(kMachine, "SOFTWARE\\shared", "b" + n, Text("-" + n)),
                  StoreStatus::Ok);
        // Each sees the other's latest write at once.
        EXPECT_EQ(ReadText(first, "SOFTWARE\\Shared", "b" + n), "-" + n);
    }
    KeyValueStore reader(file);
    EXPECT_EQ(Names(reader, "SOFTWARE\\Shared").size(), 200u);
    EXPECT_EQ(ReadText(reader, "SOFTWARE\\Shared", "a99"), "99");
    EXPECT_EQ(ReadText(reader, "SOFTWARE\\Shared", "b99"), "-99");
}

// Two instances of the program writing the same key at once, each with a value of its own
// and one in common.
TEST(KeyValueStore, TwoProcessesWritingAtOnceLoseNothing) {
    TempDirectory dir;
    const std::string file = dir.Slashed() + "store.db";
    constexpr int kWrites = 150;
    pid_t children[2];
    for (int c = 0; c < 2; ++c) {
        children[c] = fork();
        ASSERT_GE(children[c], 0);
        if (children[c] != 0) continue;
        int failures = 0;
        {
            KeyValueStore store(file, 10000);
            for (int i = 0; i < kWrites; ++i) {
                const std::string n = std::to_string(i), p = std::to_string(c);
                failures += store.SetValue(kMachine, kConfig, "p" + p + "v" + n, Text(n)) !=
                            StoreStatus::Ok;
                failures += store.SetValue(kMachine, "\\SOFTWARE\\Vantrellion\\Config\\", "Last",
                                           Text(p)) != StoreStatus::Ok;
            }
        }
        _exit(failures == 0 ? 0 : 1);
    }
    for (pid_t child : children) {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    KeyValueStore store(file);
    EXPECT_EQ(Names(store, kConfig).size(), 2u * kWrites + 1);
    for (int c = 0; c < 2; ++c)
        for (int i = 0; i < kWrites; ++i)
            EXPECT_EQ(ReadText(store, kConfig, "p" + std::to_string(c) + "v" + std::to_string(i)),
                      std::to_string(i));
    EXPECT_EQ(RawQuery(file, "PRAGMA quick_check"), "ok");
}

// A file that is not a store is told once, by name, left untouched, and an empty store in
// memory serves the run.
TEST(KeyValueStore, DamagedFileIsToldOnceLeftAloneAndAnEmptyStoreServes) {
    std::string validDb, otherTables;
    {
        TempDirectory dir;
        {
            KeyValueStore store(dir.Slashed() + "store.db");
            for (int i = 0; i < 200; ++i)
                store.SetValue(kMachine, "K" + std::to_string(i % 7), "v" + std::to_string(i),
                               Text(std::string(100, 'x')));
        }
        validDb = FileBytes(dir.Slashed() + "store.db");
        ASSERT_GT(validDb.size(), 8192u);
        RawQuery(dir.Slashed() + "other.db", "CREATE TABLE keys (a)");
        otherTables = FileBytes(dir.Slashed() + "other.db");
    }
    const std::pair<const char*, std::string> cases[] = {
        {"garbage", std::string(5000, '\x5a')},
        {"truncated", validDb.substr(0, validDb.size() / 2)},
        {"header only", validDb.substr(0, 100)},
        {"a database of other tables", otherTables},
    };
    for (const auto& [name, bytes] : cases) {
        SCOPED_TRACE(name);
        TempDirectory dir;
        const std::string file = dir.Slashed() + "store.db";
        std::ofstream(file, std::ios::binary) << bytes;
        KeyValueStore store(file);
        StoredValue v;
        EXPECT_EQ(store.QueryValue(kMachine, "K1", "v1", v), StoreStatus::KeyNotFound);
        const auto notices = store.TakeNotices();
        ASSERT_EQ(notices.size(), 1u);
        EXPECT_NE(notices[0].find(file), std::string::npos);
        EXPECT_NE(notices[0].find("damaged"), std::string::npos);
        EXPECT_TRUE(store.InMemory());
        // The run goes on with what it has, and says nothing more.
        EXPECT_EQ(store.SetValue(kMachine, "K1", "v1", Text("new")), StoreStatus::Ok);
        EXPECT_EQ(ReadText(store, "K1", "v1"), "new");
        EXPECT_TRUE(store.TakeNotices().empty());
        EXPECT_TRUE(FileBytes(file) == bytes);
    }
}

TEST(KeyValueStore, ALockedStoreFailsWithinTheBusyTimeoutAndIsToldOnce) {
    TempDirectory dir;
    const std::string file = dir.Slashed() + "store.db";
    KeyValueStore store(file, 300);
    ASSERT_EQ(store.SetValue(kMachine, "K", "before", Text("1")), StoreStatus::Ok);

    // Another program holds the write lock, as a second instance in the middle of a write.
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);

    using Clock = std::chrono::steady_clock;
    auto start = Clock::now();
    EXPECT_EQ(store.SetValue(kMachine, "K", "during", Text("2")), StoreStatus::Failed);
    const auto firstWait = Clock::now() - start;
    EXPECT_GE(firstWait, std::chrono::milliseconds(250));
    EXPECT_LT(firstWait, std::chrono::milliseconds(3000));
    // The next writes do not wait the whole timeout again, and are not told again.
    start = Clock::now();
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(store.SetValue(kMachine, "K", "during", Text("2")), StoreStatus::Failed);
    EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(2500));
    const auto notices = store.TakeNotices();
    ASSERT_EQ(notices.size(), 1u);
    EXPECT_NE(notices[0].find("locked"), std::string::npos);
    EXPECT_NE(notices[0].find(file), std::string::npos);
    EXPECT_EQ(ReadText(store, "K", "before"), "1") << "reads go on meanwhile";

    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    EXPECT_EQ(store.SetValue(kMachine, "K", "after", Text("3")), StoreStatus::Ok);
    EXPECT_EQ(ReadText(store, "K", "after"), "3");
    EXPECT_TRUE(store.TakeNotices().empty());
}

TEST(KeyValueStore, AReadOnlyFileIsReadAndRefusesWrites) {
    if (geteuid() == 0) GTEST_SKIP() << "file permissions do not bind the superuser";
    TempDirectory dir;
    const std::string file = dir.Slashed() + "store.db";
    {
        KeyValueStore store(file);
        ASSERT_EQ(store.SetValue(kMachine, "K", "v", Text("1")), StoreStatus::Ok);
    }
    ASSERT_EQ(chmod(file.c_str(), 0444), 0);
    KeyValueStore store(file);
    EXPECT_EQ(store.SetValue(kMachine, "K", "v", Text("2")), StoreStatus::Failed);
    EXPECT_EQ(store.SetValue(kMachine, "K", "w", Text("2")), StoreStatus::Failed);
    const auto notices = store.TakeNotices();
    ASSERT_EQ(notices.size(), 1u);
    EXPECT_NE(notices[0].find("read-only"), std::string::npos);
    EXPECT_EQ(ReadText(store, "K", "v"), "1");
}

}  // namespace
}  // namespace vantrellion
