#pragma once
// The materials in the grid, and the current one in the fields.

#include <cstdint>
#include <string>

#include "velmora/platform/session/session.h"
#include "velmora/platform/session/shown_row.h"
#include "velmora/platform/sql/recordset.h"
#include "velmora/reference/material_fields.h"

namespace velmora::reference {

class MaterialList {
  public:
    MaterialList(MaterialFields& fields, session::Session& session);

    /// Lists all materials with their articles, by number. Errors: the database's.
    void msCargarParametros() { show(open()); }

    /// The two halves of msCargarParametros, split so that a caller can run the query before replacing the displayed
    /// list.
    sql::Recordset open();
    void show(sql::Recordset rows);

    /// Moves to the material with this number; does not move when there is none.
    void find(const std::string& number);
    void goToLast();

    /// The number of the current material. Error 3021 without one.
    std::string currentId() const { return (*rsAlm_)["PARDPI_ID"].toText(); }
    /// The current material as displayed. Error 3021 without one.
    session::ShownRow currentRow() const;
    /// True when the current material has this number; false without one.
    bool isCurrent(std::int32_t number) const;

  private:
    void msPintaCajas();

    MaterialFields& f_;
    session::Session& session_;
    sql::ListenedRecordset rsAlm_;
};

}  // namespace velmora::reference
