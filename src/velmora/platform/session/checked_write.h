#pragma once
// A row written only after it was looked at by its key, inside the same transaction.

#include <functional>
#include <string>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::session {

/// How the row that is about to be written stands in the database.
enum class RowState {
    asShown,  ///< as the user has it on the screen
    changed,  ///< another user has written it since
    inUse,    ///< another user is writing what belongs to it and ends in a moment
    closed,   ///< it must not be written any more
};

struct CheckedWrite {
    std::function<RowState()> look;  ///< the first thing in the transaction
    std::function<bool()> write;     ///< false when the database refused: what it wrote is undone
    std::string question;            ///< asked when the row has changed: Yes writes over it
};

enum class Written {
    yes,
    refused,   ///< by the database
    closed,    ///< by the look
    declined,  ///< by the user, who was asked
};

/// Looks and writes in one transaction. The user is asked at most once, and a row in use is waited for, in steps of
/// at most 100 ms in which the toolkit's events run: both with no transaction open, so that no other client waits.
/// After either the row is looked at again. Errors: those of the steps, the database's; nothing is written then.
Written writeChecked(sql::Connection& connection, screen::Screen& screen, const CheckedWrite& steps);

}  // namespace velmora::session
