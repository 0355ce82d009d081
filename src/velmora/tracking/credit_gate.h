#pragma once
// Check of the customer's credit before a proposal may become a work order.

#include <cstdint>

#include "velmora/platform/sql/connection.h"

namespace velmora::tracking {

/// True when the customer's open debt plus the amount reaches the customer's limit: receipts of situation 1 to 4 and
/// delivery notes of situation 1 or 3 count as debt. Never true without risk control, always true for a code without a
/// customer. Amounts in euros. Errors: those of the statement.
bool FnRiesgoExcedido(sql::Connection& connection, std::int32_t code, double amount);

/// The financing charge of the customer with that code, in percent; 0 when there is none. Errors: those of the
/// statement.
double FnGastosFinancieros(sql::Connection& connection, std::int32_t code);

}  // namespace velmora::tracking
