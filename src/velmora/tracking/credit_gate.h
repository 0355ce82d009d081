#pragma once
// The customer's credit, before a proposal may become a work order.

#include <cstdint>

#include "velmora/platform/sql/connection.h"

namespace velmora::tracking {

/// True when the open debt of the customer of that code, together with the amount, reaches his limit: receipts of
/// situation 1 to 4 and delivery notes of situation 1 or 3 count as debt. A customer without risk control never
/// reaches it, a code that nobody has always does. Amounts in euros. Errors: those of the statement.
bool FnRiesgoExcedido(sql::Connection& connection, std::int32_t code, double amount);

/// The financing charge of the customer of that code, in percent; 0 when there is none. Errors: those of the statement.
double FnGastosFinancieros(sql::Connection& connection, std::int32_t code);

}  // namespace velmora::tracking
