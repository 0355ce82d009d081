#pragma once
// The files of data/demo, compiled into the program.

#include <span>
#include <string_view>

namespace velmora::data {

/// The text of each file, in order of their names. The first has what an empty workshop needs, too.
std::span<const std::string_view> demoFiles();

}  // namespace velmora::data
