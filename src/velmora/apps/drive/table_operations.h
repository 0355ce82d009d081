#pragma once
// The forms of the workshop's own data in scripts.

#include "velmora/adapters/script/interpreter.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"

namespace velmora::drive {

/// Adds `open tabla NAME`. A file that is written is chosen like one that is read. All must outlive the operations.
void addTables(script::Operations& operations, session::Session& session, platform::Desk& desk);

}  // namespace velmora::drive
