#pragma once
// The regional conventions for texts and numbers. The process's own locale is never used: a GUI library may change it
// at any time.

#include <string_view>

namespace velmora::runtime {

struct Locale {
    char decimal = ',';
    char thousands = '.';
    std::string_view currency = "€";  ///< accepted by CDbl before or after the number
};

/// Spanish as spoken in Spain: decimal comma, thousands dot, day/month/year.
inline constexpr Locale esES{};

}  // namespace velmora::runtime
