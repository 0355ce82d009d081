#pragma once
// The documentation of the files of each table, from its description.

#include <string>

namespace velmora::workshop_data {

/// docs/datos-csv.md, Spanish, for those who prepare the files.
std::string columnSheet();

}  // namespace velmora::workshop_data
