#pragma once
// Turns a list of fields into the text of a write statement.

#include <string>
#include <string_view>

#include "velmora/platform/session/session.h"

namespace velmora::adapters {

/// A statement, or the reason why there is none.
struct Built {
    std::string statement;
    std::string error;  ///< names the column whose value does not fit its kind; empty when all is well
};

/// INSERT INTO table (a,b) VALUES (…)
Built buildInsert(std::string_view table, const session::FieldList& fields);
/// UPDATE table SET a=…,b=… and the clause, spliced as it is.
Built buildUpdate(std::string_view table, const session::FieldList& fields, std::string_view where);

/// One value as T-SQL; null is NULL whatever the kind. Errors: 6, 13 when the value does not fit its kind.
std::string renderValue(const session::Field& field);

}  // namespace velmora::adapters
