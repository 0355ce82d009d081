#include "velmora/adapters/sqlite/file_content.h"

#include <algorithm>
#include <filesystem>

#include "velmora/adapters/sqlite/emitters/quoting.h"
#include "velmora/adapters/sqlite/link.h"
#include "velmora/adapters/tsql/tokenizer.h"
#include "velmora/platform/sql/db_error.h"
#include "velmora/platform/system/failure_words.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::sqlite {

namespace {

namespace fs = std::filesystem;

/// A file that cannot be looked at is not taken for a missing one: in its place a new database would be made.
/// Errors: DbError with the system's words for a file that cannot be looked at.
fs::file_status statusOf(const fs::path& file) {
    std::error_code failure;
    const fs::file_status status = fs::status(file, failure);
    if (!fs::status_known(status)) {
        throw sql::DbError(sql::provider::failure, system::failureWords(failure), {.sqlState = "08001"});
    }
    return status;
}

bool isThere(const fs::path& file) {
    return fs::exists(statusOf(file));
}

/// False for a file without a byte in it, and for none.
bool hasContent(const std::string& path) {
    const fs::path file = system::filePath(path);
    const fs::file_status status = statusOf(file);
    if (!fs::exists(status)) {
        return false;
    }
    if (!fs::is_regular_file(status)) {
        throw sql::DbError(sql::provider::failure, "No es un fichero.", {.sqlState = "08001"});
    }
    std::error_code failure;
    return fs::file_size(file, failure) > 0;
}

bool holds(const std::vector<std::string>& names, std::string_view name) {
    return std::ranges::any_of(
        names, [folded = tsql::foldName(name)](const std::string& each) { return tsql::foldName(each) == folded; });
}

std::int32_t markOf(Link& link) {
    const auto mark = link.prepare("PRAGMA user_version");
    mark->step();
    return static_cast<std::int32_t>(mark->whole(0));
}

}  // namespace

bool FileContent::hasTable(std::string_view name) const {
    return holds(tables, name);
}

bool FileContent::hasIndex(std::string_view table, std::string_view name) const {
    return holds(indexes, engineIndexName(table, name));
}

std::string lookName(const std::string& path) {
    std::string name = "file:";
    for (const char letter : path) {
        const bool isSpecial = letter == '%' || letter == '?' || letter == '#';
        name += isSpecial ? (letter == '%' ? "%25" : letter == '?' ? "%3f" : "%23") : std::string(1, letter);
    }
    std::error_code failure;
    return name + (fs::exists(system::filePath(path + "-wal"), failure) ? "?mode=ro" : "?mode=ro&immutable=1");
}

FileContent contentOf(const std::string& path) {
    FileContent content{.exists = isThere(system::filePath(path))};
    if (!hasContent(path)) {
        return content;
    }
    Link link(lookName(path), Options{.readOnly = true});
    const auto names = link.prepare(
        "SELECT name, type = 'table' FROM sqlite_master WHERE type IN ('table', 'index') "
        "AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'");
    while (names->step()) {
        (names->whole(1) != 0 ? content.tables : content.indexes).push_back(names->value(0, tsql::Kind::text).toText());
    }
    content.mark = markOf(link);
    return content;
}

std::int64_t rowsOf(const std::string& path, const std::string& table) {
    if (!contentOf(path).hasTable(table)) {
        return 0;
    }
    Link link(lookName(path), Options{.readOnly = true});
    const auto count = link.prepare("SELECT count(*) FROM " + quotedName(table));
    count->step();
    return count->whole(0);
}

void setMark(const std::string& path, std::int32_t mark) {
    Link(path, {}).run("PRAGMA user_version = " + std::to_string(mark));
}

void makeOneFile(const std::string& path) {
    Link(path, {}).run("PRAGMA journal_mode = DELETE");
}

std::string realFile(const std::string& path) {
    constexpr int mostLinks = 40;
    fs::path file = system::filePath(path);
    std::error_code failure;
    for (int links = 0; links < mostLinks && fs::is_symlink(file, failure); ++links) {
        file = file.parent_path() / fs::read_symlink(file, failure);
    }
    return system::fileText(file);
}

// Chosen C-205: the documents' file lies beside the first one, with "DOC" in front of its name.
std::string documentsFileOf(const std::string& path) {
    const fs::path file = system::filePath(realFile(path));
    return system::fileText(file.parent_path() / system::filePath("DOC" + system::fileText(file.filename())));
}

}  // namespace velmora::sqlite
