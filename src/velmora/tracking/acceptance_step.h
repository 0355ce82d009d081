#pragma once
// Data passed between the steps of an acceptance, and the errors that they raise.

#include <cstdint>
#include <string>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/session/session.h"

namespace velmora::tracking {

/// A work order being created.
struct WorkOrder {
    std::int32_t number = 0;      ///< ORDEN_NUM
    std::int32_t id = 0;          ///< ORDEN_ID
    std::int32_t sprocketId = 0;  ///< Opi_Id; stays 0 for a rack
    std::int16_t cuts = 0;        ///< material rows that are cut in the shop
};

/// Numbers of the errors that an acceptance raises itself.
enum AcceptanceError : long {
    connectionLost = -9998,
    writeRefused = -9999,  ///< for the order's row or the mark on the proposal
    sprocketRefused = -99997,
    materialRefused = -9996,
};

/// Throws one of these errors. The specific reason is in its source; its description is the language's text for an
/// unknown error.
[[noreturn]] inline void raise(AcceptanceError number, std::string reason) {
    // Kept K-142: the message box shows only `description`, which stays generic; the specific reason is in `source`.
    throw runtime::RuntimeError(number, runtime::errorDescription(number), std::move(reason));
}

/// Begins the list of columns of a row to be written.
inline session::FieldList& beginRow(session::Session& session, std::string_view table, std::string_view where = "") {
    session.Tabla(table);
    session.Donde(where);
    session.Modo(0);
    return session.Campos();
}

}  // namespace velmora::tracking
