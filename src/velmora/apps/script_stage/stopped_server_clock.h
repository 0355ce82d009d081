#pragma once
// The time of a server that cannot be stopped, for scripts that stop the clock.

#include <memory>
#include <string>
#include <string_view>

#include "velmora/platform/runtime/date.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::script_stage {

/// The statement with every getdate() outside of texts replaced by this moment.
std::string withMoment(std::string_view statement, runtime::Date moment);

/// Sends every statement with the moment in the place of getdate(); a default of a table that is made through it too.
class StoppedServerClock final : public sql::ForwardingConnection {
  public:
    StoppedServerClock(std::unique_ptr<sql::Connection> server, runtime::Date moment)
        : ForwardingConnection(*server), server_(std::move(server)), moment_(moment) {}

    sql::Recordset execute(std::string_view statement) override {
        return ForwardingConnection::execute(withMoment(statement, moment_));
    }

  private:
    std::unique_ptr<sql::Connection> server_;
    runtime::Date moment_;
};

}  // namespace velmora::script_stage
