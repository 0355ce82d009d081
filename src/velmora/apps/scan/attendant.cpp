#include "velmora/apps/scan/attendant.h"

#include <array>
#include <cstdlib>
#include <utility>

#include <poll.h>
#include <unistd.h>

namespace velmora::scan {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds pollInterval{40};

/// Waits briefly for the end of the standard input. Any input before it is ignored.
bool inputHasEnded() {
    pollfd input{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
    if (::poll(&input, 1, static_cast<int>(pollInterval.count())) <= 0) {
        return false;
    }
    std::array<char, 256> ignored{};
    return ::read(STDIN_FILENO, ignored.data(), ignored.size()) <= 0;
}

}  // namespace

Attendant::Attendant(scanner::Watch& watch, std::function<void(std::optional<double>)> tell,
                     std::chrono::milliseconds grace)
    : watch_(watch), tell_(std::move(tell)), grace_(grace), thread_([this] { attend(); }) {}

Attendant::~Attendant() {
    done_ = true;
    thread_.join();
}

void Attendant::attend() {
    while (!done_) {
        if (inputHasEnded()) {
            watch_.cancel();
            endWithTheWork();
            return;
        }
        tellAdvance();
    }
}

void Attendant::tellAdvance() {
    if (const std::size_t beats = watch_.beats(); beats != told_) {
        told_ = beats;
        tell_(watch_.fraction());
    }
}

void Attendant::endWithTheWork() {
    const Clock::time_point end = Clock::now() + grace_;
    while (!done_) {
        if (Clock::now() > end) {
            std::_Exit(EXIT_FAILURE);
        }
        std::this_thread::sleep_for(pollInterval);
    }
}

}  // namespace velmora::scan
