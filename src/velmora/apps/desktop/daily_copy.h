#pragma once
// The copy of the first use of a day, made beside the program's start.

#include <string>
#include <thread>

#include "velmora/apps/backup/copies.h"

namespace velmora::desktop {

class DailyCopy {
  public:
    /// Begins at once, on a thread of its own, when the day has no copy yet.
    DailyCopy(const std::string& database, runtime::Date now);

    /// Waits for its end. Why it could not be made; empty when it was, or was not needed.
    std::string failure();

  private:
    /// The moment of the start: the system's clock belongs to the program's thread.
    class Start final : public system::Clock {
      public:
        explicit Start(runtime::Date now) : now_(now) {}
        runtime::Date now() const override { return now_; }

      private:
        runtime::Date now_;
    };

    Start clock_;
    backup::Copies copies_;
    std::string failure_;
    std::jthread thread_;
};

}  // namespace velmora::desktop
