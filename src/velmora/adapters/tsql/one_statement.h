#pragma once
// A text holds exactly one statement.

#include <string>

namespace velmora::tsql {

/// Error provider::syntax when the text holds a second statement, which a server would run too. A text that is no T-SQL
/// is left to the server.
void refuseSecondStatement(const std::string& statement);

}  // namespace velmora::tsql
