#include "velmora/apps/desktop/drafts.h"

#include <fstream>
#include <iterator>
#include <random>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "velmora/adapters/sqlite/file_content.h"
#include "velmora/apps/workshop_file/folder_lock.h"
#include "velmora/platform/system/file_path.h"
#include "velmora/proposal/draft.h"

namespace velmora::desktop {

namespace fs = std::filesystem;

namespace {

constexpr const char* ofRunning = ".vivo";
constexpr const char* unfinished = ".nuevo";
constexpr const char* givenUp = "cerrado";

fs::path with(const fs::path& file, const char* ending) {
    fs::path result = file;
    result += ending;
    return result;
}

void removeQuietly(const fs::path& file) {
    std::error_code ignored;
    fs::remove(file, ignored);
}

std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

Drafts::Drafts(const std::string& database) : database_(fs::absolute(system::filePath(sqlite::realFile(database)))) {
    file_ = named(std::to_string(std::random_device()()));
    lock_ = ::open(with(file_, ofRunning).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (lock_ >= 0) {
        ::flock(lock_, LOCK_EX | LOCK_NB);
    }
}

Drafts::~Drafts() {
    giveUp();
    if (lock_ >= 0) {
        removeQuietly(with(file_, ofRunning));
        ::close(lock_);
    }
}

fs::path Drafts::named(const std::string& ending) const {
    return database_.parent_path() /
           system::filePath("." + system::fileText(database_.filename()) + ".borrador-" + ending);
}

void Drafts::keep(const std::optional<std::string>& draft) {
    if (draft == kept_ || lock_ < 0) {
        return;
    }
    kept_ = draft;
    if (!draft) {
        removeQuietly(file_);
        return;
    }
    const fs::path made = with(file_, unfinished);
    std::ofstream stream(made, std::ios::binary | std::ios::trunc);
    stream << *draft;
    stream.close();
    if (!stream) {
        removeQuietly(made);
        return;
    }
    try {
        workshop_file::syncFile(made);
        fs::rename(made, file_);
    } catch (const std::system_error&) {
        removeQuietly(made);
    }
}

void Drafts::giveUp() {
    if (kept_) {
        kept_.reset();
        std::error_code ignored;
        fs::rename(file_, named(givenUp), ignored);
    }
}

bool Drafts::isHeld(const fs::path& draft) const {
    const int opened = ::open(with(draft, ofRunning).c_str(), O_RDWR | O_CLOEXEC);
    if (opened < 0) {
        return false;
    }
    const bool free = ::flock(opened, LOCK_EX | LOCK_NB) == 0;
    ::close(opened);
    return !free;
}

std::vector<LeftDraft> Drafts::left() const {
    std::vector<LeftDraft> found;
    const std::string start = system::fileText(named("").filename());
    std::error_code failure;
    for (const fs::directory_entry& entry : fs::directory_iterator(database_.parent_path(), failure)) {
        const std::string name = system::fileText(entry.path().filename());
        if (!name.starts_with(start)) {
            continue;
        }
        const bool isRemains = name.ends_with(ofRunning) || name.ends_with(unfinished);
        const fs::path draft = isRemains ? entry.path().parent_path() / entry.path().stem() : entry.path();
        if (isHeld(draft)) {
            continue;
        }
        if (isRemains) {
            removeQuietly(entry.path());
            continue;
        }
        std::string text = contentOf(entry.path());
        if (proposal::Draft::isWhole(text)) {
            found.push_back({.file = entry.path(), .text = std::move(text)});
        }
    }
    return found;
}

void Drafts::remove(const LeftDraft& draft) {
    removeQuietly(draft.file);
    removeQuietly(with(draft.file, ofRunning));
}

}  // namespace velmora::desktop
