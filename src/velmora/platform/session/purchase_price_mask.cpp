#include "velmora/platform/session/purchase_price_mask.h"

#include <algorithm>
#include <cstdint>

#include "velmora/platform/session/session.h"

namespace velmora::session {

std::string purchasePriceMask(const Session& session) {
    // Chosen C-187: without the host's setting, two decimals; more than 15 are limited to 15, the digits that a number
    // has.
    const sql::Value decimals = session.Parametros("par_decprecom");
    const std::int32_t places = decimals.isNull() ? 2 : std::clamp(decimals.toLong(), 0, 15);
    return "#0." + std::string(static_cast<std::size_t>(places), '0');
}

}  // namespace velmora::session
