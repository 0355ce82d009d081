#pragma once
// The version of the component, as its captions show it.

#include <string>

namespace velmora::platform {

inline constexpr int majorVersion = 12;
inline constexpr int minorVersion = 10;
inline constexpr int revision = 5;

/// "12.10.5"
inline std::string version() {
    return std::to_string(majorVersion) + "." + std::to_string(minorVersion) + "." + std::to_string(revision);
}

}  // namespace velmora::platform
