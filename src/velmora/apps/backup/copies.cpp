#include "velmora/apps/backup/copies.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <system_error>
#include <utility>

#include "velmora/adapters/sqlite/backup.h"
#include "velmora/adapters/sqlite/file_content.h"
#include "velmora/apps/workshop_file/database_files.h"
#include "velmora/apps/workshop_file/folder_lock.h"
#include "velmora/apps/workshop_file/restoring.h"
#include "velmora/platform/sql/db_error.h"
#include "velmora/platform/system/failure_words.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::backup {

namespace fs = std::filesystem;
using workshop_file::documentsOf;
using workshop_file::filesOf;
using workshop_file::removeFilesOf;
using workshop_file::settingsOf;

namespace {

constexpr const char* folderName = "copias";
constexpr std::string_view ending = ".db";
/// "2026-11-22 143000"
constexpr std::array<std::pair<std::size_t, std::size_t>, 6> partsOfMoment{
    {{0, 4}, {5, 2}, {8, 2}, {11, 2}, {13, 2}, {15, 2}}};
constexpr std::size_t lengthOfMoment = 17;

std::string digits(int value, std::size_t width) {
    std::string text = std::to_string(value);
    return std::string(width - std::min(width, text.size()), '0') + text;
}

std::string textOf(runtime::Date moment) {
    const std::chrono::sys_days day = std::chrono::floor<std::chrono::days>(moment.at);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(moment.at - day);
    return digits(static_cast<int>(date.year()), 4) + "-" + digits(static_cast<int>(unsigned{date.month()}), 2) + "-" +
           digits(static_cast<int>(unsigned{date.day()}), 2) + " " + digits(static_cast<int>(time.hours().count()), 2) +
           digits(static_cast<int>(time.minutes().count()), 2) + digits(static_cast<int>(time.seconds().count()), 2);
}

std::optional<runtime::Date> momentOf(std::string_view text) {
    std::array<int, 6> values{};
    if (text.size() != lengthOfMoment) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
        const auto [first, length] = partsOfMoment[i];
        const std::string_view part = text.substr(first, length);
        const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), values[i]);
        if (error != std::errc() || end != part.data() + part.size()) {
            return std::nullopt;
        }
    }
    const auto date = runtime::Date::of(values[0], static_cast<unsigned>(values[1]), static_cast<unsigned>(values[2]),
                                        values[3], values[4], values[5]);
    return textOf(date) == text ? std::optional(date) : std::nullopt;
}

/// Runs a step on files; its errors as Failed with these words in front.
template <typename Work>
auto told(const char* words, const Work& work) {
    try {
        return work();
    } catch (const sql::DbError& error) {
        throw Failed(std::string(words) + "\n" + error.description());
    } catch (const std::system_error& error) {
        throw Failed(std::string(words) + "\n" + system::failureWords(error.code()));
    }
}

void mustBeSound(const fs::path& file) {
    const std::string damage = sqlite::damageOf(system::fileText(file));
    if (!damage.empty()) {
        throw Failed(damage);
    }
}

void copyIfThere(const fs::path& from, const fs::path& to) {
    if (fs::exists(from)) {
        fs::copy_file(from, to);
    }
}

/// A copy under a name that no list shows, until it is complete.
class Unfinished {
  public:
    explicit Unfinished(const fs::path& target)
        : target_(target), file_(target.parent_path() / system::filePath(".sin-terminar" + std::string(ending))) {
        removeFilesOf(file_);
    }
    ~Unfinished() { removeFilesOf(file_); }
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;

    const fs::path& file() const { return file_; }
    /// Moves the files into place, the database last: with it the copy is complete.
    void move() const {
        const auto from = filesOf(file_);
        const auto to = filesOf(target_);
        for (std::size_t i = 0; i < from.size(); ++i) {
            if (fs::exists(from[i])) {
                workshop_file::syncFile(from[i]);
                fs::rename(from[i], to[i]);
            }
        }
    }

  private:
    fs::path target_;
    fs::path file_;
};

}  // namespace

Copies::Copies(const std::string& database, const system::Clock& clock)
    : database_(fs::absolute(system::filePath(sqlite::realFile(database)))),
      folder_(database_.parent_path() / folderName),
      clock_(clock) {}

fs::path Copies::copyAt(runtime::Date moment) const {
    return folder_ / system::filePath(system::fileText(database_.stem()) + " " + textOf(moment) + std::string(ending));
}

/// Now, or the first second after it that has no copy yet.
runtime::Date Copies::freeMoment() const {
    runtime::Date moment = clock_.now();
    while (fs::exists(copyAt(moment))) {
        moment.at += std::chrono::seconds(1);
    }
    return moment;
}

std::vector<Copy> Copies::all() const {
    std::vector<Copy> found;
    const std::string start = system::fileText(database_.stem()) + " ";
    std::error_code failure;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder_, failure)) {
        const std::string name = system::fileText(entry.path().filename());
        if (!name.starts_with(start) || !name.ends_with(ending)) {
            continue;
        }
        const auto moment =
            momentOf(std::string_view(name).substr(start.size(), name.size() - start.size() - ending.size()));
        if (moment && fs::exists(documentsOf(entry.path()), failure)) {
            found.push_back({.file = entry.path(), .taken = *moment});
        }
    }
    std::ranges::sort(found, std::greater<>{}, [](const Copy& copy) { return copy.taken.at; });
    return found;
}

void Copies::makeAt(const fs::path& file) const {
    fs::create_directories(folder_);
    const workshop_file::FolderLock lock(folder_);
    const Unfinished copy(file);
    sqlite::copyDatabase(system::fileText(database_), system::fileText(copy.file()));
    mustBeSound(copy.file());
    copyIfThere(settingsOf(database_), settingsOf(copy.file()));
    copy.move();
    lock.sync();
}

Copy Copies::make() {
    const runtime::Date now = freeMoment();
    told("No se pudo hacer la copia de seguridad.", [&] { makeAt(copyAt(now)); });
    keepLast();
    return {.file = copyAt(now), .taken = now};
}

void Copies::keepLast() const {
    const std::vector<Copy> copies = all();
    for (std::size_t i = mostCopies; i < copies.size(); ++i) {
        removeFilesOf(copies[i].file);
    }
}

void Copies::makeDaily() {
    const std::vector<Copy> copies = all();
    const auto today = std::chrono::floor<std::chrono::days>(clock_.now().at);
    if (copies.empty() || std::chrono::floor<std::chrono::days>(copies.front().taken.at) < today) {
        make();
    }
}

bool Copies::isOverdue() const {
    const std::vector<Copy> copies = all();
    return !copies.empty() && clock_.now().at - copies.front().taken.at > longestWithoutCopy;
}

// Chosen C-560: a database that cannot be read is put aside file by file before a copy takes its place: the disk may
// have failed for a moment only. What cannot be read at all is not waited for, or no copy could ever be put back.
void Copies::keepDamaged() const {
    for (const fs::path& file : {database_, documentsOf(database_)}) {
        for (const char* ofEngine : {"", "-wal", "-journal"}) {
            const std::string name = system::fileText(file.filename()) + ofEngine;
            std::error_code ignored;
            fs::copy_file(file.parent_path() / system::filePath(name), folder_ / system::filePath("dañada " + name),
                          fs::copy_options::overwrite_existing, ignored);
        }
    }
}

/// A copy of an earlier version has no settings: then those of the workshop stay.
void Copies::prepare(const fs::path& copy) const {
    const fs::path prepared = workshop_file::preparedFor(database_);
    removeFilesOf(prepared);
    try {
        fs::copy_file(documentsOf(copy), documentsOf(prepared));
        copyIfThere(settingsOf(copy), settingsOf(prepared));
        fs::copy_file(copy, prepared);
    } catch (const std::system_error&) {
        removeFilesOf(prepared);
        throw;
    }
}

void Copies::restore(const Copy& copy) {
    told("No se puede restaurar la copia.", [&] {
        mustBeSound(copy.file);
        sqlite::mustBeClosed(system::fileText(database_));
        if (sqlite::damageOf(system::fileText(database_)).empty()) {
            makeAt(copyAt(freeMoment()));
        } else {
            keepDamaged();
        }
        {
            const workshop_file::FolderLock lock(database_.parent_path());
            prepare(copy.file);
            workshop_file::decideRestore(database_);
        }
        workshop_file::finishRestore(database_);
    });
}

}  // namespace velmora::backup
