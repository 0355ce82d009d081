#pragma once
// One row written to a table of reference data as a whole, or not at all.

#include <functional>
#include <optional>
#include <string_view>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/session/session.h"

namespace velmora::reference {

inline constexpr const char* lineBreak = "\r\n";

/// Runs `work` in a transaction and commits. None on success; otherwise the error that ended it, with the table as
/// it was, no transaction open and no field left over for the next write.
std::optional<runtime::RuntimeError> inTransaction(session::Session& session, const std::function<void()>& work);

/// Runs the INSERT, the UPDATE of the fields that were added. Errors: the session's refusal, as the provider's failure.
void insertRow(session::Session& session, std::string_view donde);
void updateRow(session::Session& session, std::string_view donde);

}  // namespace velmora::reference
