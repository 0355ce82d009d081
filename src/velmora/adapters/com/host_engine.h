#pragma once
// What runs statements on the host's connection; shared by the sets that it opened.

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/com/late_object.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::com {

class HostEngine : public std::enable_shared_from_this<HostEngine> {
  public:
    explicit HostEngine(LateObject connection) : connection_(std::move(connection)) {}

    /// See HostConnection.
    void follow(const LateObject& connection);
    const LateObject& object() const { return connection_; }

    /// Null for a statement without rows.
    std::unique_ptr<sql::RowSource> openRows(const std::string& statement);
    void begin();
    void commit();
    void rollback();
    std::string catalog() const;
    bool isAlive();

    /// Writes the column of the row that `shown` holds, and looks at what was stored. Error 3251 when the column is no
    /// binary one; DbError: provider::rowGone when the statement gives no such row any more.
    void updateBinary(const std::string& statement, const sql::Row& shown, std::size_t column,
                      const sql::Bytes& content);

  private:
    /// Whether transactions begin with the application lock.
    enum class Lock { untried, given, refused };

    void prepare();
    LateObject run(std::string_view statement);
    void step(std::string_view member);
    bool takeLock();
    void lookAtTransaction();

    LateObject connection_;
    bool prepared_ = false;
    bool inTransaction_ = false;
    bool undoneByServer_ = false;  ///< the transaction has ended on the server although nobody ended it here
    Lock lock_ = Lock::untried;
};

}  // namespace velmora::com
