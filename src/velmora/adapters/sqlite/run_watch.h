#pragma once
// Asks the program whether a statement that runs long may go on.

#include <chrono>
#include <exception>
#include <memory>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/adapters/sqlite/link.h"

namespace velmora::sqlite {

/// Watches what the link runs during its lifetime. A statement that may not go on ends with an error (`cancelled`).
class RunWatch {
  public:
    /// `options` must live longer.
    RunWatch(Link& link, const Options& options);
    ~RunWatch();
    RunWatch(const RunWatch&) = delete;
    RunWatch& operator=(const RunWatch&) = delete;

    /// Raises what the program has raised when it was asked. To be called after an error of the statement.
    void passOn() const;

  private:
    static int ask(void* watch);
    bool mayGoOn();

    Link& link_;
    const Options& options_;
    std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
    std::unique_ptr<LongRun> longRun_;
    std::exception_ptr raised_;
};

/// Ends what the link runs during its lifetime with an error when it takes more than so many of the engine's steps.
class StepLimit {
  public:
    StepLimit(Link& link, int steps);
    ~StepLimit();
    StepLimit(const StepLimit&) = delete;
    StepLimit& operator=(const StepLimit&) = delete;

    bool wasReached() const { return reached_; }

  private:
    static int reach(void* limit);

    Link& link_;
    bool reached_ = false;
};

}  // namespace velmora::sqlite
