#pragma once
// Connection strings: "KEYWORD=value;KEYWORD={value};…".

#include <string>
#include <string_view>

namespace velmora::odbc {

/// The connection string itself: the text when it holds a "=", else the first line of the file of that name, so that a
/// password need not stand on a command line. Errors: DbError (provider::failure) for a file that cannot be read or
/// holds none.
std::string readConnectionText(const std::string& textOrFile);

/// The value of a keyword (in any case), without braces; empty when it is missing.
std::string valueOf(std::string_view connectionText, std::string_view keyword);

/// The connection string with another value of a keyword that it has; unchanged when it has none.
std::string withValue(std::string_view connectionText, std::string_view keyword, std::string_view value);

/// `words` with every occurrence of the connection string's password struck out.
std::string withoutPasswordOf(std::string_view connectionText, std::string words);

}  // namespace velmora::odbc
