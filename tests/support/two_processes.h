#pragma once
// Processes that work on one database file at the same moment, and what each of them tells afterwards. Used by test
// programs with a main of their own: a test that forks must not do so inside a test framework.

#include <atomic>
#include <chrono>
#include <exception>
#include <functional>
#include <iostream>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora::support {

/// A value in memory that all processes share. Made before they are started; atomic unless they take turns at it.
template <typename Value>
class Shared {
  public:
    Shared() {
        void* const memory = ::mmap(nullptr, sizeof(Value), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) {
            throw std::runtime_error("no memory to share");
        }
        value_ = new (memory) Value();
    }
    ~Shared() { ::munmap(value_, sizeof(Value)); }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;

    Value& operator*() { return *value_; }

  private:
    Value* value_;
};

/// Where the processes meet before each turn, so that they act at the same moment. Made before they are started.
class Meeting {
  public:
    explicit Meeting(int parties) : parties_(parties) {}

    /// Returns when all parties have come to this turn, or at once when one of them has left for good.
    void meet() {
        using std::chrono::steady_clock;
        ++turn_;
        ++*arrived_;
        // The last one to come finds the others awake, unless it keeps them waiting for long.
        const auto awake = steady_clock::now() + std::chrono::milliseconds(2);
        while (*arrived_ < parties_ * turn_ && !*oneIsGone_) {
            if (steady_clock::now() < awake) {
                std::this_thread::yield();
            } else {
                std::this_thread::sleep_for(std::chrono::microseconds(100));
            }
        }
    }
    void leave() { *oneIsGone_ = true; }

  private:
    const int parties_;
    int turn_ = 0;  ///< of this process
    Shared<std::atomic<int>> arrived_;
    Shared<std::atomic<bool>> oneIsGone_;
};

/// Runs each client in a process of its own, until all have ended. Gives what each returned, in their order; none for
/// one that ended otherwise, whose exception is told on the standard error.
template <typename Told>
std::vector<std::optional<Told>> runTogether(Meeting& meeting, const std::vector<std::function<Told()>>& clients) {
    static_assert(std::is_trivially_copyable_v<Told>, "it goes from one process to another");
    struct Process {
        pid_t id;
        int end;
    };
    std::cout.flush();
    std::vector<Process> processes;
    for (const auto& client : clients) {
        int ends[2];
        if (::pipe(ends) != 0) {
            throw std::runtime_error("no pipe");
        }
        const pid_t id = ::fork();
        if (id == 0) {
            int status = 1;
            try {
                const Told told = client();
                status = ::write(ends[1], &told, sizeof told) == sizeof told ? 0 : 1;
            } catch (const std::exception& error) {
                std::cerr << "client: " << error.what() << std::endl;
            }
            meeting.leave();
            std::cout.flush();
            ::_exit(status);
        }
        ::close(ends[1]);
        processes.push_back({id, ends[0]});
    }
    std::vector<std::optional<Told>> all;
    for (const Process& process : processes) {
        Told told;
        const bool whole = ::read(process.end, &told, sizeof told) == sizeof told;
        ::close(process.end);
        int status = 0;
        ::waitpid(process.id, &status, 0);
        all.push_back(whole && status == 0 ? std::optional<Told>(told) : std::nullopt);
    }
    return all;
}

}  // namespace velmora::support
