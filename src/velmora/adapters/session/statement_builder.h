#pragma once
// Builds the text of a write statement from a list of fields.

#include <string>
#include <string_view>

#include "velmora/platform/session/session.h"

namespace velmora::adapters {

/// A statement, or the reason why it could not be built.
struct Built {
    std::string statement;
    std::string error;  ///< names the column whose value does not fit its kind; empty on success
};

/// INSERT INTO table (a,b) VALUES (…)
Built buildInsert(std::string_view table, const session::FieldList& fields);
/// UPDATE table SET a=…,b=… followed by the clause, unchanged.
Built buildUpdate(std::string_view table, const session::FieldList& fields, std::string_view where);

/// One value as T-SQL; null is NULL whatever the kind. Errors: 6 and 13 when the value does not fit its kind.
std::string renderValue(const session::Field& field);

}  // namespace velmora::adapters
