#pragma once
// The system as the engine sees it, refusing.

#include <cerrno>
#include <map>
#include <string>
#include <vector>

#include <sqlite3.h>

namespace velmora::test {

inline const std::vector<std::string> writing{"write", "pwrite", "pwrite64"};
inline const std::vector<std::string> reading{"read", "pread", "pread64"};

/// Calls of the engine to the system that are refused with this error, as by a broken disk: while the object lives, or
/// only the next one of them. One such object at a time.
class RefusedCalls {
  public:
    enum class Times { once, always };

    RefusedCalls(const std::vector<std::string>& names, int error, Times times = Times::always) {
        error_ = error;
        times_ = times;
        for (const std::string& name : names) {
            if (const sqlite3_syscall_ptr own = system()->xGetSystemCall(system(), name.c_str())) {
                own_[name] = own;
                system()->xSetSystemCall(system(), name.c_str(), reinterpret_cast<sqlite3_syscall_ptr>(&refuse));
            }
        }
    }
    ~RefusedCalls() { restore(); }
    RefusedCalls(const RefusedCalls&) = delete;
    RefusedCalls& operator=(const RefusedCalls&) = delete;

  private:
    static sqlite3_vfs* system() { return sqlite3_vfs_find(nullptr); }
    static void restore() {
        for (const auto& [name, own] : own_) {
            system()->xSetSystemCall(system(), name.c_str(), own);
        }
        own_.clear();
    }
    /// In place of any of them: no value that it is given is looked at.
    static long refuse() {
        if (times_ == Times::once) {
            restore();
        }
        errno = error_;
        return -1;
    }

    static inline int error_ = 0;
    static inline Times times_ = Times::always;
    static inline std::map<std::string, sqlite3_syscall_ptr> own_;
};

}  // namespace velmora::test
