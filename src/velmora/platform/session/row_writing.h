#pragma once
// Writing one row through the session: one place that names the table, collects the fields, runs the statement and
// reads the session's answer.

#include <functional>
#include <string>
#include <string_view>

#include "velmora/platform/session/session.h"

namespace velmora::session {

/// Adds the columns of a row, in the order of the statement.
using AddFields = std::function<void(FieldList& campos)>;

/// What the session answers to a write. Refused by the builder or by the database, or because a number is 1e15 or
/// greater: not stored, with the reason.
struct RowWrite {
    bool stored = false;
    std::string error{};
};

/// INSERT of one row. The list of fields is empty afterwards, also after an error in `addFields`, which is passed on.
/// Differs D-168: whatever is thrown leaves no field for the next write.
RowWrite tryInsertRow(Session& session, std::string_view table, const AddFields& addFields);
/// UPDATE of the rows of the clause (" where KEY = 1"). Otherwise as tryInsertRow.
RowWrite tryUpdateRow(Session& session, std::string_view table, std::string_view where, const AddFields& addFields);

/// As tryInsertRow and tryUpdateRow. Errors: a refusal, as DbError (provider::failure) with the session's reason.
void insertRow(Session& session, std::string_view table, const AddFields& addFields);
void updateRow(Session& session, std::string_view table, std::string_view where, const AddFields& addFields);

/// INSERT, or UPDATE, of the fields that were added step by step to the table and clause named before. For writes whose
/// fields come with questions to the user or with checks in between.
RowWrite insertAddedFields(Session& session);
RowWrite updateAddedFields(Session& session);

}  // namespace velmora::session
