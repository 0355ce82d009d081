#include "velmora/adapters/sqlite/open_rows.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <iterator>
#include <limits>
#include <mutex>
#include <utility>

namespace velmora::sqlite {

namespace {

/// Size in bytes of a write-ahead file at which a set that holds it is detached. Without such a set the file does not
/// exceed writeAheadSize by more than one transaction.
constexpr std::uintmax_t toleratedSize = writeAheadSize * 3 / 2;

/// Up to this many rows are copied rather than the database's pages; beyond it, up to one row for pagesForARow pages: a
/// row takes about as long to copy as a page.
constexpr std::size_t fewRows = 4096;
constexpr std::size_t pagesForARow = 4;

/// Rows read under the mutex at a time; between two such turns the thread that copies may run.
constexpr std::size_t rowsOfATurn = 64;

constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

std::uintmax_t sizeOf(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error ? 0 : size;
}

}  // namespace

OpenRows::OpenRows(std::unique_ptr<RowReader> reader, Options options)
    : options_(std::move(options)), reader_(std::move(reader)), inTransaction_(reader_->link()->isInTransaction()) {
    const Link& link = *reader_->link();
    if (!link.isInSnapshot()) {
        return;
    }
    for (const std::string& schema : link.heldSchemas()) {
        const std::string path = link.writeAheadFile(schema);
        writeAhead_.push_back({.path = path, .tolerated = std::max(toleratedSize, sizeOf(path))});
    }
}

OpenRows::~OpenRows() {
    close();
}

OpenRows::Part OpenRows::read(std::size_t from, std::size_t most) {
    Part part;
    for (bool more = true; more;) {
        const std::lock_guard turn(mutex_);
        requireRows();
        const std::size_t wanted = std::min(rowsOfATurn, most - part.rows.size());
        auto rows = reader_->read(from + part.rows.size(), wanted);
        more = rows.size() == wanted && part.rows.size() + wanted < most;
        std::ranges::move(rows, std::back_inserter(part.rows));
        part.end = reader_->end();
    }
    return part;
}

std::size_t OpenRows::count() {
    const std::lock_guard turn(mutex_);
    requireRows();
    return reader_->count();
}

/// False when the engine has ended the transaction by itself: the link would now read a newer state.
bool OpenRows::stillHolds() {
    if (reader_ && inTransaction_ && !reader_->link()->isInTransaction()) {
        lose({sql::provider::failure, "Las filas se han perdido por un error de lectura o escritura anterior."});
    }
    return reader_ != nullptr;
}

void OpenRows::requireRows() {
    if (!stillHolds() && lost_) {
        throw *lost_;
    }
}

void OpenRows::lose(const sql::DbError& error) {
    lost_ = error;
    copy_.reset();
    reader_.reset();
    writeAhead_.clear();
}

void OpenRows::close() {
    const std::lock_guard turn(mutex_);
    copy_.reset();
    reader_.reset();
    writeAhead_.clear();
}

void OpenRows::detach() {
    const std::lock_guard turn(mutex_);
    if (!stillHolds()) {
        return;
    }
    try {
        copy_ = std::make_unique<RowCopy>(*reader_, options_, anyNumber);
        while (copy_->step() == CopyProgress::goingOn) {
        }
        finishCopy();
    } catch (const sql::DbError& error) {
        lose(error);
    }
}

bool OpenRows::isHeld() {
    const std::lock_guard turn(mutex_);
    return !writeAhead_.empty();
}

bool OpenRows::hinders() {
    const std::lock_guard turn(mutex_);
    return std::ranges::any_of(writeAhead_, [](WriteAhead& file) {
        const std::uintmax_t size = sizeOf(file.path);
        const bool grown = size > std::max(file.tolerated, file.triedInVain);
        // A file that was large already may have been truncated since.
        file.tolerated = std::min(file.tolerated, std::max(toleratedSize, size));
        return grown;
    });
}

bool OpenRows::detachStep() {
    std::shared_ptr<Link> freed;
    const bool goesOn = detachStep(freed);
    if (freed) {
        try {
            freed->leaveSnapshot();
            freed->moveWriteAheadIntoDatabase();
        } catch (const sql::DbError&) {
            // The pool closes a link that cannot end its snapshot.
        }
    }
    return goesOn;
}

bool OpenRows::detachStep(std::shared_ptr<Link>& freed) {
    const std::lock_guard turn(mutex_);
    if (writeAhead_.empty() || !stillHolds()) {
        return false;
    }
    const std::shared_ptr<Link> held = reader_->link();
    try {
        goOn();
    } catch (const std::exception&) {
        copy_.reset();
        for (WriteAhead& file : writeAhead_) {
            file.triedInVain = 2 * sizeOf(file.path);
        }
        stillHolds();
        return false;
    }
    if (writeAhead_.empty()) {
        freed = held;
    }
    return !freed;
}

void OpenRows::goOn() {
    if (!copy_) {
        beginCopy();
    }
    switch (copy_->step()) {
        case CopyProgress::goingOn:
            break;
        case CopyProgress::complete:
            finishCopy();
            break;
        case CopyProgress::tooManyRows:
            rowsAreMany_ = true;
            copy_.reset();
            break;
    }
}

void OpenRows::beginCopy() {
    const std::size_t most = std::max(fewRows, static_cast<std::size_t>(heldPages(*reader_->link())) / pagesForARow);
    if (rowsAreMany_ || reader_->end().value_or(0) > most) {
        copy_ = std::make_unique<PageCopy>(*reader_, options_);
    } else {
        copy_ = std::make_unique<RowCopy>(*reader_, options_, most);
    }
}

/// From now on the set is read from the copy; the database is released.
void OpenRows::finishCopy() {
    reader_ = copy_->reader();
    inTransaction_ = false;
    copy_.reset();
    writeAhead_.clear();
}

}  // namespace velmora::sqlite
