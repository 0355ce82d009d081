#include "velmora/adapters/com/provider_errors.h"

#include <string>

#include "velmora/adapters/com/set_reading.h"

namespace velmora::com {

namespace {

sql::DbError::Details detailsOf(const LateObject& connection, std::string_view statement) {
    sql::DbError::Details details{.statement = std::string(statement)};
    try {
        if (!connection.has("Errors")) {
            return details;
        }
        const LateObject errors = connection.getObject("Errors");
        if (errors.get("Count").value().toLong() > 0) {
            const LateObject first = itemOf(errors, Variant::longNumber(0));
            details.nativeCode = static_cast<int>(first.get("NativeError").value().toLong());
            details.sqlState = first.get("SQLState").value().toText();
        }
    } catch (const runtime::RuntimeError&) {
        // The details are an addition: the error itself is known.
    }
    return details;
}

}  // namespace

sql::DbError providerError(const runtime::RuntimeError& error, const LateObject& connection,
                           std::string_view statement) {
    sql::DbError told(error.number(), error.description(), detailsOf(connection, statement));
    static_cast<runtime::RuntimeError&>(told) = error;  // with the source that the host has given
    return told;
}

}  // namespace velmora::com
