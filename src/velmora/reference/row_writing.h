#pragma once
// One row written to a table of reference data, and what the user is asked and told about it.

#include <string>
#include <string_view>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"

namespace velmora::reference {

inline constexpr const char* lineBreak = "\r\n";

/// Runs the INSERT, the UPDATE of the fields that were added. Errors: the session's refusal, as the provider's failure.
void insertRow(session::Session& session, std::string_view donde);
void updateRow(session::Session& session, std::string_view donde);

/// Asks about a row that another user has changed; Enter says No. True on Yes.
bool confirmed(screen::Screen& screen, const char* question);

/// Tells, with the critical icon, why nothing is written.
void refuse(screen::Screen& screen, const std::string& words, const char* title = "");

}  // namespace velmora::reference
