#pragma once
// Cases of the contract of every engine that a server cannot pass by its nature.

#include <string>
#include <string_view>
#include <vector>

namespace velmora::test {

struct NamedDifference {
    std::string_view suite;
    std::string_view testCase;
    std::string_view reason;
};

/// Those of the server at the other end of this connection string. Errors: DbError when it cannot be reached.
std::vector<NamedDifference> namedDifferences(const std::string& server);

}  // namespace velmora::test
