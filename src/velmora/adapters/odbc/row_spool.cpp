#include "velmora/adapters/odbc/row_spool.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

#include "velmora/adapters/odbc/row_bytes.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::odbc {

namespace {

/// A block ends at so many rows, or bytes.
constexpr std::size_t blockRows = 128;
constexpr std::size_t blockBytes = std::size_t{1024} * 1024;
/// Blocks beyond so many bytes go to the file.
constexpr std::size_t mostInMemory = std::size_t{8} * 1024 * 1024;
/// Who waits for a row looks so often: waking him at each row would take longer than reading it.
constexpr std::chrono::milliseconds lookInterval{1};

std::size_t sizeOf(const sql::Row& row) {
    std::size_t bytes = row.size() * sizeof(sql::Value);
    for (const sql::Value& value : row) {
        if (const auto* text = std::get_if<std::string>(&value.raw())) {
            bytes += text->size();
        } else if (const auto* content = std::get_if<sql::Bytes>(&value.raw())) {
            bytes += content->size();
        }
    }
    return bytes;
}

[[noreturn]] void failOnFile() {
    throw sql::DbError(sql::provider::failure,
                       "No se pueden guardar las filas de la lista en un archivo temporal. ¿Está lleno el disco?");
}

}  // namespace

bool seek(std::FILE* file, std::int64_t offset) {
#ifdef _WIN32
    return _fseeki64(file, offset, SEEK_SET) == 0;
#else
    return fseeko(file, static_cast<off_t>(offset), SEEK_SET) == 0;
#endif
}

void RowSpool::Close::operator()(std::FILE* file) const {
    std::fclose(file);
}

RowSpool::RowSpool() : tail_(emptyTail()) {}

RowSpool::~RowSpool() = default;

std::shared_ptr<RowSpool::Rows> RowSpool::emptyTail() {
    auto tail = std::make_shared<Rows>();
    tail->reserve(blockRows);  // rows that are being read do not move while others are added
    return tail;
}

void RowSpool::add(sql::Row row) {
    const std::lock_guard lock(mutex_);
    tailBytes_ += sizeOf(row);
    tail_->push_back(std::move(row));
    ++count_;
    if (tail_->size() == blockRows || tailBytes_ > blockBytes) {
        closeBlock();
    }
}

void RowSpool::closeBlock() {
    const std::shared_ptr<Rows> rows = std::exchange(tail_, emptyTail());
    tailBytes_ = 0;
    Block block{.first = count_ - rows->size(), .rows = toBytes(*rows)};
    if (inMemory_ + block.rows.size() <= mostInMemory) {
        inMemory_ += block.rows.size();
    } else {
        write(block, std::exchange(block.rows, {}));
    }
    blocks_.push_back(std::move(block));
}

void RowSpool::write(Block& block, const std::string& rows) {
    if (!file_) {
        file_.reset(std::tmpfile());
    }
    block.offset = fileEnd_;
    block.bytes = rows.size();
    if (!file_ || !seek(file_.get(), fileEnd_) ||
        std::fwrite(rows.data(), 1, rows.size(), file_.get()) != rows.size() || std::fflush(file_.get()) != 0) {
        failOnFile();
    }
    fileEnd_ += static_cast<std::int64_t>(rows.size());
}

void RowSpool::finish() {
    {
        const std::lock_guard lock(mutex_);
        complete_ = true;
    }
    changed_.notify_all();
}

void RowSpool::fail(std::exception_ptr error) {
    {
        const std::lock_guard lock(mutex_);
        error_ = std::move(error);
    }
    changed_.notify_all();
}

bool RowSpool::waitFor(std::size_t position) {
    if (isCurrent(position)) {
        return true;
    }
    std::unique_lock lock(mutex_);
    while (!changed_.wait_for(lock, lookInterval, [&] { return position < count_ || complete_ || error_; })) {
    }
    if (position < count_) {
        return true;
    }
    if (error_) {
        std::rethrow_exception(error_);
    }
    return false;
}

std::size_t RowSpool::waitForAll() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return complete_ || error_; });
    if (error_) {
        std::rethrow_exception(error_);
    }
    return count_;
}

bool RowSpool::isCurrent(std::size_t position) const {
    return position >= currentFirst_ && position < currentEnd_;
}

const sql::Row& RowSpool::row(std::size_t position) {
    if (!isCurrent(position)) {
        makeCurrent(position);
    }
    return (*current_)[position - currentFirst_];
}

void RowSpool::makeCurrent(std::size_t position) {
    const std::lock_guard lock(mutex_);
    const std::size_t tailFirst = count_ - tail_->size();
    if (position >= tailFirst) {
        current_ = tail_;
        currentFirst_ = tailFirst;
        currentEnd_ = count_;
        return;
    }
    const auto behind = std::ranges::upper_bound(blocks_, position, {}, &Block::first);
    const Block& block = *std::prev(behind);
    current_ = rowsOf(block);
    currentFirst_ = block.first;
    currentEnd_ = block.first + current_->size();
}

std::shared_ptr<const RowSpool::Rows> RowSpool::rowsOf(const Block& block) {
    if (!block.rows.empty()) {
        return std::make_shared<const Rows>(fromBytes(block.rows));
    }
    std::string bytes(block.bytes, '\0');
    if (!seek(file_.get(), block.offset) || std::fread(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size()) {
        failOnFile();
    }
    return std::make_shared<const Rows>(fromBytes(bytes));
}

}  // namespace velmora::odbc
