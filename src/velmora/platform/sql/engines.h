#pragma once
// The engines that a program knows, by name: which one opens a data source is written in the source itself.

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/sql/connection.h"

namespace velmora::sql {

/// A program makes one, registers the engines that it was built with (sqlite::registerIn(engines)), and opens its
/// connection through it.
class Engines {
  public:
    /// Opens what stands behind the name and the colon of a data source. Errors: DbError.
    using Open = std::function<std::unique_ptr<Connection>(const std::string& target)>;

    /// The name is spelt in small letters and digits. Errors: std::logic_error for a name that is registered already.
    void add(std::string name, Open open);

    /// In alphabetical order.
    std::vector<std::string> names() const;

    /// Opens "NAME:TARGET", the name in any case, for example "sqlite:/var/lib/taller.db" or "sqlite::memory:".
    /// Errors: DbError (provider::failure, SQLSTATE IM002) that lists the known names when the source names none of
    /// them; the engine's own when it cannot open the target.
    std::unique_ptr<Connection> open(std::string_view source) const;

  private:
    std::map<std::string, Open, std::less<>> engines_;
};

}  // namespace velmora::sql
