#pragma once
// A grid of the program as others see it: its columns and its rows.

#include "velmora/adapters/com/automation_object.h"
#include "velmora/adapters/com/collection.h"
#include "velmora/platform/screen/data_grid.h"

namespace velmora::com {

/// A copy of the columns: it may be kept after the grid has gone. `DataSource` is the given object.
class GridFace final : public AutomationObject<GridFace> {
  public:
    GridFace(const screen::DataGrid& grid, Variant rows);
    static std::span<const Member<GridFace>> members();

  private:
    void columns(Call& call);
    void dataSource(Call& call);

    Ref<Collection> columns_;
    Variant rows_;
};

}  // namespace velmora::com
