#include "support/story_database.h"

#include <charconv>
#include <iostream>
#include <vector>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/database.h"
#include "velmora/adapters/sqlite/database.h"

#include "adapters/odbc/server_under_test.h"

namespace velmora::support {

StoryDatabase::StoryDatabase(Where where) {
    if (where == Where::file) {
        folder_.emplace(TemporaryFolder::inMemory());
        return;
    }
    server_ = odbc::readConnectionText(test::testServer().value());
    test::dropAllTables(server_);
}

std::unique_ptr<sql::Connection> StoryDatabase::open(std::chrono::milliseconds patience) const {
    if (const auto path = file()) {
        return sqlite::openDatabase(*path, {.busyTimeout = patience});
    }
    return odbc::openDatabase(server_, {.lockTimeout = patience});
}

std::optional<std::string> StoryDatabase::file() const {
    return folder_ ? std::optional(folder_->file("taller.db")) : std::nullopt;
}

std::optional<StoryArguments> readStoryArguments(int argc, const char* const* argv) {
    const std::vector<std::string_view> words(argv + 1, argv + argc);
    if (words.empty()) {
        return std::nullopt;
    }
    StoryArguments arguments{.story = words.front()};
    for (const std::string_view word : words) {
        if (word == "--server") {
            arguments.where = StoryDatabase::Where::server;
        } else {
            std::from_chars(word.data(), word.data() + word.size(), arguments.turns);
        }
    }
    return arguments;
}

bool canPlay(const StoryArguments& arguments) {
    if (arguments.where == StoryDatabase::Where::file || test::testServer()) {
        return true;
    }
    std::cout << "VELMORA_TEST_DSN names no server\n";
    return false;
}

}  // namespace velmora::support
