#pragma once
// One work order, read-only: its header, the sprocket's measures, the material, the sequence of machines.

#include <cstdint>

#include "velmora/adapters/host/record_fields.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::host {

class WorkOrderForm : public screen::Form {
  public:
    /// The connection must outlive the form.
    explicit WorkOrderForm(sql::Connection& connection);

    /// Shows the order with this number; false when there is none. A frame without values is hidden: an order for a
    /// rack has no measures of a sprocket. Errors: the database's.
    bool load(std::int32_t number);

  private:
    void arrange();
    void loadMeasures(std::int32_t order);
    void loadMaterial(std::int32_t number);
    void loadRoute(std::int32_t order);

    sql::Connection& connection_;
    screen::Frame fraOrden_{*this, "fraOrden"};
    Boxes txtOrden_{*this, "txtOrden", {{0, 15}}};
    screen::Frame fraPiñon_{*this, "fraPiñon"};
    Boxes txtPiñon_{*this, "txtPiñon", {{0, 20}}};
    screen::Frame fraMaterial_{*this, "fraMaterial"};
    screen::DataGrid dbgMaterial_{*this, "dbgMaterial"};
    screen::Frame fraRuta_{*this, "fraRuta"};
    screen::DataGrid dbgRuta_{*this, "dbgRuta"};
    screen::Button cmdSalir_{*this, "cmdSalir"};
};

}  // namespace velmora::host
