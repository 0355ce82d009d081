#include "velmora/adapters/scanner/background_work.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>

#include "velmora/platform/runtime/errors.h"

namespace velmora::scanner {

namespace {

using Clock = std::chrono::steady_clock;

constexpr long deviceUnavailable = 68;
constexpr std::chrono::milliseconds pollInterval{40};

/// Shared by both threads; freed by the one that ends last.
struct Shared {
    Watch watch;
    std::mutex mutex;
    std::condition_variable changed;
    bool ended = false;
    std::exception_ptr error;

    void end(std::exception_ptr failure) {
        const std::lock_guard lock(mutex);
        error = std::move(failure);
        ended = true;
        changed.notify_all();
    }
    bool waitForEnd() {
        std::unique_lock lock(mutex);
        return changed.wait_for(lock, pollInterval, [this] { return ended; });
    }
};

[[noreturn]] void noAnswer() {
    throw runtime::RuntimeError(deviceUnavailable, "El escáner no responde.");
}

}  // namespace

void runInBackground(std::function<void(Watch&)> work, screen::Progress& progress, const std::string& text,
                     const Patience& patience) {
    const auto shared = std::make_shared<Shared>();
    std::thread thread([shared, work = std::move(work)] {
        try {
            work(shared->watch);
            shared->end(nullptr);
        } catch (...) {
            shared->end(std::current_exception());
        }
    });
    bool silent = false;
    std::size_t beats = 0;
    Clock::time_point lastBeat = Clock::now();
    std::optional<Clock::time_point> cancelledAt;
    const auto cancel = [&] {
        shared->watch.cancel();
        cancelledAt = Clock::now();
    };
    while (!shared->waitForEnd()) {
        progress.show(text, shared->watch.fraction());
        const Clock::time_point now = Clock::now();
        if (const std::size_t heard = shared->watch.beats(); heard != beats) {
            beats = heard;
            lastBeat = now;
        }
        if (cancelledAt) {
            if (now - *cancelledAt > patience.grace) {
                thread.detach();
                if (silent) {
                    noAnswer();
                }
                return;
            }
        } else if (progress.cancelled()) {
            cancel();
        } else if (now - lastBeat > patience.silence) {
            silent = true;
            cancel();
        }
    }
    thread.join();
    if (silent) {
        noAnswer();
    }
    if (shared->error) {
        std::rethrow_exception(shared->error);
    }
}

}  // namespace velmora::scanner
