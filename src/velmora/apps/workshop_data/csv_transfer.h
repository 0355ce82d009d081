#pragma once
// A table to a file and back: all rows out; a plan of what a file would change, and that plan carried out.

#include <string>
#include <variant>

#include "velmora/apps/workshop_data/cell_text.h"
#include "velmora/apps/workshop_data/import_plan.h"
#include "velmora/apps/workshop_data/table_store.h"
#include "velmora/platform/screen/screen.h"

namespace velmora::workshop_data {

/// The bytes of a file with all rows of the table, which an import takes back. Errors: the database's.
std::string csvOfTable(const TableStore& store);

/// The content of a file; a fault for one that is no text.
CsvContent contentOf(const std::string& bytes);

/// What the file would do now. Errors: the database's.
ImportPlan planNow(const TableStore& store, const CsvContent& file);

enum class Imported {
    all,
    outdated,   ///< the table has changed since the plan was made; nothing has been written
    cancelled,  ///< by the user; nothing has been written
};

/// Carries the plan out in one transaction, in which it is made again and compared. Errors: the database's; nothing has
/// been written then.
Imported importNow(sql::Connection& connection, const TableStore& store, const CsvContent& file, const ImportPlan& plan,
                   screen::Progress& progress);

/// The bytes of a file, or why it cannot be read, Spanish: missing, forbidden, larger than 64 MB.
std::variant<std::string, Refusal> readFile(const std::string& path);

/// Writes a file as a whole or not at all: what was there before stays until the new one is complete. Returns why it
/// cannot be written, Spanish; an empty text when it has been.
std::string writeFile(const std::string& path, const std::string& bytes);

}  // namespace velmora::workshop_data
