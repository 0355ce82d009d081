#pragma once
// A statement that runs long, and the person who may end it.

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "velmora/platform/sql/db_error.h"

namespace velmora::sql {

/// What the user sees of a statement that runs long, and the request to end it.
class LongRun {
  public:
    LongRun() = default;
    virtual ~LongRun() = default;
    LongRun(const LongRun&) = delete;
    LongRun& operator=(const LongRun&) = delete;

    /// Asked again and again until the statement's end. May run events of a toolkit; must not use the connection that
    /// runs the statement.
    virtual bool mayGoOn() = 0;
};

/// Called when a statement runs long; what it gives lives until the statement's end. Empty: nobody is asked.
using LongRuns = std::function<std::unique_ptr<LongRun>()>;

/// Number, SQLSTATE and words of the error of a statement that was not allowed to go on.
inline constexpr long cancelled = static_cast<int>(0x80040E4Eu);
inline constexpr const char* cancelledState = "HY008";
inline constexpr const char* cancelledWords = "La consulta se ha cancelado.";

inline DbError cancelledError(std::string_view statement) {
    return {cancelled, cancelledWords, {.sqlState = cancelledState, .statement = std::string(statement)}};
}

}  // namespace velmora::sql
