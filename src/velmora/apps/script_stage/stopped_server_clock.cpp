#include "velmora/apps/script_stage/stopped_server_clock.h"

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::script_stage {

namespace {

constexpr std::string_view callInCapitals = "GETDATE()";

/// In a form that a server reads alike under every setting.
std::string literalOf(runtime::Date moment) {
    return "convert(datetime,'" + runtime::Format(moment, "yyyymmdd") + " " + runtime::Format(moment, "hh:nn:ss") +
           "')";
}

}  // namespace

std::string withMoment(std::string_view statement, runtime::Date moment) {
    std::string result;
    bool inText = false;
    while (!statement.empty()) {
        inText = inText != (statement.front() == '\'');
        if (!inText && runtime::UCase(statement.substr(0, callInCapitals.size())) == callInCapitals) {
            result += literalOf(moment);
            statement.remove_prefix(callInCapitals.size());
        } else {
            result += statement.front();
            statement.remove_prefix(1);
        }
    }
    return result;
}

}  // namespace velmora::script_stage
