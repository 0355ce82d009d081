#include "velmora/adapters/documents/grid_spreadsheet.h"

#include "velmora/adapters/documents/files.h"
#include "velmora/adapters/documents/grid_sheet.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::documents {

namespace {

constexpr const char* untitled = "Listado";

// Chosen C-210: the time is part of the name, so that an export does not overwrite another that is still open.
std::string pathOf(const std::string& title, const runtime::Date& now, const system::Services& services) {
    const std::string name = fileName(title);
    return temporaryPath(services,
                         (name.empty() ? untitled : name) + runtime::Format(now, " yyyymmdd hhnnss") + ".xlsx");
}

}  // namespace

void GridSpreadsheet::GridToExcel(sql::Recordset& rows, const screen::DataGrid& grid) {
    const runtime::Date now = clock_.now();
    const std::string path = pathOf(title_, now, services_);
    NewFile file(path);
    {
        const auto progress = screen_.progress("Exportar a excel");
        Workbook book(file.draft(), services_.temporaryFolder());
        book.setTitle(title_);
        GridSheet sheet(book, {.title = title_, .written = now}, grid.columns());
        const bool whole = sheet.write(rows, [&](std::size_t written) {
            progress->show(runtime::Format(static_cast<double>(written), "#,##0") + " filas escritas", std::nullopt);
            return !progress->cancelled();
        });
        if (!whole) {
            return;
        }
        progress->show("Guardando el fichero…", std::nullopt);
        book.close();
    }
    file.keep();
    openDocument(services_, path);
}

}  // namespace velmora::documents
