#pragma once
// The papers on which a stored proposal is printed.

#include <cstdint>
#include <string>
#include <vector>

#include "velmora/paper/company.h"
#include "velmora/paper/price_sheets.h"
#include "velmora/paper/sheet.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::paper {

/// A sheet and its file name without a folder.
struct Paper {
    std::string fileName;
    Sheet sheet;
};

/// The papers of a proposal as last saved: the customer's sheet, "Propuesta_000123.pdf", then the shop's,
/// "HojaCorte_000123.pdf"; for an order only the shop's. The company stands on the customer's sheet alone. Errors: 5
/// for a number without a proposal, DbError.
std::vector<Paper> papersOf(sql::Connection& connection, std::int32_t number, bool order, const Company& company = {});

/// The customer's sheet alone, with a price ladder. Errors: as above.
Paper customersPaper(sql::Connection& connection, std::int32_t number, const Company& company,
                     const LadderRequest& ladder);

}  // namespace velmora::paper
