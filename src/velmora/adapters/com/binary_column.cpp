#include "velmora/adapters/com/binary_column.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "velmora/adapters/com/set_reading.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/sql/db_error.h"

namespace velmora::com {

namespace {

// Names of ADO.
constexpr std::int32_t openForwardOnly = 0;
constexpr std::int32_t lockOptimistic = 3;
/// The types of binary fields: fixed, variable and long.
constexpr std::array<std::int32_t, 3> binaryTypes{128, 204, 205};

Variant positionVariant(std::size_t index) {
    return Variant::longNumber(static_cast<std::int32_t>(index));
}

Variant cellOf(const LateObject& fields, std::size_t index) {
    return itemOf(fields, positionVariant(index)).getOrDefault("Value");
}

/// True when the current row equals the other in all columns but the written one and other binaries.
bool isThatRow(const LateObject& set, const sql::Row& shown, std::size_t column) {
    const LateObject fields = set.getObject("Fields");
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (i != column && !shown[i].isBytes() && cellOf(fields, i).value() != shown[i]) {
            return false;
        }
    }
    return true;
}

/// Moves the set to that row; false when there is none.
bool moveToRow(const LateObject& set, const sql::Row& shown, std::size_t column) {
    while (!set.get("EOF").value().toBool()) {
        if (isThatRow(set, shown, column)) {
            return true;
        }
        set.call("MoveNext");
    }
    return false;
}

void mustBeBinary(const LateObject& field) {
    if (field.has("Type") && std::ranges::find(binaryTypes, field.get("Type").value().toLong()) == binaryTypes.end()) {
        throw runtime::RuntimeError(notUpdatable, "El conjunto de filas no admite esta actualización.");
    }
}

}  // namespace

void writeBinary(const LateObject& connection, const std::string& statement, const sql::Row& shown, std::size_t column,
                 const sql::Bytes& content) {
    const LateObject set = LateObject::create("ADODB.Recordset");
    set.call("Open", {Variant::text(statement), Variant::object(connection.dispatch()),
                      Variant::longNumber(openForwardOnly), Variant::longNumber(lockOptimistic)});
    mustBeBinary(itemOf(set.getObject("Fields"), positionVariant(column)));
    if (!moveToRow(set, shown, column)) {
        throw sql::DbError(sql::provider::rowGone, "La fila que se iba a actualizar ya no existe.",
                           {.statement = statement});
    }
    itemOf(set.getObject("Fields"), positionVariant(column)).put("Value", Variant::of(content));
    set.call("Update");
    set.call("Close");
}

std::optional<std::size_t> storedLength(const LateObject& set, const sql::Row& shown, std::size_t column) {
    if (isClosed(set)) {
        return std::nullopt;
    }
    if (!moveToRow(set, shown, column)) {
        return std::nullopt;
    }
    // The array itself tells its length: a copy of a large content is not needed.
    const Variant stored = cellOf(set.getObject("Fields"), column);
    if (stored.type() != (VT_ARRAY | VT_UI1)) {
        return std::nullopt;
    }
    LONG first = 0;
    LONG last = -1;
    SafeArrayGetLBound(stored.raw().parray, 1, &first);
    SafeArrayGetUBound(stored.raw().parray, 1, &last);
    return static_cast<std::size_t>(last - first + 1);
}

}  // namespace velmora::com
