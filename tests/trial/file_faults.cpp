// Loaded before a program (LD_PRELOAD): counts what the program does to the files of one folder, and kills it at one
// operation, or refuses that one or all from there on. Told by the environment:
//
//   TRIAL_FOLDER    the folder; other files are left alone
//   TRIAL_FAULT     count | kill-before | kill-behind | kill-torn | refuse | refuse-from
//   TRIAL_AT        which operation, from 0
//   TRIAL_ERROR     the number of the system's error of a refusal
//   TRIAL_MARK      counting begins when the program has written this text to the standard output; none: at once
//   TRIAL_UNTIL     nothing is refused any more when it has written this text
//   TRIAL_LOG       a file to which each operation is added: number, kind, name; and at the text "descriptors" on the
//                   standard output how many descriptors are open

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

/// What an operation does. The disk is full for those that need room, read-only for all that change something.
enum class Kind {
    openForReading,
    openForWriting,
    read,
    write,
    sync,
    truncate,
    allocate,
    rename,
    unlink,
    makeFolder,
    map,
    look
};

constexpr std::array kindNames{"open-read", "open-write", "read",   "write", "sync", "truncate",
                               "allocate",  "rename",     "unlink", "mkdir", "map",  "look"};

enum class Fault { none, count, killBefore, killBehind, killTorn, refuse, refuseFrom };

constexpr std::array<std::pair<std::string_view, Fault>, 6> faultNames{{{"count", Fault::count},
                                                                        {"kill-before", Fault::killBefore},
                                                                        {"kill-behind", Fault::killBehind},
                                                                        {"kill-torn", Fault::killTorn},
                                                                        {"refuse", Fault::refuse},
                                                                        {"refuse-from", Fault::refuseFrom}}};

template <typename Function>
Function* next(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

/// The function of this name behind this library.
#define NEXT(name) static const auto real_##name = next<decltype(name)>(#name)

constexpr int mostDescriptors = 4096;

std::string_view textOf(const char* variable) {
    const char* value = std::getenv(variable);
    return value ? value : "";
}

class Trial {
  public:
    Trial() : folder_(textOf("TRIAL_FOLDER")), mark_(textOf("TRIAL_MARK")), until_(textOf("TRIAL_UNTIL")) {
        for (const auto& [name, fault] : faultNames) {
            if (name == textOf("TRIAL_FAULT")) {
                fault_ = fault;
            }
        }
        at_ = std::atol(textOf("TRIAL_AT").data());
        error_ = std::atoi(textOf("TRIAL_ERROR").data());
        begun_ = mark_.empty();
        NEXT(open);
        if (const std::string_view log = textOf("TRIAL_LOG"); !log.empty()) {
            log_ = real_open(log.data(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
        }
    }

    bool isOurs(const char* path) const {
        if (folder_.empty() || path == nullptr) {
            return false;
        }
        const std::string_view name(path);
        if (name.starts_with('/')) {
            return name.starts_with(folder_) && (name.size() == folder_.size() || name[folder_.size()] == '/');
        }
        std::array<char, PATH_MAX> here{};
        return ::getcwd(here.data(), here.size()) && isOurs(here.data());
    }
    bool isOurs(int descriptor) const {
        return descriptor >= 0 && descriptor < mostDescriptors && ours_[static_cast<std::size_t>(descriptor)];
    }
    void opened(int descriptor, bool ours) {
        if (descriptor >= 0 && descriptor < mostDescriptors) {
            ours_[static_cast<std::size_t>(descriptor)] = ours;
        }
    }

    /// What the program has said.
    void said(const void* text, std::size_t length) {
        const std::string_view words(static_cast<const char*>(text), length);
        if (!begun_ && words.find(mark_) != std::string_view::npos) {
            begun_ = true;
        }
        if (!until_.empty() && words.find(until_) != std::string_view::npos) {
            over_ = true;
        }
        if (words.find("descriptors") != std::string_view::npos) {
            countDescriptors();
        }
    }

    /// One operation: `run` does it, `torn` a part of it.
    template <typename Result, typename Run, typename Torn>
    Result operation(Kind kind, const char* name, Result failed, const Run& run, const Torn& torn) {
        if (!begun_ || fault_ == Fault::none) {
            return run();
        }
        const long number = count_++;
        note(number, kind, name);
        if (over_ || number < at_ || (number > at_ && fault_ != Fault::refuseFrom)) {
            return run();
        }
        switch (fault_) {
            case Fault::none:
            case Fault::count:
                return run();
            case Fault::killBefore:
                die();
            case Fault::killTorn:
                torn();
                die();
            case Fault::killBehind:
                run();
                die();
            case Fault::refuse:
            case Fault::refuseFrom:
                if (!hits(kind)) {
                    return run();
                }
                errno = error_;
                return failed;
        }
        return run();
    }
    template <typename Result, typename Run>
    Result operation(Kind kind, const char* name, Result failed, const Run& run) {
        return operation(kind, name, failed, run, [] {});
    }
    int error() const { return error_; }

  private:
    /// Whether an operation of this kind can end with the error that is refused with.
    bool hits(Kind kind) const {
        switch (error_) {
            case ENOSPC:
            case EDQUOT:
                return kind == Kind::openForWriting || kind == Kind::write || kind == Kind::allocate ||
                       kind == Kind::makeFolder;
            case EROFS:
                return kind != Kind::read && kind != Kind::look && kind != Kind::openForReading && kind != Kind::map &&
                       kind != Kind::sync;
            case ESTALE:
                return kind == Kind::look;
            case EACCES:
            case EPERM:
                return kind == Kind::openForReading || kind == Kind::openForWriting || kind == Kind::rename ||
                       kind == Kind::unlink || kind == Kind::makeFolder;
            default:
                return true;
        }
    }
    [[noreturn]] static void die() {
        ::kill(::getpid(), SIGKILL);
        for (;;) {
            ::pause();
        }
    }
    void note(long number, Kind kind, const char* name) const {
        if (log_ >= 0) {
            ::dprintf(log_, "%ld %s %s\n", number, kindNames[static_cast<std::size_t>(kind)], name ? name : "");
        }
    }
    void countDescriptors() const {
        if (log_ < 0) {
            return;
        }
        int open = 0;
        for (int descriptor = 0; descriptor < mostDescriptors; ++descriptor) {
            open += ::fcntl(descriptor, F_GETFD) != -1 ? 1 : 0;
        }
        ::dprintf(log_, "descriptors %d\n", open);
    }

    std::string_view folder_;
    std::string_view mark_;
    std::string_view until_;
    Fault fault_ = Fault::none;
    long at_ = LONG_MAX;
    int error_ = 0;
    int log_ = -1;
    std::atomic<bool> begun_ = false;
    std::atomic<bool> over_ = false;
    std::atomic<long> count_ = 0;
    std::array<std::atomic<bool>, mostDescriptors> ours_{};
};

Trial& trial() {
    static Trial* const only = new Trial;  // other libraries still write when the program has ended
    return *only;
}

/// The name of an open file, for the log alone.
struct NameOf {
    explicit NameOf(int descriptor) {
        std::array<char, 32> link{};
        std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", descriptor);
        const ssize_t length = ::readlink(link.data(), text.data(), text.size() - 1);
        text[length > 0 ? static_cast<std::size_t>(length) : 0] = '\0';
    }
    std::array<char, PATH_MAX> text{};
};

template <typename Result, typename Run, typename Torn>
Result onDescriptor(Kind kind, int descriptor, Result failed, const Run& run, const Torn& torn) {
    return trial().isOurs(descriptor) ? trial().operation(kind, NameOf(descriptor).text.data(), failed, run, torn)
                                      : run();
}
template <typename Result, typename Run>
Result onDescriptor(Kind kind, int descriptor, Result failed, const Run& run) {
    return onDescriptor(kind, descriptor, failed, run, [] {});
}
template <typename Result, typename Run>
Result onPath(Kind kind, const char* path, Result failed, const Run& run) {
    return trial().isOurs(path) ? trial().operation(kind, path, failed, run) : run();
}

template <typename Run>
int opening(const char* path, int flags, const Run& run) {
    const bool ours = trial().isOurs(path);
    const Kind kind = (flags & O_ACCMODE) == O_RDONLY ? Kind::openForReading : Kind::openForWriting;
    const int descriptor = ours ? trial().operation(kind, path, -1, run) : run();
    trial().opened(descriptor, ours);
    return descriptor;
}

template <typename Run>
FILE* openingStream(const char* path, const char* mode, const Run& run) {
    const bool ours = trial().isOurs(path);
    const Kind kind = std::strpbrk(mode, "wa+") ? Kind::openForWriting : Kind::openForReading;
    FILE* const stream = ours ? trial().operation(kind, path, static_cast<FILE*>(nullptr), run) : run();
    if (stream) {
        trial().opened(::fileno(stream), ours);
    }
    return stream;
}

mode_t modeOf(int flags, std::va_list values) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? static_cast<mode_t>(va_arg(values, unsigned)) : 0;
}

}  // namespace

// The names of the system's library are as it has them.
#pragma GCC visibility push(default)
extern "C" {

#define OPENING(name)                                                                \
    int name(const char* path, int flags, ...) {                                     \
        NEXT(name);                                                                  \
        std::va_list values;                                                         \
        va_start(values, flags);                                                     \
        const mode_t mode = modeOf(flags, values);                                   \
        va_end(values);                                                              \
        return opening(path, flags, [&] { return real_##name(path, flags, mode); }); \
    }
OPENING(open)
OPENING(open64)
#undef OPENING

#define OPENING_AT(name)                                                                     \
    int name(int folder, const char* path, int flags, ...) {                                 \
        NEXT(name);                                                                          \
        std::va_list values;                                                                 \
        va_start(values, flags);                                                             \
        const mode_t mode = modeOf(flags, values);                                           \
        va_end(values);                                                                      \
        return opening(path, flags, [&] { return real_##name(folder, path, flags, mode); }); \
    }
OPENING_AT(openat)
OPENING_AT(openat64)
#undef OPENING_AT

#define OPENING_STREAM(name)                                                       \
    FILE* name(const char* path, const char* mode) {                               \
        NEXT(name);                                                                \
        return openingStream(path, mode, [&] { return real_##name(path, mode); }); \
    }
OPENING_STREAM(fopen)
OPENING_STREAM(fopen64)
#undef OPENING_STREAM

int close(int descriptor) {
    NEXT(close);
    trial().opened(descriptor, false);
    return real_close(descriptor);
}

ssize_t read(int descriptor, void* buffer, size_t length) {
    NEXT(read);
    return onDescriptor(Kind::read, descriptor, ssize_t{-1}, [&] { return real_read(descriptor, buffer, length); });
}

#define READING_AT(name, Offset)                                                              \
    ssize_t name(int descriptor, void* buffer, size_t length, Offset offset) {                \
        NEXT(name);                                                                           \
        return onDescriptor(Kind::read, descriptor, ssize_t{-1},                              \
                            [&] { return real_##name(descriptor, buffer, length, offset); }); \
    }
READING_AT(pread, off_t)
READING_AT(pread64, off64_t)
#undef READING_AT

ssize_t write(int descriptor, const void* buffer, size_t length) {
    NEXT(write);
    const ssize_t written = onDescriptor(
        Kind::write, descriptor, ssize_t{-1}, [&] { return real_write(descriptor, buffer, length); },
        [&] { return real_write(descriptor, buffer, length / 2); });
    if (descriptor == STDOUT_FILENO) {
        trial().said(buffer, length);
    }
    return written;
}

#define WRITING_AT(name, Offset)                                                                                   \
    ssize_t name(int descriptor, const void* buffer, size_t length, Offset offset) {                               \
        NEXT(name);                                                                                                \
        return onDescriptor(                                                                                       \
            Kind::write, descriptor, ssize_t{-1}, [&] { return real_##name(descriptor, buffer, length, offset); }, \
            [&] { return real_##name(descriptor, buffer, length / 2, offset); });                                  \
    }
WRITING_AT(pwrite, off_t)
WRITING_AT(pwrite64, off64_t)
#undef WRITING_AT

/// Standard streams that are synchronised with the C library's write here, and that library writes by itself.
size_t fwrite(const void* buffer, size_t size, size_t count, FILE* stream) {
    NEXT(fwrite);
    const size_t written = real_fwrite(buffer, size, count, stream);
    if (stream == stdout) {
        trial().said(buffer, size * count);
    }
    return written;
}

ssize_t writev(int descriptor, const iovec* parts, int count) {
    NEXT(writev);
    const ssize_t written =
        onDescriptor(Kind::write, descriptor, ssize_t{-1}, [&] { return real_writev(descriptor, parts, count); });
    if (descriptor == STDOUT_FILENO) {
        for (int i = 0; i < count; ++i) {
            trial().said(parts[i].iov_base, parts[i].iov_len);
        }
    }
    return written;
}

#define ON_DESCRIPTOR(name, kind)                                                           \
    int name(int descriptor) {                                                              \
        NEXT(name);                                                                         \
        return onDescriptor(kind, descriptor, -1, [&] { return real_##name(descriptor); }); \
    }
ON_DESCRIPTOR(fsync, Kind::sync)
ON_DESCRIPTOR(fdatasync, Kind::sync)
#undef ON_DESCRIPTOR

#define TRUNCATING(name, Offset)                                                                              \
    int name(int descriptor, Offset length) {                                                                 \
        NEXT(name);                                                                                           \
        return onDescriptor(Kind::truncate, descriptor, -1, [&] { return real_##name(descriptor, length); }); \
    }
TRUNCATING(ftruncate, off_t)
TRUNCATING(ftruncate64, off64_t)
#undef TRUNCATING

#define ALLOCATING(name, Offset)                                                      \
    int name(int descriptor, Offset offset, Offset length) {                          \
        NEXT(name);                                                                   \
        return onDescriptor(Kind::allocate, descriptor, trial().error(),              \
                            [&] { return real_##name(descriptor, offset, length); }); \
    }
ALLOCATING(posix_fallocate, off_t)
ALLOCATING(posix_fallocate64, off64_t)
#undef ALLOCATING

int rename(const char* from, const char* to) {
    NEXT(rename);
    return onPath(Kind::rename, to, -1, [&] { return real_rename(from, to); });
}

int link(const char* from, const char* to) {
    NEXT(link);
    return onPath(Kind::rename, to, -1, [&] { return real_link(from, to); });
}

#define ON_PATH(name, kind)                                               \
    int name(const char* path) {                                          \
        NEXT(name);                                                       \
        return onPath(kind, path, -1, [&] { return real_##name(path); }); \
    }
ON_PATH(unlink, Kind::unlink)
ON_PATH(rmdir, Kind::unlink)
ON_PATH(remove, Kind::unlink)
#undef ON_PATH

int mkdir(const char* path, mode_t mode) {
    NEXT(mkdir);
    return onPath(Kind::makeFolder, path, -1, [&] { return real_mkdir(path, mode); });
}

#define MAPPING(name, Offset)                                                                                     \
    void* name(void* address, size_t length, int protection, int flags, int descriptor, Offset offset) {          \
        NEXT(name);                                                                                               \
        return onDescriptor(Kind::map, descriptor, MAP_FAILED,                                                    \
                            [&] { return real_##name(address, length, protection, flags, descriptor, offset); }); \
    }
MAPPING(mmap, off_t)
MAPPING(mmap64, off64_t)
#undef MAPPING

#define LOOKING(name, Stat)                                                            \
    int name(const char* path, struct Stat* found) {                                   \
        NEXT(name);                                                                    \
        return onPath(Kind::look, path, -1, [&] { return real_##name(path, found); }); \
    }
LOOKING(stat, stat)
LOOKING(stat64, stat64)
LOOKING(lstat, stat)
LOOKING(lstat64, stat64)
#undef LOOKING

#define LOOKING_AT(name, Stat)                                                                           \
    int name(int descriptor, struct Stat* found) {                                                       \
        NEXT(name);                                                                                      \
        return onDescriptor(Kind::look, descriptor, -1, [&] { return real_##name(descriptor, found); }); \
    }
LOOKING_AT(fstat, stat)
LOOKING_AT(fstat64, stat64)
#undef LOOKING_AT

int access(const char* path, int mode) {
    NEXT(access);
    return onPath(Kind::look, path, -1, [&] { return real_access(path, mode); });
}

}  // extern "C"
#pragma GCC visibility pop
