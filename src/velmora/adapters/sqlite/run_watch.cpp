#include "velmora/adapters/sqlite/run_watch.h"

#include <sqlite3.h>

namespace velmora::sqlite {

namespace {

/// The engine's steps between two questions: some ten microseconds.
constexpr int stepsBetweenQuestions = 4096;

}  // namespace

RunWatch::RunWatch(Link& link, const Options& options) : link_(link), options_(options) {
    sqlite3_progress_handler(link_.handle(), stepsBetweenQuestions, ask, this);
}

RunWatch::~RunWatch() {
    sqlite3_progress_handler(link_.handle(), 0, nullptr, nullptr);
}

int RunWatch::ask(void* watch) {
    return static_cast<RunWatch*>(watch)->mayGoOn() ? 0 : 1;
}

/// An exception must not pass through the engine: it ends the statement and is raised afterwards.
bool RunWatch::mayGoOn() {
    try {
        if (!longRun_) {
            if (std::chrono::steady_clock::now() - begun_ < options_.longRunAfter) {
                return true;
            }
            longRun_ = options_.longRun();
        }
        return longRun_->mayGoOn();
    } catch (...) {
        raised_ = std::current_exception();
        return false;
    }
}

StepLimit::StepLimit(Link& link, int steps) : link_(link) {
    sqlite3_progress_handler(link_.handle(), steps, reach, this);
}

StepLimit::~StepLimit() {
    sqlite3_progress_handler(link_.handle(), 0, nullptr, nullptr);
}

int StepLimit::reach(void* limit) {
    static_cast<StepLimit*>(limit)->reached_ = true;
    return 1;
}

void RunWatch::passOn() const {
    if (raised_) {
        std::rethrow_exception(raised_);
    }
}

}  // namespace velmora::sqlite
