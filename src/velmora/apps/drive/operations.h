#pragma once
// The host's side: creates the public class and calls its members by the names used in scripts.

#include <memory>

#include "velmora/adapters/script/interpreter.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/session/session.h"

namespace velmora::drive {

/// Acts as a host: creates the public class, sets the session, calls its members.
class HostOperations {
  public:
    /// Desk and session must outlive it.
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
