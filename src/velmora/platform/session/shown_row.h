#pragma once
// A row that a user has on show and is about to write over or to delete. Another user may have changed or deleted it
// since: it is looked at once more by its key, in the transaction of the write.

#include <functional>
#include <string>

#include "velmora/platform/session/session.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::session {

/// What has become of a row since it was shown.
enum class Fate { unchanged, changed, gone };

class ShownRow {
  public:
    /// Takes the values of the current row of `shown`. The statement finds the row by its key; its columns are the
    /// first ones of `shown`, in the same order. Error 3021 without a current row.
    ShownRow(const sql::Recordset& shown, std::string statement);

    /// Runs the statement and compares every column of what it finds. Errors: the database's.
    Fate fate(sql::Connection& connection) const;

  private:
    sql::Row shown_;
    std::string statement_;
};

/// How the work in a transaction wants it to end.
enum class Ending { commit, rollBack };

/// Runs `work` in a transaction and ends it as told. Whatever goes wrong in either, an error of the program among it,
/// goes up once the transaction is rolled back and the list of fields is empty.
void inTransaction(Session& session, const std::function<Ending()>& work);

enum class Outcome {
    done,     ///< `work` has run, whatever ending it chose
    gone,     ///< the row is no longer there
    declined  ///< the row was changed by another user, and this one does not want to go on
};

/// Runs `work` on a row in a transaction that begins with a look at the row. A row that was changed is asked about by
/// `confirm`, once and with no transaction open, and then looked at again. Errors: as inTransaction; what `confirm`
/// raises.
Outcome onShownRow(Session& session, const ShownRow& row, const std::function<bool()>& confirm,
                   const std::function<Ending()>& work);

}  // namespace velmora::session
