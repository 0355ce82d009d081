#include "velmora/adapters/sqlite/set_copy.h"

#include <utility>

#include <sqlite3.h>

#include "velmora/adapters/sqlite/emitters/quoting.h"
#include "velmora/adapters/sqlite/errors.h"

namespace velmora::sqlite {

namespace {

constexpr std::size_t rowsOfAStep = 256;
/// Takes some milliseconds. Smaller steps fall behind a busy writer, since between two steps a reader has its turn.
constexpr int pagesOfAStep = 4096;

/// The columns of the table of rows: "c0, c1, …".
std::string columnNames(std::size_t count) {
    std::string names;
    for (std::size_t i = 0; i < count; ++i) {
        names += (i == 0 ? "c" : ", c") + std::to_string(i);
    }
    return names;
}

std::string parameters(std::size_t count) {
    std::string marks;
    for (std::size_t i = 0; i < count; ++i) {
        marks += ", ?";
    }
    return marks;
}

/// The statement that reads the copied rows in place of `original`.
std::shared_ptr<const CachedStatement> readingCopyOf(const CachedStatement& original) {
    const std::string select = "SELECT " + columnNames(original.translation->types.size()) + " FROM kept";
    Translation translation = *original.translation;
    translation.steps = {select + " ORDER BY position"};
    translation.laterRowsStatement = select + " WHERE position >= ? ORDER BY position";
    translation.countStatement = "SELECT count(*) FROM kept";
    auto made = std::make_shared<CachedStatement>();
    made->text = original.text;
    made->translation = std::make_shared<const Translation>(std::move(translation));
    return made;
}

}  // namespace

// Rows.

RowCopy::RowCopy(const RowReader& source, const Options& options, std::size_t most)
    : source_(source.link()),
      copy_(Link::temporary(options)),
      statement_(readingCopyOf(*source.statement())),
      moment_(source.moment()),
      most_(most) {
    const std::size_t columns = source.statement()->translation->types.size();
    copy_->run("CREATE TABLE kept (position INTEGER PRIMARY KEY, " + columnNames(columns) + ")");
    copy_->run("BEGIN");
    read_ = source.statement();
    reading_ = source_->prepare(read_->translation->steps.front());
    reading_->bind(read_->values);
    writing_ = copy_->prepare("INSERT INTO kept VALUES (?" + parameters(columns) + ")");
}

RowCopy::~RowCopy() = default;

CopyProgress RowCopy::step() {
    const FixedMoment fixed(*source_, moment_);
    for (std::size_t i = 0; i < rowsOfAStep; ++i) {
        if (!reading_->step()) {
            reading_.reset();
            writing_.reset();
            copy_->run("COMMIT");
            return CopyProgress::complete;
        }
        if (copied_ == most_) {
            return CopyProgress::tooManyRows;
        }
        writing_->bind(1, static_cast<std::int64_t>(copied_));
        writing_->bindRow(2, *reading_);
        writing_->step();
        writing_->reset();
        ++copied_;
    }
    return CopyProgress::goingOn;
}

std::unique_ptr<RowReader> RowCopy::reader() const {
    return std::make_unique<RowReader>(copy_, statement_, moment_);
}

// Pages.

void PageCopy::Finish::operator()(sqlite3_backup* backup) const {
    sqlite3_backup_finish(backup);
}

PageCopy::PageCopy(const RowReader& source, const Options& options)
    : source_(source.link()),
      copy_(Link::temporary(options)),
      statement_(source.statement()),
      moment_(source.moment()),
      schemas_(source_->heldSchemas()) {
    for (const std::string& schema : schemas_) {
        if (schema == documentsSchema) {
            copy_->attachDocuments("");
        }
    }
}

PageCopy::~PageCopy() = default;

CopyProgress PageCopy::step() {
    if (!backup_) {
        begin(schemas_.back());
    }
    const int code = sqlite3_backup_step(backup_.get(), pagesOfAStep);
    if (code == SQLITE_OK) {
        return CopyProgress::goingOn;
    }
    backup_.reset();
    if (code != SQLITE_DONE) {
        throwEngineError(nullptr, code);
    }
    schemas_.pop_back();
    return schemas_.empty() ? CopyProgress::complete : CopyProgress::goingOn;
}

void PageCopy::begin(const std::string& schema) {
    backup_.reset(sqlite3_backup_init(copy_->handle(), schema.c_str(), source_->handle(), schema.c_str()));
    if (!backup_) {
        throwEngineError(copy_->handle(), sqlite3_errcode(copy_->handle()));
    }
}

std::unique_ptr<RowReader> PageCopy::reader() const {
    return std::make_unique<RowReader>(copy_, statement_, moment_);
}

std::uint64_t heldPages(Link& link) {
    std::uint64_t pages = 0;
    for (const std::string& schema : link.heldSchemas()) {
        const auto counting = link.prepare("PRAGMA " + schema + ".page_count");
        counting->step();
        pages += static_cast<std::uint64_t>(counting->whole(0));
    }
    return pages;
}

}  // namespace velmora::sqlite
