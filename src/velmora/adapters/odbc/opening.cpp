#include "velmora/adapters/odbc/opening.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "velmora/platform/runtime/text.h"
#include "velmora/platform/sql/long_run.h"

namespace velmora::odbc {

namespace {

/// Between two questions whether a statement may go on.
constexpr std::chrono::milliseconds betweenQuestions{50};
// Chosen C-620: a server that has not ended a cancelled statement by then is left alone with it and its connection; the
// next statement runs on another one.
constexpr std::chrono::milliseconds patienceWithCancelled{1000};

/// The first rows of a cursor that has run, in a new spool; nullptr of a statement that answers none. `more` becomes
/// true when the cursor has further rows.
std::shared_ptr<RowSpool> firstRowsOf(Cursor& cursor, Link& link, std::size_t count, bool& more) {
    if (cursor.columns().empty()) {
        return nullptr;
    }
    auto spool = std::make_shared<RowSpool>();
    sql::Row row;
    more = true;
    link.watch([&] {
        for (std::size_t rows = 0; more && rows < count; ++rows) {
            more = cursor.next(row);
            if (more) {
                spool->add(std::move(row));
            }
        }
    });
    return spool;
}

}  // namespace

Opening openingOf(Cursor cursor, Link& link, std::size_t firstRows) {
    bool more = false;
    auto spool = firstRowsOf(cursor, link, firstRows, more);
    return {.cursor = std::move(cursor), .spool = std::move(spool), .more = more};
}

bool mayRunLong(std::string_view statement) {
    const std::string upper = runtime::UCase(statement);
    const auto has = [&](const char* words) { return upper.find(words) != std::string::npos; };
    return upper.starts_with("SELECT") && (has(" ORDER BY ") || has(" LIKE "));
}

/// Shared by the thread that waits and the one that works: whoever is later releases it.
struct LongOpening::Job {
    std::mutex mutex;
    std::condition_variable changed;
    std::shared_ptr<Link> link;
    std::shared_ptr<LinkPool> pool;
    std::optional<Cursor> cursor;  ///< the working thread's until `done`
    std::optional<Opening> opening;
    std::exception_ptr error;
    bool done = false;
    bool abandoned = false;
    std::mutex cancelling;
    SQLHANDLE running = nullptr;  ///< what is cancelled; under `cancelling`

    void run(std::size_t firstRows) {
        std::shared_ptr<RowSpool> spool;
        bool more = false;
        std::exception_ptr failure;
        try {
            link->watch([&] { cursor->run(); });
            spool = firstRowsOf(*cursor, *link, firstRows, more);
        } catch (...) {
            failure = std::current_exception();
            endStatement();
        }
        {
            const std::lock_guard lock(mutex);
            done = true;
            error = failure;
            if (!error) {
                opening.emplace(Opening{.cursor = std::move(*cursor), .spool = std::move(spool), .more = more});
            }
            if (abandoned) {
                letGo();
            }
        }
        changed.notify_all();
    }

    /// The statement ends before its connection serves another one.
    void letGo() {
        endStatement();
        pool->giveBack(std::exchange(link, nullptr));
    }

    void endStatement() {
        const std::lock_guard lock(cancelling);
        running = nullptr;
        opening.reset();
        cursor.reset();
    }

    // The driver may hold up a call that reaches a statement under way until the server answers.
    void cancel() {
        const std::lock_guard lock(cancelling);
        if (running != nullptr) {
            SQLCancel(running);
        }
    }
};

LongOpening::LongOpening(std::shared_ptr<Link> link, std::shared_ptr<LinkPool> pool, const std::string& statement,
                         std::size_t firstRows)
    : statement_(statement), job_(std::make_shared<Job>()) {
    job_->cursor.emplace(link->statements(), statement, Cursor::Later());
    job_->running = job_->cursor->handle();
    job_->link = std::move(link);
    job_->pool = std::move(pool);
    std::thread([job = job_, firstRows] { job->run(firstRows); }).detach();
}

LongOpening::~LongOpening() {
    abandon();
}

/// Unless the connection has gone back to the engine.
void LongOpening::abandon() {
    const std::lock_guard lock(job_->mutex);
    if (std::exchange(job_->abandoned, true) || !job_->link) {
        return;
    }
    if (job_->done) {
        job_->letGo();
    }
}

bool LongOpening::isDoneWithin(std::chrono::milliseconds patience) const {
    std::unique_lock lock(job_->mutex);
    return job_->changed.wait_for(lock, patience, [this] { return job_->done; });
}

void LongOpening::cancel() {
    std::thread([job = job_] { job->cancel(); }).detach();
    isDoneWithin(patienceWithCancelled);
    abandon();
}

/// Asks until the statement's end; false when it has been cancelled.
bool LongOpening::mayGoOn(const Options& options) {
    try {
        const std::unique_ptr<sql::LongRun> shown = options.longRun();
        while (!isDoneWithin(betweenQuestions)) {
            if (!shown->mayGoOn()) {
                cancel();
                return false;
            }
        }
        return true;
    } catch (...) {
        cancel();
        throw;
    }
}

Opening LongOpening::wait(const Options& options) {
    if (!isDoneWithin(options.longRunAfter)) {
        if (!mayGoOn(options)) {
            throw sql::cancelledError(statement_);
        }
    }
    if (job_->error) {
        std::rethrow_exception(job_->error);
    }
    return std::move(*job_->opening);
}

std::shared_ptr<Link> LongOpening::takeLink() {
    const std::lock_guard lock(job_->mutex);
    return job_->done ? std::exchange(job_->link, nullptr) : nullptr;
}

}  // namespace velmora::odbc
