#pragma once
// One script played on one database, from the opening of both to the exit status.

#include "velmora/adapters/script/ending.h"

#include "options.h"

namespace velmora::drive {

/// Output goes to the standard output, the reasons of an early end to the standard error. Errors: NoDatabase.
script::Status perform(const Options& options);

}  // namespace velmora::drive
