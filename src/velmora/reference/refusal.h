#pragma once
// Writing one row of reference data, and the messages about it.

#include <string>
#include <string_view>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"

namespace velmora::reference {

inline constexpr const char* lineBreak = "\r\n";

/// Empties the list of fields at the end of its scope, so that a write that fails half way leaves no fields for the
/// next one. Differs D-168: also when an exception that is no run-time error ends the scope.
class FieldsOfOneWrite {
  public:
    explicit FieldsOfOneWrite(session::Session& session) : session_(session) {}
    ~FieldsOfOneWrite() { session_.Campos().clear(); }
    FieldsOfOneWrite(const FieldsOfOneWrite&) = delete;
    FieldsOfOneWrite& operator=(const FieldsOfOneWrite&) = delete;

  private:
    session::Session& session_;
};

/// Run the INSERT, or the UPDATE, of the fields that were added. Errors: the session's refusal, as provider::failure.
void insertRow(session::Session& session, std::string_view donde);
void updateRow(session::Session& session, std::string_view donde);

/// Shows, with the critical icon, why nothing was written.
void refuse(screen::Screen& screen, const std::string& words, const char* title = "");

}  // namespace velmora::reference
