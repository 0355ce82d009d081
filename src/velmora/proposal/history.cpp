#include "velmora/proposal/history.h"

#include <array>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/screen/busy.h"
#include "velmora/proposal/field_names.h"

namespace velmora::proposal {

namespace {

/// A criterion of the toothing: the field of Text1 and its column in each kind of search.
struct Criterion {
    int field;
    const char* always;
    const char* ifFilled;
};

constexpr std::array criteria{
    Criterion{.field = 1, .always = " WHERE DPI_Z = ", .ifFilled = " And DPI_Z = "},
    Criterion{.field = 0, .always = " And DPI_Pas = ", .ifFilled = " and DPI_Pas = "},
    Criterion{.field = 8, .always = " And DPI_Ac = ", .ifFilled = " and DPI_AC = "},
    Criterion{.field = 2, .always = " And DPI_Rodillo = ", .ifFilled = " and DPI_Rodillo = "},
};

/// The condition added by the history's filter, by its index; the last one for any other index.
constexpr std::array filters{
    " And ( not DPI_FAcepta is null ) Order by DPI_FAcepta DESC ",
    " And ( DPI_FAcepta is null ) Order by DPI_Fecha DESC ",
    " Order by DPI_Fecha DESC",
};

std::string withPoint(const std::string& text) {
    return runtime::Replace(text, ",", ".");
}

std::vector<screen::GridColumn> columns() {
    return {
        {.field = 0, .caption = "Presupuesto", .width = 1000, .mask = "000000", .button = true},
        {.field = 1, .caption = "Fecha Presupuesto", .width = 1500, .mask = "dd/mm/yyyy"},
        {.field = 2, .caption = "Fecha Aceptación", .width = 1400, .mask = "dd/mm/yyyy"},
        {.field = 3, .caption = "Orden", .width = 900, .button = true},
        {.field = 4, .caption = "Unidades", .width = 900, .right = true},
        {.field = 5, .caption = "Imp.Unidad", .width = 1200, .mask = "#,##0.00", .right = true},
        {.field = 6, .caption = "Cliente", .width = 800, .right = true},
        {.field = 7, .caption = "Paso", .width = 800},
        {.field = 8, .caption = "A.C.", .width = 800},
        {.field = 9, .caption = "Rodillo", .width = 800},
        {.field = 10, .caption = "Eje", .width = 800},
        {.field = 11, .caption = "Prov.Consultado", .width = 2500},
        {.field = 12, .caption = "Nombre", .width = 3500},
        {.field = 13, .caption = "Material", .width = 2500},
    };
}

}  // namespace

void History::msHistorico(bool bSoloTipo) {
    const screen::Busy busy(screen_, f_.form);
    rsDpi_ = {};
    runtime::ErrorTrap trap;
    trap([&] {
        rsDpi_ = session_.Connection().execute(statement(bSoloTipo));
        controls_.dbgDPI.bind(rsDpi_);
        controls_.dbgDPI.setColumns(columns());
        controls_.dbgDPI.refresh();
    });
    if (trap.failed()) {
        rsDpi_ = {};
        controls_.dbgDPI.bind(rsDpi_);
    }
}

std::string History::statement(bool bSoloTipo) const {
    std::string where = bSoloTipo ? sameTypeAndFilled() : sameToothing();
    if (!f_.proposal.isNew()) {
        where += " and DPI_Id <> " + runtime::CStr(std::int64_t{f_.proposal.key()});
    }
    const int filter = f_.cboFiltroHistorico.listIndex();
    where += filters[filter == 0 || filter == 1 ? static_cast<std::size_t>(filter) : filters.size() - 1];
    return "Select DPI_Id, DPI_Fecha,DPI_FAcepta,DPI_Orden,DPI_Unidades,DPI_ImpTP,DPI_CodCliente,"
           "DPI_Pas,DPI_ac,DPI_rodillo,DPI_Eje,dpi_protex,DPI_NomCliente,(select art_des from art where art_id = "
           "dpi_artdisco) as Material from DPI " +
           where;
}

std::string History::sameToothing() const {
    std::string where;
    for (const Criterion& criterion : criteria) {
        const std::string& text = f_.Text1(criterion.field).text();
        const bool emptyTeeth = criterion.field == 1 && text.empty();
        where += criterion.always + (emptyTeeth ? "0" : withPoint(text));
    }
    return where + " And Dpi_Tipo = " + runtime::CStr(std::int64_t{f_.type()});
}

std::string History::sameTypeAndFilled() const {
    std::string where = " WHERE Dpi_Tipo = " + runtime::CStr(std::int64_t{f_.type()});
    for (const Criterion& criterion : criteria) {
        const estimate::TextBox& box = f_.Text1(criterion.field);
        if (box.holdsNumber() && estimate::number(box) != 0) {
            where += criterion.ifFilled + withPoint(box.text()) + " ";
        }
    }
    return where;
}

}  // namespace velmora::proposal
