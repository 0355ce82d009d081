// A driver without the shell: scripts reach the database, and no form can be opened.

#include "operations.h"

namespace velmora::drive {

struct HostOperations::Host {};

HostOperations::HostOperations(platform::Desk&, session::Session&) {}

HostOperations::~HostOperations() = default;

}  // namespace velmora::drive
