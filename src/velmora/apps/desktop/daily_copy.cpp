#include "velmora/apps/desktop/daily_copy.h"

namespace velmora::desktop {

DailyCopy::DailyCopy(const std::string& database, runtime::Date now)
    : clock_(now), copies_(database, clock_), thread_([this] {
          try {
              copies_.makeDaily();
          } catch (const std::exception& e) {
              failure_ = e.what();
          }
      }) {}

std::string DailyCopy::failure() {
    if (thread_.joinable()) {
        thread_.join();
    }
    return failure_;
}

}  // namespace velmora::desktop
