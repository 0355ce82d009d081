#include "foreign_saves.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string_view>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "velmora/adapters/sqlite/database.h"

extern char** environ;

namespace velmora::test {

namespace {

constexpr std::string_view asSaver = "--foreign-saves";
constexpr int arguments = 7;  // program, asSaver, database, statement, keys, saves, pause

/// Neighbouring saves change rows far from each other.
constexpr std::int64_t stride = 7919;

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point begun) {
    return std::chrono::duration<double>(Clock::now() - begun).count();
}

std::int64_t numberOf(std::string_view digits) {
    std::int64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

ForeignSaves::Result save(const SavesAsked& asked) {
    const auto connection = sqlite::openDatabase(asked.database);
    ForeignSaves::Result result;
    const auto begun = Clock::now();
    for (std::int64_t i = 0; i < asked.saves; ++i) {
        const auto saveBegun = Clock::now();
        sql::Transaction transaction(*connection);
        connection->execute(asked.statement + std::to_string(i * stride % asked.keys + 1));
        transaction.commit();
        result.longestSave = std::max(result.longestSave, secondsSince(saveBegun));
        result.largestWriteAhead =
            std::max(result.largestWriteAhead, std::filesystem::file_size(asked.database + "-wal"));
        std::this_thread::sleep_for(asked.pause);
    }
    result.seconds = secondsSince(begun);
    return result;
}

}  // namespace

ForeignSaves::ForeignSaves(const std::string& program, const SavesAsked& asked) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe to the other process");
    }
    results_ = ends[0];
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    std::string words[arguments] = {program,
                                    std::string(asSaver),
                                    asked.database,
                                    asked.statement,
                                    std::to_string(asked.keys),
                                    std::to_string(asked.saves),
                                    std::to_string(asked.pause.count())};
    char* argv[arguments + 1] = {};
    std::ranges::transform(words, argv, [](std::string& word) { return word.data(); });
    const int failed = ::posix_spawn(&process_, program.c_str(), &actions, nullptr, argv, environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    if (failed != 0) {
        ::close(results_);
        throw std::runtime_error("the other process cannot be started");
    }
}

ForeignSaves::~ForeignSaves() {
    if (process_ > 0) {
        ::waitpid(process_, nullptr, 0);
    }
    ::close(results_);
}

bool ForeignSaves::ended() const {
    pollfd result{.fd = results_, .events = POLLIN, .revents = 0};
    return ::poll(&result, 1, 0) > 0;
}

ForeignSaves::Result ForeignSaves::wait() {
    Result result;
    const bool told = ::read(results_, &result, sizeof result) == static_cast<ssize_t>(sizeof result);
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    if (!told || status != 0) {
        throw std::runtime_error("a save of the other process failed");
    }
    return result;
}

std::optional<int> runForeignSaves(int argc, char** argv) {
    if (argc != arguments || std::string_view(argv[1]) != asSaver) {
        return std::nullopt;
    }
    try {
        const ForeignSaves::Result result = save({.database = argv[2],
                                                  .statement = argv[3],
                                                  .keys = numberOf(argv[4]),
                                                  .saves = numberOf(argv[5]),
                                                  .pause = std::chrono::microseconds(numberOf(argv[6]))});
        return ::write(STDOUT_FILENO, &result, sizeof result) == static_cast<ssize_t>(sizeof result) ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}

}  // namespace velmora::test
