#pragma once
// One row written to a table of reference data, and what the user is asked and told about it.

#include <string>
#include <string_view>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/session/session.h"

namespace velmora::reference {

inline constexpr const char* lineBreak = "\r\n";

/// Empties the list of fields when it goes: a write that ends half way leaves none over for the next one.
/// Differs D-168: whatever ends it, a fault of the program itself too.
class FieldsOfOneWrite {
  public:
    explicit FieldsOfOneWrite(session::Session& session) : session_(session) {}
    ~FieldsOfOneWrite() { session_.Campos().clear(); }
    FieldsOfOneWrite(const FieldsOfOneWrite&) = delete;
    FieldsOfOneWrite& operator=(const FieldsOfOneWrite&) = delete;

  private:
    session::Session& session_;
};

/// Runs the INSERT, the UPDATE of the fields that were added. Errors: the session's refusal, as the provider's failure.
void insertRow(session::Session& session, std::string_view donde);
void updateRow(session::Session& session, std::string_view donde);

/// Tells, with the critical icon, why nothing is written.
void refuse(screen::Screen& screen, const std::string& words, const char* title = "");

}  // namespace velmora::reference
