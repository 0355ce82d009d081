#include "velmora/apps/script_stage/stage.h"

#include "velmora/adapters/script/script_services.h"
#include "velmora/apps/script_stage/database.h"

namespace velmora::script_stage {

namespace {

std::unique_ptr<system::Clock> clockOf(const Options& options) {
    if (options.now) {
        return std::make_unique<script::FixedClock>(*options.now);
    }
    return std::make_unique<system::SystemClock>();
}

}  // namespace

Stage::Stage(const Options& options)
    : clock_(clockOf(options)), engine_(openDatabase(options, *clock_)), program_(*engine_), session_(program_) {}

}  // namespace velmora::script_stage
