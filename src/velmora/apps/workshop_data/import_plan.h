#pragma once
// What a file would do to a table: each of its rows is new, a change, equal to what is stored, or refused with its
// reasons. Nothing is written here.

#include <cstddef>
#include <string>
#include <vector>

#include "velmora/apps/workshop_data/csv.h"
#include "velmora/apps/workshop_data/row_check.h"
#include "velmora/apps/workshop_data/tables.h"

namespace velmora::workshop_data {

enum class Fate { added, changed, equal, refused };

/// One row of the file.
struct PlannedRow {
    std::size_t line = 1;
    Fate fate = Fate::refused;
    std::string key;       ///< for people
    RowCheck check;        ///< what to write, and why not
    StoredRow existing{};  ///< of a change

    friend bool operator==(const PlannedRow&, const PlannedRow&) = default;
};

/// Something that keeps the file from being imported.
struct PlanFault {
    std::size_t line;
    std::string key;     ///< of the row; empty for a fault of the file
    std::string column;  ///< its caption; empty for a fault of the row
    std::string text;    ///< what stands there
    std::string reason;

    friend bool operator==(const PlanFault&, const PlanFault&) = default;
};

struct ImportPlan {
    std::vector<PlannedRow> rows;
    std::vector<PlanFault> faults;  ///< by line; the file may be imported when there is none

    std::size_t count(Fate fate) const;
    bool mayRun() const { return faults.empty() && count(Fate::added) + count(Fate::changed) > 0; }

    friend bool operator==(const ImportPlan&, const ImportPlan&) = default;
};

/// Compares the rows of a file with those of the table. The first row of the file names the columns, by their captions
/// or their names in the database, in any order and any case; columns that are missing keep their value, but those of
/// the key must be there. Rows are matched by their key; rows of the table that the file does not have stay.
ImportPlan planImport(const Table& table, const CsvContent& file, const std::vector<StoredRow>& stored,
                      const References& references);

}  // namespace velmora::workshop_data
