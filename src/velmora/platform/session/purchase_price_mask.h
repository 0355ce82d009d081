#pragma once
// How the host's purchase prices are shown.

#include <string>

namespace velmora::session {

class Session;

/// "#0." and a zero for each decimal of the host's setting par_decprecom.
std::string purchasePriceMask(const Session& session);

}  // namespace velmora::session
