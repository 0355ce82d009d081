#include "velmora/apps/workshop_data/tables.h"

#include <algorithm>
#include <array>

#include "velmora/apps/workshop_data/cell_text.h"
#include "velmora/apps/workshop_data/references.h"
#include "velmora/apps/workshop_data/staff_columns.h"
#include "velmora/apps/workshop_data/stock_columns.h"
#include "velmora/data/schema.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::workshop_data {

namespace {

// --- Materials of the proposals ------------------------------------------------------------------------------------

constexpr auto materialColumns = std::to_array<Column>({
    {.name = "PARDPI_NOM",
     .caption = "Descripción",
     .explanation = "Como se lee en las listas de disco, cubo y cremallera de una propuesta.",
     .required = true},
    {.name = "PARDPI_ART",
     .caption = "Artículo",
     .explanation = "Código del artículo del que son sus precios.",
     .kind = Kind::reference,
     .required = true,
     .reference = &article,
     .width = 20,
     .startsLine = true},
    {.name = "PARDPI_MATP",
     .caption = "En la propuesta impresa",
     .explanation = "Como se imprime en la propuesta.",
     .startsLine = true},
    {.name = "PARDPI_HIERRO",
     .caption = "Hierro",
     .explanation = "El grueso del disco se toma de las medidas de la chapa de hierro.",
     .kind = Kind::flag,
     .onNew = "No",
     .startsLine = true},
    {.name = "PARDPI_DISCO",
     .caption = "Disco",
     .explanation = "Para discos; sin ello, para cubos.",
     .kind = Kind::flag,
     .onNew = "No"},
    {.name = "PARDPI_CRE",
     .caption = "Cremallera",
     .explanation = "Para cremalleras: el artículo debe tener la fórmula 1, Pletina.",
     .kind = Kind::flag,
     .onNew = "No"},
});
constexpr auto materialKey = std::to_array<std::string_view>({"PARDPI_NOM"});
constexpr auto materialUses = std::to_array<Use>({
    {.column = "PARDPI_ID", .table = "DPI", .byColumn = "DPI_IdParDisco", .words = "propuestas (disco)"},
    {.column = "PARDPI_ID", .table = "DPI", .byColumn = "DPI_IdParCubo", .words = "propuestas (cubo)"},
});

// The lists of a proposal read the number of a material from three digits (K-006).
constexpr std::int32_t lastMaterial = 999;

std::string ruleOfMaterials(const RowTexts& texts, const References& references);

// --- Dimension constants -------------------------------------------------------------------------------------------

constexpr auto measures = std::to_array<Choice>({{1, "Diámetro del cubo"}, {2, "Ancho total"}});

constexpr auto constantColumns = std::to_array<Column>({
    {.name = "Calculos_Tipo",
     .caption = "Medida",
     .explanation = "La medida que se propone: Diámetro del cubo (1) o Ancho total (2).",
     .kind = Kind::choice,
     .required = true,
     .choices = measures,
     .width = 20},
    {.name = "Calculos_Valor1",
     .caption = "Desde",
     .explanation = "Diámetro primitivo desde el que vale, incluido.",
     .kind = Kind::number,
     .required = true,
     .decimals = 2,
     .unit = "mm",
     .width = 10},
    {.name = "Calculos_Valor2",
     .caption = "Hasta",
     .explanation = "Diámetro primitivo hasta el que vale, incluido. Si valen dos, se toma la que acaba antes.",
     .kind = Kind::number,
     .required = true,
     .decimals = 2,
     .unit = "mm",
     .width = 10},
    {.name = "Calculos_Constante",
     .caption = "Constante",
     .explanation = "La medida es el diámetro primitivo por la constante, en múltiplos de 5 mm.",
     .kind = Kind::number,
     .required = true,
     .decimals = 4,
     .width = 10},
});
constexpr auto constantKey = std::to_array<std::string_view>({"Calculos_Tipo", "Calculos_Valor1", "Calculos_Valor2"});

std::string ruleOfConstants(const RowTexts& texts, const References& references);

// --- Customers -----------------------------------------------------------------------------------------------------

constexpr auto customerColumns = std::to_array<Column>({
    {.name = "CLI_COD",
     .caption = "Código",
     .explanation = "El código que se teclea en la propuesta.",
     .kind = Kind::wholeNumber,
     .required = true,
     .least = 1,
     .width = 8},
    {.name = "CLI_NOM",
     .caption = "Nombre fiscal",
     .explanation = "El nombre que se imprime en la propuesta.",
     .required = true},
    {.name = "CLI_COMER",
     .caption = "Nombre comercial",
     .explanation = "El otro nombre por el que se busca.",
     .startsLine = true},
    {.name = "CLI_GtosFinan",
     .caption = "Gastos financieros",
     .explanation = "Tanto por ciento que pasa a la orden de trabajo.",
     .kind = Kind::number,
     .onNew = "0",
     .decimals = 2,
     .unit = "%",
     .most = 100,
     .width = 8,
     .startsLine = true},
    {.name = "CLI_Riesgo",
     .caption = "Control de riesgo",
     .explanation = "No se acepta una propuesta con la que su deuda llegue al riesgo máximo.",
     .kind = Kind::flag,
     .onNew = "No"},
    {.name = "CLI_ImpMaxRiesgo",
     .caption = "Riesgo máximo",
     .explanation = "Importe al que su deuda no puede llegar, si tiene control de riesgo.",
     .kind = Kind::number,
     .onNew = "0",
     .decimals = 2,
     .unit = "€",
     .most = 999999999,
     .width = 12},
});
constexpr auto customerKey = std::to_array<std::string_view>({"CLI_COD"});
constexpr auto customerUses = std::to_array<Use>({
    {.column = "CLI_COD", .table = "DPI", .byColumn = "DPI_CodCliente", .words = "propuestas"},
    {.column = "CLI_COD", .table = "ORDEN", .byColumn = "ORDEN_CLI", .words = "órdenes"},
    {.column = "CLI_ID", .table = "REC", .byColumn = "REC_IdClPr", .words = "recibos"},
    {.column = "CLI_ID", .table = "Cav", .byColumn = "Cav_IdCli", .words = "albaranes"},
});

// -------------------------------------------------------------------------------------------------------------------

constexpr auto tables = std::to_array<Table>({
    {.name = "CLI",
     .fileName = "clientes",
     .title = "Clientes",
     .menu = "&Clientes…",
     .one = "el cliente",
     .newOne = "Cliente nuevo",
     .columns = customerColumns,
     .key = customerKey,
     .ownNumber = "CLI_ID",
     .uses = customerUses},
    {.name = "materiales",
     .fileName = "precios_de_corte",
     .title = "Precios de corte",
     .menu = "Precios de co&rte…",
     .one = "la clase de material",
     .newOne = "Clase de material nueva",
     .columns = sawColumns,
     .key = sawKey,
     .uses = sawUses},
    {.name = "ART",
     .fileName = "articulos",
     .title = "Artículos",
     .menu = "&Artículos…",
     .one = "el artículo",
     .newOne = "Artículo nuevo",
     .columns = articleColumns,
     .key = articleKey,
     .ownNumber = "ART_ID",
     .uses = articleUses},
    {.name = "PARDPI",
     .fileName = "materiales",
     .title = "Materiales de las propuestas",
     .menu = "Materiales de las &propuestas…",
     .one = "el material",
     .newOne = "Material nuevo",
     .columns = materialColumns,
     .key = materialKey,
     .ownNumber = "PARDPI_ID",
     .numberIsIdentity = true,
     .uses = materialUses,
     .fixedWhenUsed = true,
     .lastOwnNumber = lastMaterial,
     .rule = ruleOfMaterials},
    {.name = "RSEC",
     .fileName = "secciones",
     .title = "Secciones",
     .menu = "&Secciones…",
     .one = "la sección",
     .newOne = "Sección nueva",
     .columns = sectionColumns,
     .key = sectionKey,
     .uses = sectionUses},
    {.name = "MAQ",
     .fileName = "maquinas",
     .title = "Máquinas",
     .menu = "Má&quinas…",
     .one = "la máquina",
     .newOne = "Máquina nueva",
     .columns = machineColumns,
     .key = machineKey,
     .uses = machineUses},
    {.name = "OPE",
     .fileName = "operarios",
     .title = "Operarios",
     .menu = "&Operarios…",
     .one = "el operario",
     .newOne = "Operario nuevo",
     .columns = operatorColumns,
     .key = operatorKey,
     .uses = operatorUses},
    {.name = "OBM",
     .fileName = "tarifas",
     .title = "Tarifas por máquina",
     .menu = "&Tarifas por máquina…",
     .one = "la tarifa",
     .newOne = "Tarifa nueva",
     .columns = rateColumns,
     .key = rateKey},
    {.name = "Calculos",
     .fileName = "constantes",
     .title = "Constantes de dimensiones",
     .menu = "Co&nstantes de dimensiones…",
     .one = "la constante",
     .newOne = "Constante nueva",
     .columns = constantColumns,
     .key = constantKey,
     .rule = ruleOfConstants},
});

const std::string& textOf(const RowTexts& texts, std::string_view table, std::string_view column) {
    return texts[positionOf(*findTable(table), column)];
}

// As in the materials' own form: one box clears the other, and a rack is weighed as a plate.
std::string ruleOfMaterials(const RowTexts& texts, const References& references) {
    if (textOf(texts, "PARDPI", "PARDPI_CRE") != yesText) {
        return "";
    }
    if (textOf(texts, "PARDPI", "PARDPI_DISCO") == yesText) {
        return "Un material no puede ser de disco y de cremallera a la vez.";
    }
    const bool plate = references.detailOf(article, textOf(texts, "PARDPI", "PARDPI_ART")) == plateFormula;
    return plate ? "" : "El artículo de un material de cremallera debe tener la fórmula 1, «Pletina».";
}

std::string ruleOfConstants(const RowTexts& texts, const References&) {
    const auto from = numberOf(textOf(texts, "Calculos", "Calculos_Valor1"));
    const auto to = numberOf(textOf(texts, "Calculos", "Calculos_Valor2"));
    return from && to && *from > *to ? "«Desde» es mayor que «Hasta»." : "";
}

}  // namespace

std::span<const Table> allTables() {
    return tables;
}

const Table* findTable(std::string_view name) {
    const auto found = std::ranges::find_if(
        tables, [&](const Table& table) { return runtime::UCase(table.name) == runtime::UCase(name); });
    return found == tables.end() ? nullptr : &*found;
}

std::size_t positionOf(const Table& table, std::string_view column) {
    const auto found = std::ranges::find(table.columns, column, &Column::name);
    if (found == table.columns.end()) {
        runtime::raise(runtime::subscriptOutOfRange);
    }
    return static_cast<std::size_t>(found - table.columns.begin());
}

bool isKey(const Table& table, const Column& column) {
    return std::ranges::find(table.key, column.name) != table.key.end();
}

bool isNumber(const Column& column) {
    return column.kind == Kind::number || column.kind == Kind::wholeNumber;
}

int widthOf(const Table& table, const Column& column) {
    return data::findColumn(*data::findTable(table.name), column.name)->width;
}

}  // namespace velmora::workshop_data
