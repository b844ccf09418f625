// The key/value store of the configuration: one SQLite database file, store.db in the machine
// directory, holding hierarchical keys under numeric roots and typed values under the keys.
//
// Key paths are normalised (leading and trailing "\" dropped) and compared without regard to
// case; creating a key creates its missing parents; a missing key and a missing value stay
// distinct. Every write is one transaction (BEGIN IMMEDIATE) in WAL mode with synchronous=FULL,
// and a busy timeout lets two running programs take turns instead of failing at once. A file
// found in the rollback journal is switched to WAL at its first write, not before.
//
// The file is opened at the first use. Problems of the file itself are noted for the user once
// each, naming the file, the cause and the cure (TakeNotices):
// - damaged (not a database, or the quick check fails), or impossible to open or create: the
//   file is left exactly as it is, and the program goes on with an empty store held in memory
//   for the rest of the run;
// - read-only: reads go on, writes are refused;
// - locked by another program beyond the busy timeout, disk full, input/output error: the one
//   operation fails. After a lock has made one operation wait its full timeout, the next ones
//   wait only briefly until one succeeds, so that a save of many values cannot hang.
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "configuration/KeyValueBackend.h"

struct sqlite3;

namespace vantrellion {

inline constexpr int DefaultBusyTimeoutMs = 5000;

class KeyValueStore : public KeyValueBackend {
  public:
    // filePath is store.db with its directory, which is created at the first use when missing.
    explicit KeyValueStore(std::string filePath, int busyTimeoutMs = DefaultBusyTimeoutMs);
    ~KeyValueStore();
    KeyValueStore(const KeyValueStore&) = delete;
    KeyValueStore& operator=(const KeyValueStore&) = delete;

    const std::string& FilePath() const { return filePath_; }

    // "\SOFTWARE\Vantrellion\Config\" and "SOFTWARE\\Vantrellion\Config" both give
    // "SOFTWARE\Vantrellion\Config".
    static std::string NormaliseKeyPath(const std::string& keyPath);

    StoreStatus KeyExists(RegRoot root, const std::string& keyPath) override;
    // Creates the key and its missing parents; Ok when it exists already.
    StoreStatus CreateKey(RegRoot root, const std::string& keyPath) override;
    StoreStatus QueryValue(RegRoot root, const std::string& keyPath, const std::string& name,
                           StoredValue& out) override;
    // Stores the value, creating its key (and parents) if needed.
    StoreStatus SetValue(RegRoot root, const std::string& keyPath, const std::string& name,
                         const StoredValue& value) override;
    StoreStatus DeleteValue(RegRoot root, const std::string& keyPath,
                            const std::string& name) override;
    // Deletes a key with its values. A key that still has subkeys is refused.
    StoreStatus DeleteKey(RegRoot root, const std::string& keyPath) override;
    // The names of the values of a key, in the order of their names.
    StoreStatus ValueNames(RegRoot root, const std::string& keyPath,
                           std::vector<std::string>& names);

    // True once the file has been given up for the run and an empty store in memory serves.
    bool InMemory() const { return inMemory_; }

    // Whether the file can be read now: busy while another program holds it locked (an
    // sqlite3 session in the middle of a write, a backup tool). Waits at most waitMs for the
    // lock to go; a busy file is not noted for the user, the caller tells it.
    enum class Access { Readable, Busy, Other };
    Access CheckReadable(int waitMs);
    // Gives the file up for the rest of the run, unread: an empty store in memory serves, and
    // the file gets only the values the user changes in this run (see UserChange). Everything
    // else the program writes stays in memory, so the file keeps what it holds.
    void GoOnWithoutFile();

    // While one is alive, the writes come from the user's own choice (a Save of the
    // configuration, a tool command, the data file chosen). Without the file, a value that
    // such a write changes is the user's for the rest of the run: it and every later write of
    // it go to the file too, so that a write that failed on a lock is made again by the next.
    class UserChange {
      public:
        explicit UserChange(KeyValueStore* store) : store_(store) {
            if (store_) ++store_->userChanging_;
        }
        ~UserChange() {
            if (store_) --store_->userChanging_;
        }
        UserChange(const UserChange&) = delete;
        UserChange& operator=(const UserChange&) = delete;

      private:
        KeyValueStore* store_;
    };

    // Closes the file between uses; the next use opens it again. Closing the last connection
    // moves the write-ahead log into store.db and removes store.db-wal and store.db-shm, so
    // during the hours between two uses the file alone holds every committed value (a backup
    // that copies files finds it whole) and no connection of this program keeps another one
    // from taking the file to itself. Nothing happens while memory serves, whose values would
    // be lost.
    void ReleaseFile();

    // The notices that are due for the user, each told once; the list is emptied.
    std::vector<std::string> TakeNotices() override;

  private:
    enum class Problem { Damaged, CannotOpen, ReadOnly, Locked, DiskFull, IoError, Count };

    bool EnsureOpen();
    void EnsureWal();
    bool OpenFile();
    void OpenInMemory();
    bool PrepareSchema();
    void Close();
    void Note(Problem p, const std::string& detail = "");
    void NoteFailure(int rc);
    void NoteSuccess();
    template <typename Body>
    StoreStatus Write(Body body);
    int64_t FindKey(RegRoot root, const std::string& path, int& rc);
    // The id of a key for a read, -1 when it does not exist; false (and noted) when the
    // database cannot be asked.
    bool LookUpKey(RegRoot root, const std::string& path, int64_t& id);
    int64_t InsertKeyWithParents(RegRoot root, const std::string& path, int& rc);
    StoreStatus SetValueHere(RegRoot root, const std::string& path, const std::string& name,
                             const StoredValue& value);
    StoreStatus SetValueWithoutFile(RegRoot root, const std::string& path, const std::string& name,
                                    const StoredValue& value);

    std::string filePath_;
    int busyTimeoutMs_;
    sqlite3* db_ = nullptr;
    bool inMemory_ = false;
    bool readOnly_ = false;
    bool walReady_ = false;       // the file is in WAL mode
    bool waitingOnLock_ = false;  // a lock made the last operation time out
    bool probing_ = false;        // CheckReadable is asking: a busy file is not noted
    bool sawBusy_ = false;        // the last operation found the file busy
    bool told_[static_cast<int>(Problem::Count)] = {};
    std::vector<std::string> notices_;
    bool withoutFile_ = false;             // the file was given up: memory serves
    int userChanging_ = 0;                 // UserChange scopes alive
    std::set<std::string> userValues_;     // values the user changed while without the file
    std::unique_ptr<KeyValueStore> file_;  // the file, for those values only
};

}  // namespace vantrellion
