#pragma once
// Optimistic locking: a row is written only after it was read again by its key inside the same transaction.

#include <chrono>
#include <functional>
#include <string>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/sql/connection.h"
#include "velmora/platform/system/system.h"

namespace velmora::session {

/// Between two reads of a row in use.
inline constexpr std::chrono::milliseconds pauseInUse{50};

/// State in the database of the row about to be written.
enum class RowState {
    asShown,  ///< unchanged since the user's screen was filled
    changed,  ///< written by another user since
    inUse,    ///< another user is writing rows that belong to it and will finish shortly
    closed,   ///< no longer open to changes
};

struct CheckedWrite {
    std::function<RowState()> look;  ///< reads the row; the first step of the transaction
    std::function<bool()> write;     ///< false when the database refused; the transaction is then rolled back
    std::string question;            ///< shown when the row has changed; Yes overwrites it
};

enum class Written {
    yes,
    refused,   ///< the database refused the write
    closed,    ///< `look` found the row closed
    declined,  ///< the user answered No
};

/// Runs `look` and `write` in one transaction. The user is asked at most once; a row in use is polled every
/// `pauseInUse` of the clock, in which the toolkit's events run. No transaction is open during either, so that no other
/// client has to wait, and the row is read again afterwards. Errors: those of the two steps and of the database;
/// nothing has been written then.
Written writeChecked(sql::Connection& connection, screen::Screen& screen, const system::Clock& clock,
                     const CheckedWrite& steps);

}  // namespace velmora::session
