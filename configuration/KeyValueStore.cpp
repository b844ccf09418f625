#include "configuration/KeyValueStore.h"

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace vantrellion {

namespace {

constexpr const char* kSchema =
    "CREATE TABLE IF NOT EXISTS keys ("
    " id   INTEGER PRIMARY KEY,"
    " root INTEGER NOT NULL,"
    " path TEXT    NOT NULL COLLATE NOCASE,"
    " UNIQUE (root, path));"
    "CREATE TABLE IF NOT EXISTS \"values\" ("
    " key_id INTEGER NOT NULL REFERENCES keys(id) ON DELETE CASCADE,"
    " name   TEXT    NOT NULL COLLATE NOCASE,"
    " type   INTEGER NOT NULL,"
    " data   BLOB,"
    " PRIMARY KEY (key_id, name));";

// One prepared statement, finalised when it goes out of scope.
class Statement {
  public:
    Statement(sqlite3* db, const char* sql) {
        rc_ = sqlite3_prepare_v2(db, sql, -1, &st_, nullptr);
    }
    ~Statement() { sqlite3_finalize(st_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    bool Prepared() const { return rc_ == SQLITE_OK; }
    int PrepareResult() const { return rc_; }
    void Bind(int i, int64_t v) { sqlite3_bind_int64(st_, i, v); }
    void Bind(int i, const std::string& s) {
        sqlite3_bind_text(st_, i, s.data(), static_cast<int>(s.size()), SQLITE_TRANSIENT);
    }
    int Step() { return sqlite3_step(st_); }
    sqlite3_stmt* get() { return st_; }

  private:
    sqlite3_stmt* st_ = nullptr;
    int rc_ = SQLITE_OK;
};

int Exec(sqlite3* db, const char* sql) {
    return sqlite3_exec(db, sql, nullptr, nullptr, nullptr);
}

std::string ColumnText(sqlite3_stmt* st, int col) {
    const auto* p = static_cast<const char*>(sqlite3_column_blob(st, col));
    const int n = sqlite3_column_bytes(st, col);
    return p ? std::string(p, static_cast<size_t>(n)) : std::string();
}

// The text of a failure: SQLite's message for the connection, or for the code alone.
std::string FailureText(sqlite3* db, int rc) {
    if (db && sqlite3_errcode(db) == rc) return sqlite3_errmsg(db);
    return sqlite3_errstr(rc);
}

std::string Seconds(int ms) {
    const int tenths = (ms + 50) / 100;
    return std::to_string(tenths / 10) + (tenths % 10 ? "." + std::to_string(tenths % 10) : "");
}

}  // namespace

KeyValueStore::KeyValueStore(std::string filePath, int busyTimeoutMs)
    : filePath_(std::move(filePath)), busyTimeoutMs_(std::max(0, busyTimeoutMs)) {}

KeyValueStore::~KeyValueStore() {
    Close();
}

std::string KeyValueStore::NormaliseKeyPath(const std::string& keyPath) {
    std::string out;
    size_t i = 0;
    while (i < keyPath.size()) {
        while (i < keyPath.size() && keyPath[i] == '\\')
            ++i;
        const size_t start = i;
        while (i < keyPath.size() && keyPath[i] != '\\')
            ++i;
        if (i > start) {
            if (!out.empty()) out += '\\';
            out.append(keyPath, start, i - start);
        }
    }
    return out;
}

std::vector<std::string> KeyValueStore::TakeNotices() {
    std::vector<std::string> out;
    out.swap(notices_);
    if (file_)
        for (auto& text : file_->TakeNotices())
            out.push_back(std::move(text));
    return out;
}

void KeyValueStore::Close() {
    if (db_) sqlite3_close_v2(db_);
    db_ = nullptr;
    walReady_ = false;
}

void KeyValueStore::ReleaseFile() {
    if (file_) file_->ReleaseFile();
    if (inMemory_ || !db_) return;
    Close();
}

void KeyValueStore::EnsureWal() {
    if (walReady_ || inMemory_ || !db_) return;
    // A store in the rollback journal (made by another tool, or switched back by hand) is
    // switched to WAL, as the program's own are, so that a reader never blocks a write. The
    // switch needs the file to itself: while another program holds it, the write goes on in
    // the journal it finds, and the switch is tried again at the next write.
    Statement mode(db_, "PRAGMA journal_mode=WAL");
    if (mode.Prepared() && mode.Step() == SQLITE_ROW)
        walReady_ = sqlite3_stricmp(ColumnText(mode.get(), 0).c_str(), "wal") == 0;
}

bool KeyValueStore::EnsureOpen() {
    if (db_) return true;
    return OpenFile();
}

bool KeyValueStore::OpenFile() {
    const auto slash = filePath_.rfind('/');
    if (slash != std::string::npos && slash > 0) {
        const std::string dir = filePath_.substr(0, slash + 1);
        std::error_code ec;
        std::filesystem::create_directories(dir, ec);
        if (!std::filesystem::is_directory(dir)) {
            Note(Problem::CannotOpen,
                 "its folder cannot be created: " + (ec ? ec.message() : "not a folder"));
            OpenInMemory();
            return true;
        }
    }
    int rc = sqlite3_open_v2(filePath_.c_str(), &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                             nullptr);
    if (rc != SQLITE_OK) {
        const std::string detail = FailureText(db_, rc);
        Close();
        Note(Problem::CannotOpen, detail);
        OpenInMemory();
        return true;
    }
    sqlite3_extended_result_codes(db_, 1);
    sqlite3_busy_timeout(db_, waitingOnLock_ ? std::min(100, busyTimeoutMs_) : busyTimeoutMs_);
    readOnly_ = sqlite3_db_readonly(db_, "main") == 1;

    // A damaged file is told apart before anything is written to it: a file that is not a
    // database fails at once, a damaged one fails the quick check.
    std::string verdict;
    {
        Statement check(db_, "PRAGMA quick_check");
        rc = check.PrepareResult();
        if (check.Prepared()) {
            rc = check.Step();
            if (rc == SQLITE_ROW) {
                verdict = ColumnText(check.get(), 0);
                rc = SQLITE_OK;
            }
        }
    }
    if ((rc & 0xff) == SQLITE_BUSY || (rc & 0xff) == SQLITE_LOCKED) {
        Close();
        NoteFailure(rc);
        return false;
    }
    if (rc != SQLITE_OK || verdict != "ok") {
        const std::string detail = rc != SQLITE_OK ? FailureText(db_, rc) : verdict;
        Close();
        Note(Problem::Damaged, detail);
        OpenInMemory();
        return true;
    }
    if (!PrepareSchema()) return false;
    if (inMemory_) return true;
    // The switch to WAL waits for the first write: opening and reading leave the file as it
    // is, whoever made it.
    Exec(db_, "PRAGMA synchronous=FULL");
    Exec(db_, "PRAGMA foreign_keys=ON");
    return true;
}

namespace {

// One column of a table as the schema declares it.
struct ColumnShape {
    const char* Name;
    const char* Type;
    int PrimaryKey;  // position in the primary key, 0 when not part of it
};

constexpr ColumnShape kKeysShape[] = {
    {"id", "INTEGER", 1}, {"root", "INTEGER", 0}, {"path", "TEXT", 0}};
constexpr ColumnShape kValuesShape[] = {
    {"key_id", "INTEGER", 1}, {"name", "TEXT", 2}, {"type", "INTEGER", 0}, {"data", "BLOB", 0}};

bool SameText(const std::string& a, const char* b) {
    return sqlite3_stricmp(a.c_str(), b) == 0;
}

// True when the table has exactly the columns of the schema, in their order.
template <size_t N>
bool TableHasShape(sqlite3* db, const char* table, const ColumnShape (&shape)[N]) {
    Statement info(db, (std::string("PRAGMA table_info(\"") + table + "\")").c_str());
    if (!info.Prepared()) return false;
    size_t n = 0;
    while (info.Step() == SQLITE_ROW) {
        if (n == N) return false;
        const ColumnShape& want = shape[n++];
        if (!SameText(ColumnText(info.get(), 1), want.Name) ||
            !SameText(ColumnText(info.get(), 2), want.Type) ||
            sqlite3_column_int(info.get(), 5) != want.PrimaryKey)
            return false;
    }
    return n == N;
}

}  // namespace

bool KeyValueStore::PrepareSchema() {
    // SQLite's own tables (sqlite_stat1 after an ANALYZE, sqlite_sequence) do not count.
    int tables = 0, ours = 0;
    {
        Statement count(db_,
                        "SELECT count(*), count(CASE WHEN name IN ('keys','values') THEN 1 END) "
                        "FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite\\_%' "
                        "ESCAPE '\\'");
        if (count.Prepared() && count.Step() == SQLITE_ROW) {
            tables = sqlite3_column_int(count.get(), 0);
            ours = sqlite3_column_int(count.get(), 1);
        }
    }
    // A new, empty file is made a store. A database without the store's two tables is someone
    // else's, and nothing is written to it.
    if (tables == 0) {
        if (readOnly_) {
            Close();
            Note(Problem::CannotOpen, "the file is read-only and holds no configuration yet");
            OpenInMemory();
            return true;
        }
        EnsureWal();
        int rc = Exec(db_, "BEGIN IMMEDIATE");
        if (rc == SQLITE_OK) {
            rc = Exec(db_, kSchema);
            if (rc == SQLITE_OK) rc = Exec(db_, "COMMIT");
            if (rc != SQLITE_OK) Exec(db_, "ROLLBACK");
        }
        if (rc != SQLITE_OK) {
            NoteFailure(rc);
            Close();
            return false;
        }
        return true;
    }
    // The two tables of the schema, each of its own shape, make a store; further tables and
    // indexes that an administrator added are left alone.
    if (ours != 2 || !TableHasShape(db_, "keys", kKeysShape) ||
        !TableHasShape(db_, "values", kValuesShape)) {
        Close();
        Note(Problem::Damaged, "it does not hold the tables of the configuration store");
        OpenInMemory();
    }
    return true;
}

void KeyValueStore::OpenInMemory() {
    Close();
    inMemory_ = true;
    readOnly_ = false;
    waitingOnLock_ = false;
    if (sqlite3_open_v2(":memory:", &db_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) !=
        SQLITE_OK) {
        Close();
        return;
    }
    sqlite3_extended_result_codes(db_, 1);
    Exec(db_, "PRAGMA foreign_keys=ON");
    if (Exec(db_, kSchema) != SQLITE_OK) Close();
}

void KeyValueStore::Note(Problem p, const std::string& detail) {
    auto& told = told_[static_cast<int>(p)];
    if (told) return;
    told = true;
    const std::string head = "The configuration store\n" + filePath_ + "\n";
    std::string text;
    switch (p) {
        case Problem::Damaged:
            text = head + "is damaged and cannot be read (" + detail +
                   ").\n\nVantrellion leaves the file exactly as it is and goes on with an empty "
                   "configuration; nothing is stored in this run. Move the file aside or put "
                   "back a copy from a backup, then start Vantrellion again.";
            break;
        case Problem::CannotOpen:
            text = head + "cannot be opened (" + detail +
                   ").\n\nVantrellion goes on with an empty configuration; nothing is stored in "
                   "this run. Check that the folder exists and that you may write to it, then "
                   "start Vantrellion again.";
            break;
        case Problem::ReadOnly:
            text = head +
                   "is read-only: changes to the configuration are not stored.\n\nMake the file "
                   "and its folder writable (chmod u+w) to store them.";
            break;
        case Problem::Locked:
            text = head + "is locked by another program; Vantrellion waited " +
                   Seconds(busyTimeoutMs_) +
                   " seconds for it.\n\nThe change was not stored. Close the other program (a "
                   "second Vantrellion, or an sqlite3 session on the file) and try again.";
            break;
        case Problem::DiskFull:
            text = head +
                   "cannot be written: the disk is full.\n\nThe change was not stored. Free some "
                   "space on the disk and try again.";
            break;
        case Problem::IoError:
            text = head + "cannot be read or written (" + detail +
                   ").\n\nThe change was not stored. Check the disk and the file's permissions.";
            break;
        case Problem::Count:
            break;
    }
    notices_.push_back(text);
}

KeyValueStore::Access KeyValueStore::CheckReadable(int waitMs) {
    if (inMemory_) return Access::Other;
    probing_ = true;
    sawBusy_ = false;
    const int timeout = busyTimeoutMs_;
    const bool waiting = waitingOnLock_;
    busyTimeoutMs_ = std::max(0, waitMs);
    waitingOnLock_ = false;
    if (db_) sqlite3_busy_timeout(db_, busyTimeoutMs_);
    bool readable = EnsureOpen() && db_ && !inMemory_;
    if (readable) {
        // The open may have been lazy: one read of the keys tells a held file.
        Statement read(db_, "SELECT count(*) FROM keys");
        const int rc = read.Prepared() ? read.Step() : read.PrepareResult();
        sawBusy_ = sawBusy_ || (rc & 0xff) == SQLITE_BUSY || (rc & 0xff) == SQLITE_LOCKED;
        readable = rc == SQLITE_ROW;
    }
    busyTimeoutMs_ = timeout;
    waitingOnLock_ = waiting && !readable;
    if (db_) sqlite3_busy_timeout(db_, waitingOnLock_ ? std::min(100, timeout) : timeout);
    probing_ = false;
    if (readable) return Access::Readable;
    return sawBusy_ ? Access::Busy : Access::Other;
}

void KeyValueStore::GoOnWithoutFile() {
    OpenInMemory();
    withoutFile_ = true;
}

void KeyValueStore::NoteFailure(int rc) {
    switch (rc & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            if (probing_) {
                sawBusy_ = true;
                break;
            }
            // Until an operation succeeds again, wait only briefly: the lock has already made
            // the user wait once.
            waitingOnLock_ = true;
            if (db_) sqlite3_busy_timeout(db_, std::min(100, busyTimeoutMs_));
            Note(Problem::Locked);
            break;
        case SQLITE_READONLY:
            Note(Problem::ReadOnly);
            break;
        case SQLITE_FULL:
            Note(Problem::DiskFull);
            break;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB: {
            const std::string detail = FailureText(db_, rc);
            Note(Problem::Damaged, detail);
            OpenInMemory();
            break;
        }
        default:
            Note(Problem::IoError, FailureText(db_, rc));
            break;
    }
}

void KeyValueStore::NoteSuccess() {
    if (waitingOnLock_) {
        waitingOnLock_ = false;
        if (db_) sqlite3_busy_timeout(db_, busyTimeoutMs_);
    }
    // A lock, a full disk or an input/output error that comes back later is told again.
    told_[static_cast<int>(Problem::Locked)] = false;
    told_[static_cast<int>(Problem::DiskFull)] = false;
    told_[static_cast<int>(Problem::IoError)] = false;
}

template <typename Body>
StoreStatus KeyValueStore::Write(Body body) {
    if (!EnsureOpen() || !db_) return StoreStatus::Failed;
    if (readOnly_) {
        Note(Problem::ReadOnly);
        return StoreStatus::Failed;
    }
    EnsureWal();
    int rc = Exec(db_, "BEGIN IMMEDIATE");
    if (rc != SQLITE_OK) {
        NoteFailure(rc);
        return StoreStatus::Failed;
    }
    rc = SQLITE_OK;
    const StoreStatus st = body(rc);
    if (st == StoreStatus::Ok) {
        rc = Exec(db_, "COMMIT");
        if (rc == SQLITE_OK) {
            NoteSuccess();
            return StoreStatus::Ok;
        }
    }
    Exec(db_, "ROLLBACK");
    if (st == StoreStatus::Ok || st == StoreStatus::Failed) {
        NoteFailure(rc == SQLITE_OK ? SQLITE_ERROR : rc);
        return StoreStatus::Failed;
    }
    return st;
}

int64_t KeyValueStore::FindKey(RegRoot root, const std::string& path, int& rc) {
    Statement find(db_, "SELECT id FROM keys WHERE root = ?1 AND path = ?2");
    if (!find.Prepared()) {
        rc = find.PrepareResult();
        return -1;
    }
    find.Bind(1, static_cast<int64_t>(root));
    find.Bind(2, path);
    const int step = find.Step();
    if (step == SQLITE_ROW) {
        rc = SQLITE_OK;
        return sqlite3_column_int64(find.get(), 0);
    }
    rc = step == SQLITE_DONE ? SQLITE_OK : step;
    return -1;
}

int64_t KeyValueStore::InsertKeyWithParents(RegRoot root, const std::string& path, int& rc) {
    // "A\B\C" makes "A", "A\B" and "A\B\C"; a parent that exists keeps its own spelling.
    std::vector<std::string> prefixes;
    for (size_t pos = 0;; ++pos) {
        pos = path.find('\\', pos);
        prefixes.push_back(path.substr(0, pos));
        if (pos == std::string::npos) break;
    }
    for (const auto& prefix : prefixes) {
        Statement insert(db_, "INSERT OR IGNORE INTO keys (root, path) VALUES (?1, ?2)");
        if (!insert.Prepared()) {
            rc = insert.PrepareResult();
            return -1;
        }
        insert.Bind(1, static_cast<int64_t>(root));
        insert.Bind(2, prefix);
        rc = insert.Step();
        if (rc != SQLITE_DONE) return -1;
    }
    rc = SQLITE_OK;
    const int64_t id = FindKey(root, path, rc);
    if (id < 0 && rc == SQLITE_OK) rc = SQLITE_INTERNAL;
    return id;
}

bool KeyValueStore::LookUpKey(RegRoot root, const std::string& path, int64_t& id) {
    id = -1;
    if (!EnsureOpen() || !db_) return false;
    int rc = SQLITE_OK;
    id = FindKey(root, path, rc);
    if (rc != SQLITE_OK) {
        NoteFailure(rc);
        return false;
    }
    return true;
}

StoreStatus KeyValueStore::KeyExists(RegRoot root, const std::string& keyPath) {
    const std::string path = NormaliseKeyPath(keyPath);
    if (path.empty()) return StoreStatus::Ok;  // a root always exists
    int64_t id = -1;
    if (!LookUpKey(root, path, id)) return StoreStatus::Failed;
    return id < 0 ? StoreStatus::KeyNotFound : StoreStatus::Ok;
}

StoreStatus KeyValueStore::CreateKey(RegRoot root, const std::string& keyPath) {
    const std::string path = NormaliseKeyPath(keyPath);
    // A key that exists needs no write.
    if (!path.empty() && KeyExists(root, path) == StoreStatus::Ok) return StoreStatus::Ok;
    return Write([&](int& rc) {
        return InsertKeyWithParents(root, path, rc) < 0 ? StoreStatus::Failed : StoreStatus::Ok;
    });
}

StoreStatus KeyValueStore::QueryValue(RegRoot root, const std::string& keyPath,
                                      const std::string& name, StoredValue& out) {
    out = StoredValue{};
    const std::string path = NormaliseKeyPath(keyPath);
    int64_t id = -1;
    if (!LookUpKey(root, path, id)) return StoreStatus::Failed;
    if (id < 0) return path.empty() ? StoreStatus::ValueNotFound : StoreStatus::KeyNotFound;
    Statement query(db_, "SELECT type, data FROM \"values\" WHERE key_id = ?1 AND name = ?2");
    if (!query.Prepared()) {
        NoteFailure(query.PrepareResult());
        return StoreStatus::Failed;
    }
    query.Bind(1, id);
    query.Bind(2, name);
    const int rc = query.Step();
    if (rc == SQLITE_DONE) return StoreStatus::ValueNotFound;
    if (rc != SQLITE_ROW) {
        NoteFailure(rc);
        return StoreStatus::Failed;
    }
    out.Type = static_cast<int32_t>(sqlite3_column_int64(query.get(), 0));
    switch (sqlite3_column_type(query.get(), 1)) {
        case SQLITE_TEXT:
        case SQLITE_BLOB:
            out.Kind = StoredValue::Data::Text;
            out.Text = ColumnText(query.get(), 1);
            break;
        case SQLITE_INTEGER:
            out.Kind = StoredValue::Data::Integer;
            out.Integer = sqlite3_column_int64(query.get(), 1);
            break;
        default:
            out.Kind = StoredValue::Data::None;
            break;
    }
    return StoreStatus::Ok;
}

StoreStatus KeyValueStore::SetValue(RegRoot root, const std::string& keyPath,
                                    const std::string& name, const StoredValue& value) {
    const std::string path = NormaliseKeyPath(keyPath);
    if (withoutFile_) return SetValueWithoutFile(root, path, name, value);
    return SetValueHere(root, path, name, value);
}

namespace {

bool SameValue(const StoredValue& a, const StoredValue& b) {
    return a.Type == b.Type && a.Kind == b.Kind && a.Text == b.Text && a.Integer == b.Integer;
}

// Key paths and names are compared without regard to case, as the store does.
std::string ValueIdentity(RegRoot root, const std::string& path, const std::string& name) {
    std::string id = std::to_string(root) + '\\' + path + '\\' + name;
    for (char& c : id)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return id;
}

}  // namespace

StoreStatus KeyValueStore::SetValueWithoutFile(RegRoot root, const std::string& path,
                                               const std::string& name, const StoredValue& value) {
    const std::string id = ValueIdentity(root, path, name);
    if (userChanging_ > 0) {
        // A full save writes every value again: only those that differ from what this run
        // holds are the user's changes.
        StoredValue held;
        if (QueryValue(root, path, name, held) != StoreStatus::Ok || !SameValue(held, value))
            userValues_.insert(id);
    }
    const StoreStatus here = SetValueHere(root, path, name, value);
    if (here != StoreStatus::Ok || userValues_.count(id) == 0) return here;
    if (!file_) file_ = std::make_unique<KeyValueStore>(filePath_, busyTimeoutMs_);
    return file_->SetValue(root, path, name, value);
}

StoreStatus KeyValueStore::SetValueHere(RegRoot root, const std::string& path,
                                        const std::string& name, const StoredValue& value) {
    return Write([&](int& rc) {
        const int64_t id = InsertKeyWithParents(root, path, rc);
        if (id < 0) return StoreStatus::Failed;
        // A value that exists keeps the spelling of its name; type and data are replaced.
        Statement upsert(
            db_,
            "INSERT INTO \"values\" (key_id, name, type, data) VALUES (?1, ?2, ?3, ?4) "
            "ON CONFLICT (key_id, name) DO UPDATE SET type = excluded.type, "
            "data = excluded.data");
        if (!upsert.Prepared()) {
            rc = upsert.PrepareResult();
            return StoreStatus::Failed;
        }
        upsert.Bind(1, id);
        upsert.Bind(2, name);
        upsert.Bind(3, static_cast<int64_t>(value.Type));
        if (value.Kind == StoredValue::Data::Integer)
            upsert.Bind(4, value.Integer);
        else if (value.Kind == StoredValue::Data::Text)
            upsert.Bind(4, value.Text);
        rc = upsert.Step();
        if (rc != SQLITE_DONE) return StoreStatus::Failed;
        rc = SQLITE_OK;
        return StoreStatus::Ok;
    });
}

StoreStatus KeyValueStore::DeleteValue(RegRoot root, const std::string& keyPath,
                                       const std::string& name) {
    const std::string path = NormaliseKeyPath(keyPath);
    return Write([&](int& rc) {
        const int64_t id = FindKey(root, path, rc);
        if (rc != SQLITE_OK) return StoreStatus::Failed;
        if (id < 0) return path.empty() ? StoreStatus::ValueNotFound : StoreStatus::KeyNotFound;
        Statement del(db_, "DELETE FROM \"values\" WHERE key_id = ?1 AND name = ?2");
        if (!del.Prepared()) {
            rc = del.PrepareResult();
            return StoreStatus::Failed;
        }
        del.Bind(1, id);
        del.Bind(2, name);
        rc = del.Step();
        if (rc != SQLITE_DONE) return StoreStatus::Failed;
        rc = SQLITE_OK;
        return sqlite3_changes(db_) > 0 ? StoreStatus::Ok : StoreStatus::ValueNotFound;
    });
}

StoreStatus KeyValueStore::DeleteKey(RegRoot root, const std::string& keyPath) {
    const std::string path = NormaliseKeyPath(keyPath);
    if (path.empty()) return StoreStatus::Refused;
    return Write([&](int& rc) {
        const int64_t id = FindKey(root, path, rc);
        if (rc != SQLITE_OK) return StoreStatus::Failed;
        if (id < 0) return StoreStatus::KeyNotFound;
        Statement sub(db_,
                      "SELECT 1 FROM keys WHERE root = ?1 AND "
                      "substr(path, 1, length(?2)) = ?2 COLLATE NOCASE LIMIT 1");
        if (!sub.Prepared()) {
            rc = sub.PrepareResult();
            return StoreStatus::Failed;
        }
        sub.Bind(1, static_cast<int64_t>(root));
        sub.Bind(2, path + "\\");
        rc = sub.Step();
        if (rc == SQLITE_ROW) {
            rc = SQLITE_OK;
            return StoreStatus::Refused;
        }
        if (rc != SQLITE_DONE) return StoreStatus::Failed;
        for (const char* sql :
             {"DELETE FROM \"values\" WHERE key_id = ?1", "DELETE FROM keys WHERE id = ?1"}) {
            Statement del(db_, sql);
            if (!del.Prepared()) {
                rc = del.PrepareResult();
                return StoreStatus::Failed;
            }
            del.Bind(1, id);
            rc = del.Step();
            if (rc != SQLITE_DONE) return StoreStatus::Failed;
        }
        rc = SQLITE_OK;
        return StoreStatus::Ok;
    });
}

StoreStatus KeyValueStore::ValueNames(RegRoot root, const std::string& keyPath,
                                      std::vector<std::string>& names) {
    names.clear();
    const std::string path = NormaliseKeyPath(keyPath);
    int64_t id = -1;
    if (!LookUpKey(root, path, id)) return StoreStatus::Failed;
    if (id < 0) return path.empty() ? StoreStatus::Ok : StoreStatus::KeyNotFound;
    Statement list(db_, "SELECT name FROM \"values\" WHERE key_id = ?1 ORDER BY name");
    if (!list.Prepared()) {
        NoteFailure(list.PrepareResult());
        return StoreStatus::Failed;
    }
    list.Bind(1, id);
    int rc = SQLITE_OK;
    while ((rc = list.Step()) == SQLITE_ROW)
        names.push_back(ColumnText(list.get(), 0));
    if (rc != SQLITE_DONE) {
        NoteFailure(rc);
        return StoreStatus::Failed;
    }
    return StoreStatus::Ok;
}

}  // namespace vantrellion
