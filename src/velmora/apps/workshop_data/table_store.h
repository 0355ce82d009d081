#pragma once
// The rows of one table in the database: read as texts, written through the session, and who uses them.

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/apps/workshop_data/references.h"
#include "velmora/apps/workshop_data/row_check.h"
#include "velmora/platform/session/session.h"

namespace velmora::workshop_data {

/// Why no row can be added to a table whose own numbers have reached their last one; Spanish.
std::string numbersUsedUp(const Table& table);

/// All operations run in the transaction of the caller, if there is one. Errors: the database's, as DbError.
class TableStore {
  public:
    /// Both must outlive the store.
    TableStore(session::Session& session, const Table& table) : session_(session), table_(table) {}

    const Table& table() const { return table_; }
    References references() const { return {session_.Connection(), table_}; }

    /// All rows, by their own number or their key.
    std::vector<StoredRow> all(const References& references) const;
    /// The row as it is now; nullopt when it is gone.
    std::optional<StoredRow> find(const std::string& where, const References& references) const;

    /// How many rows can still be added; nullopt: any number. A server that has skipped numbers may allow fewer.
    std::optional<std::int32_t> roomLeft() const;
    /// DbError, Spanish, when the row's own number is one that the program cannot use: the caller's transaction is to
    /// be undone then.
    void insert(std::span<const CellWrite> writes) const;
    void update(const StoredRow& row, std::span<const CellWrite> writes) const;
    void remove(const StoredRow& row) const;

    /// Who uses the row: "propuestas: 3, órdenes: 1"; empty when nobody does.
    std::string usesOf(const StoredRow& row) const;
    /// Who would be left without the row if these columns changed.
    std::string usesOf(const StoredRow& row, std::span<const CellWrite> writes) const;

  private:
    std::vector<StoredRow> read(const std::string& clause, const References& references) const;
    sql::Value valueUsed(const StoredRow& row, const Use& use) const;
    std::string words(const StoredRow& row, std::span<const Use> uses) const;
    std::int32_t highestNumber() const;

    session::Session& session_;
    const Table& table_;
};

}  // namespace velmora::workshop_data
