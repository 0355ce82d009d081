#pragma once
// The faults that a script can order for the program's connection.

#include <string>

namespace velmora::script {

class Faults {
  public:
    virtual ~Faults() = default;
    /// The next statement that contains `text` fails once (provider::failure) and is not passed on; a column written
    /// through a set counts as the statement "update COLUMN". A second call replaces a text that has not matched yet.
    virtual void refuseNext(std::string text) = 0;
    /// From now on every operation fails with provider::failure. An open transaction is rolled back, as by a server.
    virtual void lose() = 0;
};

}  // namespace velmora::script
