#pragma once
// The data connection of the host's session: an object with the members of an ADO Connection.

#include <memory>
#include <string>
#include <string_view>

#include "velmora/adapters/com/late_object.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::com {

class HostEngine;

/// Rows of a set are copied when it is opened, and with them the program keeps its promises of a set; the host's set is
/// released. One statement after the other runs on the host's connection, inside the host's transaction if it has one
/// open. Errors: DbError with the number, description and source that the host's connection raises; SQLSTATE and native
/// number where it offers `Errors`.
class HostConnection final : public sql::Connection {
  public:
    explicit HostConnection(const LateObject& connection);
    ~HostConnection() override;
    HostConnection(const HostConnection&) = delete;
    HostConnection& operator=(const HostConnection&) = delete;

    /// From now on statements run on this object. Nothing happens when it is the same as before; for another one an
    /// open transaction counts as ended and the settings of a new connection are sent.
    void follow(const LateObject& connection);
    const LateObject& object() const;

    sql::Recordset execute(std::string_view statement) override;
    void beginTrans() override;
    void commitTrans() override;
    void rollbackTrans() override;
    std::string currentCatalog() const override;
    bool isAlive() override;

  private:
    std::shared_ptr<HostEngine> engine_;
};

}  // namespace velmora::com
