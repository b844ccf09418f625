#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "configuration/KeyValueStore.h"
#include "support/TempStore.h"

namespace vantrellion {
namespace {

using test::TempDir;

constexpr RegRoot kMachine = 0x80000002u;
constexpr RegRoot kUser = 0x80000001u;
constexpr const char* kConfig = "SOFTWARE\\Vantrellion\\Config";

StoreStatus Set(KeyValueStore& store, const std::string& key, const std::string& name,
                const std::string& text) {
    StoredValue v;
    v.Type = RegTypeText;
    v.Kind = StoredValue::Data::Text;
    v.Text = text;
    return store.SetValue(kMachine, key, name, v);
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
    TempDir dir;
    KeyValueStore store(dir.Path() + "store.db");
    ASSERT_EQ(Set(store, "\\\\SOFTWARE\\\\Vantrellion\\Config\\", "LogFileName", "a.log"),
              StoreStatus::Ok);
    EXPECT_EQ(ReadText(store, kConfig, "LogFileName"), "a.log");
    EXPECT_EQ(ReadText(store, "software\\VANTRELLION\\config\\", "logfilename"), "a.log");
    EXPECT_EQ(store.KeyExists(kMachine, "Software\\Vantrellion"), StoreStatus::Ok);
    EXPECT_EQ(store.KeyExists(kUser, kConfig), StoreStatus::KeyNotFound) << "a store of its own";
    // Overwriting under another spelling keeps one value, under its first name.
    ASSERT_EQ(Set(store, kConfig, "LOGFILENAME", "b"), StoreStatus::Ok);
    EXPECT_EQ(Names(store, kConfig), std::vector<std::string>{"LogFileName"});
    EXPECT_EQ(ReadText(store, kConfig, "LogFileName"), "b");
}

TEST(KeyValueStore, DeletesAKeyWithItsValuesButNotOneWithSubkeys) {
    TempDir dir;
    KeyValueStore store(dir.Path() + "store.db");
    ASSERT_EQ(Set(store, "A\\B\\C", "v", "1"), StoreStatus::Ok);
    ASSERT_EQ(Set(store, "A\\B", "w", "2"), StoreStatus::Ok);
    ASSERT_EQ(Set(store, "A\\BC", "x", "3"), StoreStatus::Ok);
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

// A file that is not a store is told once, by name, left untouched, and an empty store in
// memory serves the run.
TEST(KeyValueStore, DamagedFileIsToldOnceLeftAloneAndAnEmptyStoreServes) {
    std::string validDb, otherTables, otherShape;
    {
        TempDir dir;
        {
            KeyValueStore store(dir.Path() + "store.db");
            for (int i = 0; i < 200; ++i)
                Set(store, "K" + std::to_string(i % 7), "v" + std::to_string(i),
                    std::string(100, 'x'));
        }
        validDb = FileBytes(dir.Path() + "store.db");
        ASSERT_GT(validDb.size(), 8192u);
        RawQuery(dir.Path() + "other.db", "CREATE TABLE keys (a)");
        otherTables = FileBytes(dir.Path() + "other.db");
        RawQuery(dir.Path() + "shape.db",
                 "CREATE TABLE keys (id INTEGER PRIMARY KEY, root INTEGER, path TEXT)");
        RawQuery(dir.Path() + "shape.db",
                 "CREATE TABLE \"values\" (key_id INTEGER, name TEXT, data BLOB)");
        otherShape = FileBytes(dir.Path() + "shape.db");
    }
    const std::pair<const char*, std::string> cases[] = {
        {"garbage", std::string(5000, '\x5a')},
        {"truncated", validDb.substr(0, validDb.size() / 2)},
        {"header only", validDb.substr(0, 100)},
        {"a database of other tables", otherTables},
        {"the two tables of another shape", otherShape},
    };
    for (const auto& [name, bytes] : cases) {
        SCOPED_TRACE(name);
        TempDir dir;
        const std::string file = dir.Path() + "store.db";
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
        EXPECT_EQ(Set(store, "K1", "v1", "new"), StoreStatus::Ok);
        EXPECT_EQ(ReadText(store, "K1", "v1"), "new");
        EXPECT_TRUE(store.TakeNotices().empty());
        EXPECT_TRUE(FileBytes(file) == bytes);
    }
}

TEST(KeyValueStore, ALockedStoreFailsAndIsToldOnce) {
    TempDir dir;
    const std::string file = dir.Path() + "store.db";
    KeyValueStore store(file, 300);
    ASSERT_EQ(Set(store, "K", "before", "1"), StoreStatus::Ok);

    // Another program holds the write lock, as a second instance in the middle of a write.
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);

    // Every write fails while the lock stands, and only the first is told.
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Set(store, "K", "during", "2"), StoreStatus::Failed);
    const auto notices = store.TakeNotices();
    ASSERT_EQ(notices.size(), 1u);
    EXPECT_NE(notices[0].find("locked"), std::string::npos);
    EXPECT_NE(notices[0].find(file), std::string::npos);
    EXPECT_EQ(ReadText(store, "K", "before"), "1") << "reads go on meanwhile";

    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    EXPECT_EQ(Set(store, "K", "after", "3"), StoreStatus::Ok);
    EXPECT_EQ(ReadText(store, "K", "after"), "3");
    EXPECT_TRUE(store.TakeNotices().empty());
}

}  // namespace
}  // namespace vantrellion
