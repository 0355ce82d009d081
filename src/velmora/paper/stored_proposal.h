#pragma once
// A proposal as stored, with the names of what it refers to.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "velmora/estimate/product_drawing.h"
#include "velmora/platform/runtime/date.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::paper {

/// A piece of stock, in millimetres and kilograms; amounts in euros.
struct StoredCut {
    std::string material = {};  ///< PARDPI_NOM
    std::string printed = {};   ///< PARDPI_MATP, the text for the customer
    std::string articleCode = {};
    std::string article = {};
    std::optional<double> diameter = {};  ///< the bar's width for a rack
    std::optional<double> width = {};     ///< the bar's length for a rack
    std::optional<double> inner = {};
    std::optional<double> thickness = {};  ///< of a rack's bar
    std::optional<double> weight = {};
    std::optional<double> price = {};  ///< per kilogram
    std::optional<double> cut = {};
    std::optional<double> amount = {};
};

struct StoredLabour {
    std::string section;
    std::string machine;
    std::string worker;
    std::optional<double> minutes;
    std::optional<double> hours;
    std::optional<double> rate;  ///< euros per hour
    std::optional<double> amount;
};

struct StoredProposal {
    std::int32_t number = 0;
    int type = -1;
    std::optional<runtime::Date> created;
    std::optional<runtime::Date> accepted;
    std::string order;

    std::string customerCode;
    std::string customerName;
    std::string customerReference;
    std::string customerOrder;
    std::optional<runtime::Date> orderDate;
    std::optional<runtime::Date> delivery;
    std::string remarks;
    std::string extra;
    std::string supplier;

    std::string chain;
    estimate::ProductMeasures measures;
    std::optional<double> chainWidth;
    std::optional<double> roller;
    std::optional<double> toothHeight;  ///< H of a wheel
    std::optional<double> setScrews;
    std::string tool;
    bool coupling = false;

    StoredCut disc;
    std::optional<StoredCut> hub;  ///< nullopt when no hub is cut
    std::vector<StoredLabour> labour;

    std::optional<double> material;  ///< euros, like all below
    std::optional<double> labourAmount;
    std::optional<double> subcontracted;
    std::optional<double> others;
    std::optional<double> saw;
    std::optional<double> piece;
    std::optional<double> units;
    std::optional<double> total;
};

/// nullopt when there is no proposal with this number. Errors: DbError.
std::optional<StoredProposal> readProposal(sql::Connection& connection, std::int32_t number);

}  // namespace velmora::paper
