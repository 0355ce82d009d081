// A library that is loaded before all others (LD_PRELOAD) and counts the statements of the embedded engine that are
// prepared and not finalized yet. The counts stand in the file that TRIAL_STATEMENTS names: open statements and, behind
// them, all that were ever prepared, as two 64-bit numbers.

#include <atomic>
#include <cstdint>
#include <cstdlib>

#include <dlfcn.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

struct Counts {
    std::atomic<std::int64_t> open{0};
    std::atomic<std::int64_t> prepared{0};
};

Counts& counts() {
    static Counts* const shared = [] {
        const char* const path = std::getenv("TRIAL_STATEMENTS");
        const int file = path == nullptr ? -1 : ::open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (file < 0 || ::ftruncate(file, sizeof(Counts)) != 0) {
            std::abort();
        }
        void* const memory = ::mmap(nullptr, sizeof(Counts), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        ::close(file);
        if (memory == MAP_FAILED) {
            std::abort();
        }
        return static_cast<Counts*>(memory);
    }();
    return *shared;
}

template <typename Function>
Function next(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

/// Within sqlite3_exec, which ends its statements without sqlite3_finalize.
thread_local int insideExec = 0;

int counted(int result, sqlite3_stmt** statement) {
    if (insideExec == 0 && result == SQLITE_OK && *statement != nullptr) {
        ++counts().open;
        ++counts().prepared;
    }
    return result;
}

}  // namespace

extern "C" {

int sqlite3_prepare_v2(sqlite3* database, const char* sql, int bytes, sqlite3_stmt** statement, const char** tail) {
    static const auto real = next<decltype(&sqlite3_prepare_v2)>("sqlite3_prepare_v2");
    return counted(real(database, sql, bytes, statement, tail), statement);
}

int sqlite3_prepare_v3(sqlite3* database, const char* sql, int bytes, unsigned flags, sqlite3_stmt** statement,
                       const char** tail) {
    static const auto real = next<decltype(&sqlite3_prepare_v3)>("sqlite3_prepare_v3");
    return counted(real(database, sql, bytes, flags, statement, tail), statement);
}

int sqlite3_exec(sqlite3* database, const char* sql, int (*callback)(void*, int, char**, char**), void* data,
                 char** error) {
    static const auto real = next<decltype(&sqlite3_exec)>("sqlite3_exec");
    ++insideExec;
    const int result = real(database, sql, callback, data, error);
    --insideExec;
    return result;
}

int sqlite3_finalize(sqlite3_stmt* statement) {
    static const auto real = next<decltype(&sqlite3_finalize)>("sqlite3_finalize");
    if (insideExec == 0 && statement != nullptr) {
        --counts().open;
    }
    return real(statement);
}
}
