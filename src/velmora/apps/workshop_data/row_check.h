#pragma once
// Whether a row that was typed or read from a file can be stored, and what of it is to be written. The same for both.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "velmora/apps/workshop_data/references.h"
#include "velmora/apps/workshop_data/tables.h"
#include "velmora/platform/sql/value.h"

namespace velmora::workshop_data {

/// A row of the table: the texts of its columns, and where it is found again.
struct StoredRow {
    RowTexts texts;
    std::string where;     ///< a condition: "CLI_ID=5"
    sql::Value ownNumber;  ///< null for tables without one

    friend bool operator==(const StoredRow&, const StoredRow&) = default;
};

/// The given texts, one for each column; nullopt for a column that was not given.
using GivenTexts = std::vector<std::optional<std::string>>;

struct CellFault {
    std::size_t column;  ///< position in the description; the number of columns for a fault of the whole row
    std::string reason;

    friend bool operator==(const CellFault&, const CellFault&) = default;
};

struct CellWrite {
    std::size_t column;
    sql::Value value;

    friend bool operator==(const CellWrite&, const CellWrite&) = default;
};

struct RowCheck {
    RowTexts texts;  ///< as they will be shown; a text that cannot be stored as it was given
    std::vector<CellWrite> writes;
    std::vector<CellFault> faults;  ///< in the order of the columns; nothing may be written when there is one

    friend bool operator==(const RowCheck&, const RowCheck&) = default;
};

/// Checks a new row (`existing` null) or a changed one. What stays as it is stored is neither checked nor written, so
/// that a row of another program can be changed in one column. Columns that are not given keep their value, or begin
/// as on the form.
RowCheck checkRow(const Table& table, const References& references, const GivenTexts& given, const StoredRow* existing);

/// What tells the row apart from others: equal for rows that people take for the same. Empty when a column of the key
/// is.
std::string keyOf(const Table& table, const RowTexts& texts);

/// The same for messages: "1001", "2 / 201".
std::string shownKey(const Table& table, const RowTexts& texts);

}  // namespace velmora::workshop_data
