#pragma once
// Gears and gear discs, whose measures are read from a row of the table ENG.

#include <cstdint>

#include "velmora/estimate/field_map.h"
#include "velmora/estimate/material_lists.h"
#include "velmora/estimate/presentation.h"

namespace velmora::estimate {

/// The column of ENG from which a gear fills the field of Text1; nullptr for a measure that gears lack, which is 0.
/// Every field of a wheel's toothing and widths has one or the other.
const char* gearColumn(int field);

/// The gears of a module (mm) and a number of teeth: rows of ENG. Errors: the database's.
sql::Recordset gearsOf(session::Session& session, double module, double teeth);

class Gears {
  public:
    Gears(FieldMap& fields, Presentation& presentation, MaterialLists& materials, session::Session& session)
        : f_(fields), presentation_(presentation), materials_(materials), session_(session) {}

    /// Fills the common measures (mm) from a gear, an ENG_Id, and updates the disc's row and prices; does nothing when
    /// there is no such row. Errors: the database's; 13 with no material chosen for the disc.
    void takeOver(std::int32_t nIdEngranaje);

  private:
    FieldMap& f_;
    Presentation& presentation_;
    MaterialLists& materials_;
    session::Session& session_;
};

}  // namespace velmora::estimate
