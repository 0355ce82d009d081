#pragma once
// Records what an operation sends to a server over ODBC, and sends the same without the program. The linker puts this
// file's functions in the place of the driver manager's (see CMakeLists.txt).

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "velmora/adapters/odbc/handles.h"

namespace velmora::bench {

/// One round trip.
struct SentStatement {
    std::u16string text;
    std::int64_t rows = 0;  ///< fetched until the operation returned
    bool ended = false;     ///< the end of the rows was reached too
};

using SentStatements = std::vector<SentStatement>;

/// Runs the work once and gives what it sent, in order. A connection that was opened and a look at a table's key stand
/// there by the name of the call.
SentStatements recordCalls(const std::function<void()>& work);

/// A client that consists of the driver manager's calls alone. Each value is fetched by a call of its own, as the
/// type that fits it best. Throws
/// std::runtime_error for whatever the server refuses, because a failing replay would be a fast one.
class BareClient {
  public:
    /// Connects and makes the session's settings.
    explicit BareClient(const std::string& connectionText);
    ~BareClient();
    BareClient(const BareClient&) = delete;
    BareClient& operator=(const BareClient&) = delete;

    /// Sends the statements and fetches as many rows as recorded. Gives the seconds that it took, without the closing
    /// of sets whose end was not recorded.
    double replay(const SentStatements& statements);

  private:
    double send(const SentStatement& statement);

    odbc::ConnectionHandle connection_;
};

}  // namespace velmora::bench
