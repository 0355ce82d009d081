#pragma once
// Failures of the operating system in Spanish words. The system's own are in the language that it was set up in.

#include <string>
#include <system_error>

namespace velmora::system {

/// One sentence: "No queda sitio en el disco." A failure without words of ours tells its number.
std::string failureWords(const std::error_code& failure);

}  // namespace velmora::system
