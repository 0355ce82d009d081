#include "velmora/apps/workshop_data/import_form.h"

#include <cstdint>
#include <utility>
#include <vector>

#include "velmora/apps/workshop_data/cell_text.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::workshop_data {

namespace {

constexpr std::size_t longestQuote = 60;

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
    return countText(count) + " " + std::string(count == 1 ? one : many);
}

sql::Value lineOf(std::size_t line) {
    return static_cast<std::int64_t>(line);
}

std::vector<screen::GridColumn> previewColumns() {
    return {{.field = 0, .caption = "Línea", .width = 900, .right = true},
            {.field = 1, .caption = "Fila", .width = 2400},
            {.field = 2, .caption = "Qué", .width = 900},
            {.field = 3, .caption = "Columna", .width = 2400},
            {.field = 4, .caption = "Detalle", .width = 7200}};
}

void addFault(const PlanFault& fault, std::vector<sql::Row>& rows) {
    const std::string given = fault.text.empty() ? "" : "«" + runtime::Left(fault.text, longestQuote) + "»: ";
    rows.push_back({lineOf(fault.line), fault.key, "Error", fault.column, given + fault.reason});
}

void addChanges(const Table& table, const PlannedRow& row, std::vector<sql::Row>& rows) {
    for (const CellWrite& write : row.check.writes) {
        const std::string& before = row.existing.texts[write.column];
        const std::string& after = row.check.texts[write.column];
        rows.push_back({lineOf(row.line), row.key, "Cambia", std::string(table.columns[write.column].caption),
                        (before.empty() ? "(nada)" : before) + " → " + (after.empty() ? "(nada)" : after)});
    }
}

void addNew(const PlannedRow& row, std::vector<sql::Row>& rows) {
    std::string all;
    for (const std::string& text : row.check.texts) {
        all += (all.empty() ? "" : "; ") + text;
    }
    rows.push_back({lineOf(row.line), row.key, "Nueva", "", all});
}

}  // namespace

std::string summaryOf(const ImportPlan& plan, const std::string& fileName) {
    const std::string counts = counted(plan.count(Fate::added), "fila nueva", "filas nuevas") + ", " +
                               counted(plan.count(Fate::changed), "cambia", "cambian") + ", " +
                               counted(plan.count(Fate::equal), "igual", "iguales");
    const std::string errors = plan.faults.empty() ? "" : ", " + counted(plan.faults.size(), "error", "errores");
    return fileName + ": " + counts + errors;
}

std::vector<sql::Row> previewOf(const Table& table, const ImportPlan& plan) {
    std::vector<sql::Row> rows;
    for (const PlanFault& fault : plan.faults) {
        addFault(fault, rows);
    }
    if (!plan.faults.empty()) {
        return rows;
    }
    for (const PlannedRow& row : plan.rows) {
        if (row.fate == Fate::added) {
            addNew(row, rows);
        } else if (row.fate == Fate::changed) {
            addChanges(table, row, rows);
        }
    }
    return rows;
}

ImportForm::ImportForm(const Table& table, const ImportPlan& plan, const std::string& fileName)
    : Form("frmImportar"), plan_(plan) {
    setCaption("Importar: " + std::string(table.title));
    lblResumen_.setCaption(summaryOf(plan, fileName));
    dbgFilas_.setAccessibleName("Filas del archivo");
    dbgFilas_.bind(sql::Recordset(
        sql::rowsInMemory({{"Linea"}, {"Fila"}, {"Que"}, {"Columna"}, {"Detalle"}}, previewOf(table, plan))));
    dbgFilas_.setColumns(previewColumns());
    arrange();
    wire();
}

void ImportForm::arrange() {
    namespace lay = screen::layout;
    if (!plan_.faults.empty()) {
        lblAviso_.setCaption("No se graba nada: corrija los errores en el archivo y vuelva a importarlo.");
        lblAviso_.setForeColor(screen::colors::red);
    } else if (!plan_.mayRun()) {
        lblAviso_.setCaption("No hay nada que grabar: todo está ya como en el archivo.");
    } else {
        lblAviso_.setCaption("Se graba todo o nada. Lo que no está en el archivo se queda como está.");
    }
    cmdImportar_.setCaption("&Importar (F5)");
    cmdImportar_.setEnabled(plan_.mayRun());
    cmdCancelar_.setCaption(plan_.mayRun() ? "&Cancelar (ESC)" : "&Cerrar (ESC)");
    setLayout(lay::column(lay::plain(lblResumen_), lay::plain(lblAviso_), lay::plain(dbgFilas_).stretched(),
                          lay::row(lay::plain(cmdImportar_), lay::space(), lay::plain(cmdCancelar_))));
    setTabOrder({&cmdImportar_, &cmdCancelar_, &dbgFilas_});
}

void ImportForm::wire() {
    cmdImportar_.onClick = [this] { accept(); };
    cmdCancelar_.onClick = [this] { unload(); };
    onKeyDown = [this](screen::KeyDown& event) {
        if (event.key == screen::Key::escape) {
            event.key = screen::Key::none;
            unload();
        } else if (event.key == screen::Key::f5) {
            event.key = screen::Key::none;
            accept();
        }
    };
}

void ImportForm::accept() {
    if (plan_.mayRun()) {
        wanted_ = true;
        unload();
    }
}

}  // namespace velmora::workshop_data
