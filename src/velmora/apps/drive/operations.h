#pragma once
// The host's side: the public class, and its members by the names that scripts call them.

#include <memory>

#include "velmora/adapters/script/interpreter.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"

namespace velmora::drive {

/// Does what a host does: makes the public class, hands it the session, calls its members.
class HostOperations {
  public:
    /// Desk and session outlive it.
    HostOperations(platform::Desk& desk, session::Session& session);
    ~HostOperations();
    HostOperations(const HostOperations&) = delete;
    HostOperations& operator=(const HostOperations&) = delete;

    const script::Operations& operations() const { return operations_; }

  private:
    struct Host;
    std::unique_ptr<Host> host_;
    script::Operations operations_;
};

}  // namespace velmora::drive
