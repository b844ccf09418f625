// The SQLite library, loaded only while a store has a database open. The store is read at
// start and written now and then (a changed setting, a new day's log name, window places);
// between those uses the program runs for hours or months, and a loaded database engine would
// keep more than a megabyte of it mapped all that time. So the store loads the library when it
// opens its file and lets it go when it closes it.
#pragma once

#include <sqlite3.h>

#include <string>

namespace vantrellion {

// The functions the store calls, by the names they have in SQLite without "sqlite3_".
struct SqliteFunctions {
    decltype(&::sqlite3_open_v2) open_v2;
    decltype(&::sqlite3_close_v2) close_v2;
    decltype(&::sqlite3_extended_result_codes) extended_result_codes;
    decltype(&::sqlite3_busy_timeout) busy_timeout;
    decltype(&::sqlite3_db_readonly) db_readonly;
    decltype(&::sqlite3_exec) exec;
    decltype(&::sqlite3_prepare_v2) prepare_v2;
    decltype(&::sqlite3_finalize) finalize;
    decltype(&::sqlite3_step) step;
    decltype(&::sqlite3_bind_int64) bind_int64;
    decltype(&::sqlite3_bind_text) bind_text;
    decltype(&::sqlite3_column_int) column_int;
    decltype(&::sqlite3_column_int64) column_int64;
    decltype(&::sqlite3_column_type) column_type;
    decltype(&::sqlite3_column_blob) column_blob;
    decltype(&::sqlite3_column_bytes) column_bytes;
    decltype(&::sqlite3_changes) changes;
    decltype(&::sqlite3_errcode) errcode;
    decltype(&::sqlite3_errmsg) errmsg;
    decltype(&::sqlite3_errstr) errstr;
    decltype(&::sqlite3_stricmp) stricmp;
};

// The library's file name, as the system's loader finds it.
inline constexpr const char* SqliteLibraryName = "libsqlite3.so.0";

// Loads the library on the first hold and counts the holds. Null when it cannot be loaded,
// with the loader's reason in error.
const SqliteFunctions* AcquireSqlite(std::string& error);
// Gives one hold back; the last one unloads the library.
void ReleaseSqlite();
// The functions, to be called only while holding the library.
const SqliteFunctions& Sqlite();

}  // namespace vantrellion
