#include "velmora/platform/session/shown_row.h"

#include <utility>

#include "velmora/platform/runtime/errors.h"

namespace velmora::session {

ShownRow::ShownRow(const sql::Recordset& shown, std::string statement) : statement_(std::move(statement)) {
    for (std::size_t column = 0; column < shown.columns().size(); ++column) {
        shown_.push_back(shown[column]);
    }
}

Fate ShownRow::fate(sql::Connection& connection) const {
    const sql::Recordset now = connection.execute(statement_);
    if (now.eof()) {
        return Fate::gone;
    }
    for (std::size_t column = 0; column < now.columns().size(); ++column) {
        if (column >= shown_.size() || now[column] != shown_[column]) {
            return Fate::changed;
        }
    }
    return Fate::unchanged;
}

void inTransaction(Session& session, const std::function<Ending()>& work) {
    sql::Connection& connection = session.Connection();
    connection.beginTrans();
    try {
        if (work() == Ending::commit) {
            connection.commitTrans();
        } else {
            connection.rollbackTrans();
        }
    } catch (...) {
        // Differs D-168: a fault of the program itself is rolled back too, where its transaction would have kept every
        // other client out.
        session.Campos().clear();
        // A commit that failed may have left the transaction open, or may not: then there is none to undo.
        runtime::ErrorTrap trap;
        trap([&] { connection.rollbackTrans(); });
        throw;
    }
}

Outcome onShownRow(Session& session, const ShownRow& row, const std::function<bool()>& confirm,
                   const std::function<Ending()>& work) {
    for (bool confirmed = false;; confirmed = true) {
        Fate fate = Fate::gone;
        bool done = false;
        inTransaction(session, [&] {
            fate = row.fate(session.Connection());
            done = fate == Fate::unchanged || (fate == Fate::changed && confirmed);
            return done ? work() : Ending::rollBack;
        });
        if (done) {
            return Outcome::done;
        }
        if (fate == Fate::gone) {
            return Outcome::gone;
        }
        if (!confirm()) {
            return Outcome::declined;
        }
    }
}

}  // namespace velmora::session
