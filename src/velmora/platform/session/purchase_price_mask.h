#pragma once
// The display format of the host's purchase prices.

#include <string>

namespace velmora::session {

class Session;

/// "#0." followed by a zero for each decimal of the host's setting par_decprecom.
std::string purchasePriceMask(const Session& session);

}  // namespace velmora::session
