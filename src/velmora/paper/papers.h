#pragma once
// Which papers a stored proposal is printed on.

#include <cstdint>
#include <string>
#include <vector>

#include "velmora/paper/sheet.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::paper {

/// A sheet and the name of the file that holds it, without a folder.
struct Paper {
    std::string fileName;
    Sheet sheet;
};

/// The papers of a proposal as it was last saved: the customer's sheet, "Propuesta_000123.pdf", then the shop's,
/// "HojaCorte_000123.pdf"; for an order the shop's alone. Errors: 5 for a number that no proposal has, DbError.
std::vector<Paper> papersOf(sql::Connection& connection, std::int32_t number, bool order);

}  // namespace velmora::paper
