#include "velmora/adapters/session/statement_builder.h"

#include <cstdint>
#include <utility>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::adapters {
namespace {

using session::Field;
using session::Tipo;

/// A bit is 1 in a statement, while the language converts it to -1.
double numberOf(const sql::Value& value) {
    if (value.isBit()) {
        return value.toBool() ? 1.0 : 0.0;
    }
    return value.isText() ? runtime::CDbl(value.toText()) : value.toDouble();
}

std::string renderText(const sql::Value& value) {
    return "N'" + runtime::Replace(value.toText(), "'", "''") + "'";
}

std::string renderNumber(double value, int decimals) {
    const double rounded = runtime::Redondear(value, decimals);
    return runtime::shortest(rounded == 0 ? 0.0 : rounded);
}

runtime::Date dateOf(const sql::Value& value) {
    return value.isText() ? runtime::CDate(value.toText()) : value.toDate();
}

std::string render(Tipo tipo, const sql::Value& value, int decimals) {
    switch (tipo) {
        case Tipo::boolean:
            return numberOf(value) != 0 ? "1" : "0";
        case Tipo::wholeNumber:
            // Chosen C-280: a fraction is rounded half to even, like every conversion to a whole number; a value that
            // does not fit 32 bits is refused here with the column's name, before the server would refuse it.
            return runtime::CStr(std::int64_t{runtime::CLng(numberOf(value))});
        case Tipo::number:
            return renderNumber(numberOf(value), decimals);
        case Tipo::text:
            return renderText(value);
        case Tipo::dateText:
            // Chosen C-284: only the date is written: fields of this kind hold dates, and with a time the row would not
            // be found by a search for the day.
            return "convert(datetime,'" + runtime::Format(dateOf(value), "dd/mm/yyyy") + "',103)";
        case Tipo::date: {
            const runtime::Date date = dateOf(value);
            return "'" + runtime::Format(date, "yyyy-mm-dd") + "T" + runtime::Format(date, "hh:nn:ss") + "'";
        }
        case Tipo::expression:
            return value.toText();
    }
    runtime::raise(runtime::invalidProcedureCall);
}

std::string refusal(const Field& field, const runtime::RuntimeError& error) {
    return "El valor de " + field.nombre + " no es válido: " + error.description();
}

/// Calls `add` with the name and rendered value of each field; returns the refusal of the first that does not fit.
template <typename Add>
std::string forEachRendered(const session::FieldList& fields, Add&& add) {
    if (fields.fields().empty()) {
        return "No hay campos que grabar";
    }
    for (const Field& field : fields.fields()) {
        try {
            add(field.nombre, renderValue(field));
        } catch (const runtime::RuntimeError& error) {
            return refusal(field, error);
        }
    }
    return {};
}

}  // namespace

std::string renderValue(const Field& field) {
    // Chosen C-281: every kind but `expression` writes a null value as NULL, so that a column copied from another row
    // stays null.
    if (field.valor.isNull() && field.tipo != Tipo::expression) {
        return "NULL";
    }
    return render(field.tipo, field.valor, field.decimales);
}

Built buildInsert(std::string_view table, const session::FieldList& fields) {
    std::string names;
    std::string values;
    std::string error = forEachRendered(fields, [&](const std::string& name, const std::string& value) {
        const char* comma = names.empty() ? "" : ",";
        names += comma + name;
        values += comma + value;
    });
    if (!error.empty()) {
        return {.statement = {}, .error = std::move(error)};
    }
    return {.statement = "INSERT INTO " + std::string(table) + " (" + names + ") VALUES (" + values + ")", .error = {}};
}

Built buildUpdate(std::string_view table, const session::FieldList& fields, std::string_view where) {
    std::string assignments;
    std::string error = forEachRendered(fields, [&](const std::string& name, const std::string& value) {
        assignments += (assignments.empty() ? "" : ",") + name + "=" + value;
    });
    if (!error.empty()) {
        return {.statement = {}, .error = std::move(error)};
    }
    return {.statement = "UPDATE " + std::string(table) + " SET " + assignments + std::string(where), .error = {}};
}

}  // namespace velmora::adapters
