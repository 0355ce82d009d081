#pragma once
// A database that holds one complete proposal of each product type, and nothing else but what they refer to.

#include <cstdint>
#include <memory>
#include <string>

#include "velmora/platform/sql/connection.h"

namespace velmora::support {

/// Every stored column that a paper can show has a value, as the form would have saved it: measures that make a
/// piece, amounts that add up. Neighbouring columns have different values, so that none can stand for another.
class SampleProposals {
  public:
    SampleProposals();

    /// The number of the proposal of a type from 0 to 14.
    static std::int32_t numberOf(int type) { return type + 1; }
    void set(std::int32_t proposal, const std::string& assignments);
    sql::Connection& connection() { return *database_; }

  private:
    std::unique_ptr<sql::Connection> database_;
};

}  // namespace velmora::support
