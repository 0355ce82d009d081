#include "component_faces.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "velmora/adapters/documents/grid_spreadsheet.h"
#include "velmora/adapters/documents/proposal_printing.h"
#include "velmora/adapters/scanner/page_scanner.h"
#include "velmora/adapters/scanner/scan_process.h"
#include "velmora/adapters/scanner/scan_program.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/screen/data_grid.h"

#include "late.h"
#include "variants.h"

namespace velmora::wine_host {

namespace {

// Identifiers of the registry for ProgIDs that nobody has registered.
constexpr CLSID printingId{0x5b6a2c10, 0x7d1e, 0x4f0a, {0x9c, 0x31, 0x2a, 0x6e, 0x41, 0x53, 0x10, 0x01}};
constexpr CLSID spreadsheetId{0x5b6a2c10, 0x7d1e, 0x4f0a, {0x9c, 0x31, 0x2a, 0x6e, 0x41, 0x53, 0x10, 0x02}};
constexpr CLSID scannerId{0x5b6a2c10, 0x7d1e, 0x4f0a, {0x9c, 0x31, 0x2a, 0x6e, 0x41, 0x53, 0x10, 0x03}};

constexpr int alignedRight = 1;  ///< Alignment of a column of a grid

/// Error 13 when it is not the very object that the host has handed out.
void mustBeOwn(const HostDesk& desk, IDispatch* given) {
    if (given != desk.sessionFace) {
        runtime::raise(runtime::typeMismatch);
    }
}

Object makePrinting(const HostDesk& desk, std::shared_ptr<painting::Graphics> graphics) {
    const auto printing = std::make_shared<documents::ProposalPrinting>(desk.services, std::move(graphics));
    return makeFace({
        {"mybd", isPut,
         [printing, &desk](Call& call) {
             mustBeOwn(desk, call.object(0));
             printing->setMyBd(desk.session);
         }},
        {"jprintpropuesta", isMethod,
         [printing](Call& call) { printing->jPrintPropuesta(call.value(0).toLong(), call.value(1).toBool()); }},
    });
}

sql::Recordset rowsOf(IDispatch& set) {
    const Object fields = getObject(set, "Fields");
    const int count = get(*fields, "Count").value().toLong();
    std::vector<sql::Column> columns;
    std::vector<Object> cells;
    for (int i = 0; i < count; ++i) {
        cells.push_back(item(*fields, i));
        columns.push_back({get(*cells.back(), "Name").value().toText()});
    }
    std::vector<sql::Row> rows;
    for (; !get(set, "EOF").value().toBool(); call(set, "MoveNext")) {
        sql::Row row;
        for (const Object& cell : cells) {
            row.push_back(get(*cell, "Value").value());
        }
        rows.push_back(std::move(row));
    }
    return sql::Recordset(sql::rowsInMemory(std::move(columns), std::move(rows)));
}

std::vector<screen::GridColumn> columnsOf(IDispatch& grid, const sql::Recordset& rows) {
    const Object columns = getObject(grid, "Columns");
    const int count = get(*columns, "Count").value().toLong();
    std::vector<screen::GridColumn> result;
    for (int i = 0; i < count; ++i) {
        const Object column = item(*columns, i);
        const std::string field = runtime::UCase(get(*column, "DataField").value().toText());
        const auto found = std::ranges::find_if(
            rows.columns(), [&](const sql::Column& candidate) { return runtime::UCase(candidate.name) == field; });
        const bool isBound = found != rows.columns().end();
        result.push_back({.field = isBound ? static_cast<int>(found - rows.columns().begin()) : -1,
                          .caption = get(*column, "Caption").value().toText(),
                          .width = get(*column, "Width").value().toLong(),
                          .mask = get(*column, "NumberFormat").value().toText(),
                          .right = get(*column, "Alignment").value().toLong() == alignedRight,
                          .visible = get(*column, "Visible").value().toBool()});
    }
    return result;
}

Object makeSpreadsheet(const HostDesk& desk) {
    const auto spreadsheet = std::make_shared<documents::GridSpreadsheet>(desk.screen, desk.services, desk.clock);
    return makeFace({
        {"stitulo", isPut, [spreadsheet](Call& call) { spreadsheet->setTitulo(call.text(0)); }},
        {"gridtoexcel", isMethod,
         [spreadsheet](Call& call) {
             sql::Recordset rows = rowsOf(*call.object(0));
             screen::Form form("exported");
             screen::DataGrid grid(form, "grid", -1);
             grid.setColumns(columnsOf(*call.object(1), rows));
             spreadsheet->GridToExcel(rows, grid);
         }},
    });
}

Object makeScanner(const HostDesk& desk, std::shared_ptr<painting::Graphics> graphics) {
    const std::string program = scanner::scanProgram(desk.programs);
    const auto scanner = std::make_shared<scanner::PageScanner>(
        desk.screen, std::make_shared<scanner::ScanProcess>(program), std::move(graphics));
    return makeFace({
        {"fichero", isPut, [scanner](Call& call) { scanner->setFichero(call.text(0)); }},
        {"jconfig", isMethod, [scanner](Call&) { scanner->jConfig(); }},
        {"resultado", isGet, [scanner](Call& call) { give(call.result(), scanner->resultado()); }},
    });
}

}  // namespace

void offerComponents(ClassObjects& classes, const HostDesk& desk) {
    const auto graphics = std::make_shared<painting::Graphics>();
    classes.add("VELMORAIMP.VMORAIMP", printingId, [&desk, graphics] { return makePrinting(desk, graphics); });
    classes.add("LIMBAR.jLimbar", spreadsheetId, [&desk] { return makeSpreadsheet(desk); });
    classes.add("MIRTOL.jMirtol", scannerId, [&desk, graphics] { return makeScanner(desk, graphics); });
}

}  // namespace velmora::wine_host
