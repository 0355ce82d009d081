#include "velmora/platform/session/purchase_price_mask.h"

#include <algorithm>
#include <cstdint>

#include "velmora/platform/session/session.h"

namespace velmora::session {

std::string purchasePriceMask(const Session& session) {
    // Chosen C-187: a host without the setting gets two decimals; what no number has is cut to 15.
    const sql::Value decimals = session.Parametros("par_decprecom");
    const std::int32_t places = decimals.isNull() ? 2 : std::clamp(decimals.toLong(), 0, 15);
    return "#0." + std::string(static_cast<std::size_t>(places), '0');
}

}  // namespace velmora::session
