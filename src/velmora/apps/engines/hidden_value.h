#pragma once
// A program's command line is shown to every user of the machine (ps).

#include <string_view>

namespace velmora::engines {

/// Overwrites the value of an option ("--dsn VALUE", "--dsn=VALUE") with asterisks wherever it holds a "=", as a
/// connection string does and the name of a file with one does not. To be called once the value has been copied.
void hideValue(std::string_view option, int argc, char** argv);

}  // namespace velmora::engines
