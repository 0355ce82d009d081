#pragma once
// The host's order component in the tests.

#include <cstdint>
#include <string>
#include <vector>

#include "velmora/platform/components/components.h"

namespace velmora::support {

/// The host's order component, which tells what it was given.
class WatchedOrders final : public components::WorkOrders {
  public:
    explicit WatchedOrders(std::vector<std::string>& told) : told_(told) {}
    ~WatchedOrders() override { told_.push_back("released"); }
    void setMyBd(session::Session&) override { told_.push_back("MyBd"); }
    void jLoad(std::int32_t number) override { told_.push_back("jLoad " + std::to_string(number)); }

  private:
    std::vector<std::string>& told_;
};

}  // namespace velmora::support
