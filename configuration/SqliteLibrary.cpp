#include "configuration/SqliteLibrary.h"

#include <dlfcn.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <mutex>

namespace vantrellion {

namespace {

struct Loaded {
    std::mutex lock;
    void* handle = nullptr;
    int holds = 0;
    SqliteFunctions functions{};
};

Loaded& State() {
    static Loaded state;
    return state;
}

template <typename F>
bool Resolve(void* handle, const char* name, F& out, std::string& missing) {
    out = reinterpret_cast<F>(dlsym(handle, name));
    if (!out && missing.empty()) missing = name;
    return out != nullptr;
}

bool ResolveAll(void* handle, SqliteFunctions& f, std::string& missing) {
    bool ok = true;
    ok &= Resolve(handle, "sqlite3_open_v2", f.open_v2, missing);
    ok &= Resolve(handle, "sqlite3_close_v2", f.close_v2, missing);
    ok &= Resolve(handle, "sqlite3_extended_result_codes", f.extended_result_codes, missing);
    ok &= Resolve(handle, "sqlite3_busy_timeout", f.busy_timeout, missing);
    ok &= Resolve(handle, "sqlite3_db_readonly", f.db_readonly, missing);
    ok &= Resolve(handle, "sqlite3_exec", f.exec, missing);
    ok &= Resolve(handle, "sqlite3_prepare_v2", f.prepare_v2, missing);
    ok &= Resolve(handle, "sqlite3_finalize", f.finalize, missing);
    ok &= Resolve(handle, "sqlite3_step", f.step, missing);
    ok &= Resolve(handle, "sqlite3_bind_int64", f.bind_int64, missing);
    ok &= Resolve(handle, "sqlite3_bind_text", f.bind_text, missing);
    ok &= Resolve(handle, "sqlite3_column_int", f.column_int, missing);
    ok &= Resolve(handle, "sqlite3_column_int64", f.column_int64, missing);
    ok &= Resolve(handle, "sqlite3_column_type", f.column_type, missing);
    ok &= Resolve(handle, "sqlite3_column_blob", f.column_blob, missing);
    ok &= Resolve(handle, "sqlite3_column_bytes", f.column_bytes, missing);
    ok &= Resolve(handle, "sqlite3_changes", f.changes, missing);
    ok &= Resolve(handle, "sqlite3_errcode", f.errcode, missing);
    ok &= Resolve(handle, "sqlite3_errmsg", f.errmsg, missing);
    ok &= Resolve(handle, "sqlite3_errstr", f.errstr, missing);
    ok &= Resolve(handle, "sqlite3_stricmp", f.stricmp, missing);
    return ok;
}

}  // namespace

const SqliteFunctions* AcquireSqlite(std::string& error) {
    Loaded& s = State();
    std::lock_guard<std::mutex> guard(s.lock);
    if (s.holds == 0) {
        void* handle = dlopen(SqliteLibraryName, RTLD_NOW | RTLD_LOCAL);
        if (!handle) {
            const char* why = dlerror();
            error = why ? why : std::string(SqliteLibraryName) + " cannot be loaded";
            return nullptr;
        }
        std::string missing;
        if (!ResolveAll(handle, s.functions, missing)) {
            dlclose(handle);
            error = std::string(SqliteLibraryName) + " lacks " + missing;
            return nullptr;
        }
        s.handle = handle;
    }
    ++s.holds;
    return &s.functions;
}

const SqliteFunctions& Sqlite() {
    return State().functions;
}

void ReleaseSqlite() {
    Loaded& s = State();
    std::lock_guard<std::mutex> guard(s.lock);
    if (s.holds == 0) return;
    if (--s.holds == 0) {
        dlclose(s.handle);
        s.handle = nullptr;
#ifdef __GLIBC__
        // SQLite's page cache, and whatever else the start or a save freed, sits in free heap
        // pages that the allocator keeps resident for good; the store is idle from here on,
        // so those pages go back to the system.
        malloc_trim(0);
#endif
    }
}

}  // namespace vantrellion
