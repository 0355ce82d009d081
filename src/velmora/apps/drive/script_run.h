#pragma once
// Runs one script against one database, from opening both to the exit status.

#include "velmora/adapters/script/ending.h"
#include "velmora/apps/script_stage/options.h"

namespace velmora::drive {

/// Output goes to the standard output, the reason of an early end to the standard error output. Errors: NoDatabase.
script::Status runScript(const script_stage::Options& options);

}  // namespace velmora::drive
