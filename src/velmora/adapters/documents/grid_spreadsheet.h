#pragma once
// A grid as a spreadsheet file that is opened at once: the stand-in for LIMBAR.jLimbar.

#include <string>
#include <string_view>

#include "velmora/platform/components/components.h"
#include "velmora/platform/screen/screen.h"
#include "velmora/platform/system/system.h"

namespace velmora::documents {

/// Writes the visible columns in the grid's order to an .xlsx in the temporary folder, named after the title and the
/// clock. Numbers and dates stay numbers and dates with the grid's masks as formats. Nothing is written when the user
/// cancels. Errors: 75 and 76 for a file that cannot be written or opened.
class GridSpreadsheet final : public components::Spreadsheet {
  public:
    GridSpreadsheet(screen::Screen& screen, system::Services& services, const system::Clock& clock)
        : screen_(screen), services_(services), clock_(clock) {}

    void setTitulo(std::string_view sTitulo) override { title_ = sTitulo; }
    /// Rows are read one by one and never counted.
    void GridToExcel(sql::Recordset& rows, const screen::DataGrid& grid) override;

  private:
    screen::Screen& screen_;
    system::Services& services_;
    const system::Clock& clock_;
    std::string title_;
};

}  // namespace velmora::documents
