#pragma once
// Looks for proposals by what a person types.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "velmora/finding/wanted.h"
#include "velmora/platform/runtime/date.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::finding {

/// A proposal as a list shows it; what the row has no value for is empty.
struct FoundProposal {
    std::int32_t number = 0;
    std::optional<runtime::Date> created = {};
    std::string customer = {};
    std::string reference = {};
    std::string piece = {};  ///< "Piñon Especial 38 x 12,7"
    std::optional<double> units = {};
    std::optional<double> total = {};  ///< of all pieces, in €
    std::string state = {};            ///< "Pendiente", "Aceptada", "Orden 57"
};

/// How far back the texts of proposals are searched.
// Chosen C-440: by number, toothing and customer every proposal is found; a text is looked for in the latest ones
// unless all are asked for, since each has to be read.
enum class Reach { recent, all };

/// So many of the highest numbers are searched for texts with Reach::recent: as long as a person does not notice it.
inline constexpr std::int64_t recentProposals = 20'000;

struct Found {
    std::vector<FoundProposal> proposals = {};  ///< the one with the number looked for, then from the highest number
    bool reachedAll = true;                     ///< false: older ones were not searched for the text
    bool isCut = false;                         ///< there may be more than are listed
};

/// Nothing wanted gives the latest proposals. Errors: DbError.
Found findProposals(sql::Connection& connection, const Wanted& wanted, Reach reach);

}  // namespace velmora::finding
