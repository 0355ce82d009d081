#include "velmora/data/schema.h"

#include <algorithm>
#include <array>

#include "velmora/platform/runtime/text.h"

namespace velmora::data {
namespace {

// Widths of texts that more than one column has, in UTF-16 units.
constexpr int nameWidth = 100;
constexpr int referenceWidth = 100;
constexpr int orderNumberWidth = 60;
constexpr int articleCodeWidth = 40;
constexpr int articleTextWidth = 150;
constexpr int remarksWidth = 4000;
constexpr int seriesWidth = 10;

// Chosen C-282: the key of a stored row is never given again, also when the highest row is deleted, as IDENTITY has it:
// an order that names a deleted proposal must not come to name another. The key that a rolled-back insert took may be
// given again: the embedded engine does so, a server leaves the gap.
constexpr ColumnDefinition serverKey(std::string_view name) {
    return {.name = name, .type = ColumnType::integer, .null = Null::no, .identity = true};
}
constexpr ColumnDefinition hostKey(std::string_view name) {
    return {.name = name, .type = ColumnType::integer, .null = Null::no};
}
constexpr ColumnDefinition integer(std::string_view name) {
    return {.name = name, .type = ColumnType::integer};
}
constexpr ColumnDefinition number(std::string_view name) {
    return {.name = name, .type = ColumnType::number};
}
constexpr ColumnDefinition bit(std::string_view name) {
    return {.name = name, .type = ColumnType::bit};
}
constexpr ColumnDefinition text(std::string_view name, int width) {
    return {.name = name, .type = ColumnType::text, .width = width};
}
constexpr ColumnDefinition date(std::string_view name) {
    return {.name = name, .type = ColumnType::date};
}
constexpr ColumnDefinition requiredNumber(std::string_view name) {
    return {.name = name, .type = ColumnType::number, .null = Null::no};
}

// Chosen C-283: the five newer columns stand last, spelled and ordered as an older table gets them at the start of the
// program, so that a new database and an upgraded one are alike.
// Kept K-281: some blanks of what is added are doubled, and each definition ends in one. Required as it is; the
// statements are compared to the letter.
constexpr auto dpi = std::to_array<ColumnDefinition>({
    serverKey("DPI_Id"),
    integer("DPI_Tipo"),
    {.name = "DPI_Fecha", .type = ColumnType::date, .byDefault = "getdate()"},
    date("DPI_FAcepta"),
    integer("DPI_Orden"),
    integer("DPI_CodCliente"),
    text("DPI_NomCliente", nameWidth),
    text("DPI_RefCli", referenceWidth),
    text("DPI_PedCliente", orderNumberWidth),
    date("DPI_FPedCliente"),
    date("DPI_FechaEntrega"),
    text("DPI_Obser", remarksWidth),
    number("DPI_Z"),
    number("DPI_Pas"),
    number("DPI_AC"),
    number("DPI_Rodillo"),
    number("DPI_Eje"),
    number("DPI_Chav"),
    number("DPI_Pri"),
    number("DPI_DmPri"),
    number("DPI_DmFon"),
    number("DPI_DmExt"),
    number("DPI_DmCub"),
    number("DPI_Alt"),
    number("DPI_AnchoTotal"),
    number("DPI_Llanta"),
    number("DPI_AnchoCubo"),
    integer("DPI_PDM_Tipo"),
    text("DPI_PDM_Texto", 60),
    number("DPI_PDM_b1"),
    number("DPI_PDM_x"),
    number("DPI_PDM_h1"),
    integer("DPI_IdParDisco"),
    integer("DPI_ArtDisco"),
    number("DPI_DisCortDM"),
    number("DPI_DisCortAN"),
    number("DPI_DmInterno"),
    number("DPI_DisCortPESO"),
    number("DPI_DisPVE"),
    number("DPI_DisImporte"),
    number("DPI_CosteCorteDisco"),
    number("DPI_FijoSierra"),
    integer("DPI_IdParCubo"),
    integer("DPI_ArtCubo"),
    number("DPI_CubCortDM"),
    number("DPI_CubCortAN"),
    number("DPI_CuboDmInterno"),
    number("DPI_CubCortPESO"),
    number("DPI_CubPVE"),
    number("DPI_CubImporte"),
    number("DPI_ImpMat"),
    number("DPI_ImpMO"),
    number("DPI_ImpTS"),
    number("DPI_ImpVA"),
    number("DPI_ImpTP"),
    number("DPI_Unidades"),
    number("DPI_Importe"),
    {.name = "Dpi_Modulo",
     .type = ColumnType::number,
     .null = Null::no,
     .byDefault = "0",
     .addedAs = "[Dpi_Modulo] [float] NOT NULL  DEFAULT 0 WITH VALUES "},
    {.name = "DPI_HERRAMIENTA",
     .type = ColumnType::text,
     .width = 15,
     .null = Null::no,
     .byDefault = "''",
     .addedAs = "[DPI_HERRAMIENTA] [nvarchar] (15) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES "},
    {.name = "Dpi_Acopla",
     .type = ColumnType::integer,
     .null = Null::no,
     .byDefault = "0",
     .addedAs = "[Dpi_Acopla] [int] NOT NULL DEFAULT 0 WITH VALUES "},
    {.name = "DPI_EXTRA",
     .type = ColumnType::text,
     .width = 200,
     .null = Null::no,
     .byDefault = "''",
     .addedAs = "[DPI_EXTRA] [nvarchar] (200) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES "},
    {.name = "DPI_ProTex",
     .type = ColumnType::text,
     .width = 35,
     .null = Null::no,
     .byDefault = "''",
     .addedAs = "[DPI_ProTex] [nvarchar] (35) COLLATE Modern_Spanish_CI_AS NOT NULL DEFAULT '' WITH VALUES "},
});

constexpr auto pardpi = std::to_array<ColumnDefinition>({
    serverKey("PARDPI_ID"),
    text("PARDPI_NOM", nameWidth),
    integer("PARDPI_ART"),
    bit("PARDPI_HIERRO"),
    bit("PARDPI_DISCO"),
    text("PARDPI_MATP", articleTextWidth),
    {.name = "PARDPI_CRE",
     .type = ColumnType::bit,
     .null = Null::no,
     .byDefault = "0",
     .addedAs = "[PARDPI_CRE] [bit] NOT NULL DEFAULT 0 WITH VALUES "},
});

constexpr auto pdm = std::to_array<ColumnDefinition>({
    serverKey("PDM_ID"),
    integer("PDM_Tipo"),
    text("PDM_Titulo", nameWidth),
    number("PDM_Z"),
    number("PDM_Paso"),
    number("PDM_AC"),
    number("PDM_Rodillo"),
    number("PDM_b1"),
    number("PDM_b2"),
    number("PDM_X"),
    number("PDM_H1"),
    number("PDM_De"),
    number("PDM_Dp"),
    number("PDM_Df"),
    number("PDM_Dm"),
    number("PDM_D2"),
    number("PDM_A"),
});

constexpr auto eng = std::to_array<ColumnDefinition>({
    {.name = "ENG_Id", .type = ColumnType::longKey, .null = Null::no, .identity = true},
    {.name = "ENG_Tipo", .type = ColumnType::integer, .null = Null::no},
    requiredNumber("ENG_Modulo"),
    requiredNumber("ENG_Z"),
    requiredNumber("ENG_Paso"),
    requiredNumber("ENG_Dp"),
    requiredNumber("ENG_Di"),
    requiredNumber("ENG_De"),
    requiredNumber("ENG_Dm"),
    requiredNumber("ENG_D1"),
    requiredNumber("ENG_H"),
    requiredNumber("ENG_A"),
    requiredNumber("ENG_B"),
    requiredNumber("ENG_C"),
});

constexpr auto moDpi = std::to_array<ColumnDefinition>({
    serverKey("MoDpi_Id"),
    integer("MoDpi_Dpi"),
    integer("MoDpi_Ope"),
    integer("MoDpi_Maq"),
    number("MoDpi_Minutos"),
    number("MoDpi_Pvp"),
    number("MoDpi_Tiempo"),
    number("MoDpi_Importe"),
});

constexpr auto calculos = std::to_array<ColumnDefinition>({
    integer("Calculos_Tipo"),
    number("Calculos_Valor1"),
    number("Calculos_Valor2"),
    number("Calculos_Constante"),
});

constexpr auto materiales = std::to_array<ColumnDefinition>({
    hostKey("mat_id"),
    number("mat_pcs"),
});

constexpr auto art = std::to_array<ColumnDefinition>({
    hostKey("ART_ID"),
    text("ART_COD", articleCodeWidth),
    text("ART_DES", articleTextWidth),
    integer("ART_For"),
    number("ART_Fac"),
    number("ART_Pco"),
    number("ART_Pve"),
    integer("ART_Mat"),
    integer("ART_Corte"),
    integer("ART_Estado"),
});

constexpr auto cli = std::to_array<ColumnDefinition>({
    hostKey("CLI_ID"),
    integer("CLI_COD"),
    text("CLI_NOM", nameWidth),
    text("CLI_COMER", nameWidth),
    number("CLI_GtosFinan"),
    integer("CLI_Riesgo"),
    number("CLI_ImpMaxRiesgo"),
});

constexpr auto ope = std::to_array<ColumnDefinition>({
    hostKey("OPE_ID"),
    text("OPE_NOM", nameWidth),
    number("OPE_VENTA"),
    integer("OPE_MAD"),
});

constexpr auto obm = std::to_array<ColumnDefinition>({
    integer("OBM_OPE"),
    integer("OBM_MAQ"),
    number("OBM_PTR"),
});

constexpr auto maq = std::to_array<ColumnDefinition>({
    hostKey("MAQ_ID"),
    text("MAQ_NOM", nameWidth),
    integer("MAQ_SEC"),
});

constexpr auto rsec = std::to_array<ColumnDefinition>({
    hostKey("RSEC_ID"),
    text("RSEC_NOM", nameWidth),
});

constexpr auto cac = std::to_array<ColumnDefinition>({
    hostKey("CAC_ID"),
    date("CAC_FECHA"),
    text("CAC_SERIE", seriesWidth),
    number("CAC_NUMERO"),
    integer("CAC_IDPRO"),
});

constexpr auto lac = std::to_array<ColumnDefinition>({
    integer("LAC_IDCAC"),
    text("LAC_CODART", articleCodeWidth),
    number("LAC_PRECIO"),
    number("LAC_ANCHO"),
    number("LAC_ESPESOR"),
    number("LAC_DEXTERIOR"),
    number("LAC_DINTERIOR"),
    number("LAC_LARGO"),
});

constexpr auto pro = std::to_array<ColumnDefinition>({
    hostKey("PRO_ID"),
});

constexpr auto rec = std::to_array<ColumnDefinition>({
    number("REC_IMPORTE"),
    text("REC_SIT", 1),
    integer("REC_IdClPr"),
});

constexpr auto cav = std::to_array<ColumnDefinition>({
    hostKey("Cav_Id"),
    integer("Cav_Situa"),
    integer("Cav_IdCli"),
});

constexpr auto lav = std::to_array<ColumnDefinition>({
    integer("Lav_Idcav"),
    number("Lav_Importe"),
});

constexpr auto orden = std::to_array<ColumnDefinition>({
    serverKey("ORDEN_ID"),
    integer("ORDEN_NUM"),
    text("ORDEN_SER", seriesWidth),
    integer("ORDEN_CLI"),
    text("ORDEN_NOM", nameWidth),
    number("ORDEN_GF"),
    text("ORDEN_OBS", 150),
    integer("ORDEN_UNI"),
    text("ORDEN_REF", referenceWidth),
    date("ORDEN_INI"),
    text("ORDEN_ADE", 100),
    text("ORDEN_ART", articleCodeWidth),
    date("ORDEN_PLA"),
    number("ORDEN_PRE"),
    integer("ORDEN_IdDPI"),
    text("ORDEN_PED", orderNumberWidth),
    text("ORDEN_DES", 100),
});

constexpr auto ordPinones = std::to_array<ColumnDefinition>({
    serverKey("Opi_Id"),  number("Opi_OrdId"),   number("Opi_Pas"),     number("Opi_Die"),   number("Opi_Rod"),
    number("Opi_Anca"),   number("Opi_Eje"),     number("Opi_Chav"),    number("Opi_Pri"),   number("Opi_DmPri"),
    number("Opi_DmFon"),  number("Opi_DmExt"),   number("Opi_DmCub"),   number("Opi_Alt"),   number("Opi_Ancto"),
    number("Opi_Llanta"), number("Opi_Anccu"),   number("Opi_Disdm"),   number("Opi_DisGr"), number("Opi_Cubdm"),
    number("Opi_CubGr"),  number("Opi_PesoDis"), number("Opi_PesoCub"),
});

constexpr auto mat = std::to_array<ColumnDefinition>({
    integer("Mat_Ord"),
    text("Mat_Ser", seriesWidth),
    text("Mat_Art", articleCodeWidth),
    text("Mat_Des", articleTextWidth),
    number("Mat_Pco"),
    number("Mat_Pve"),
    number("Mat_Can"),
    text("Mat_Med", 10),
    integer("Mat_Tca"),
    number("Mat_Anc"),
    number("Mat_Esp"),
    number("Mat_Dex"),
    number("Mat_Din"),
    number("Mat_Lar"),
    integer("Mat_Uni"),
    text("Mat_For", 10),
    integer("Mat_FCA"),
    number("Mat_Fac"),
    integer("Mat_Mat"),
    number("Mat_Imp"),
    integer("Mat_Idp"),
    number("MAT_DmCorte"),
    number("MAT_CubCorte"),
    number("MAT_UdCorte"),
    number("MAT_LargoCorte"),
});

constexpr auto rut = std::to_array<ColumnDefinition>({
    integer("RUT_IdUsu"),
    integer("RUT_pos"),
    integer("RUT_IdOrden"),
    integer("RUT_NumOrden"),
    integer("RUT_Maq"),
    number("RUT_Estimado"),
    integer("RUT_Mpos"),
});

constexpr auto dex = std::to_array<ColumnDefinition>({
    serverKey("Dex_Id"),
    integer("Dex_IdExp"),
    integer("Dex_IdAct"),
    {.name = "Dex_Doc", .type = ColumnType::binary},
    text("Dex_Fic", 260),
    text("Dex_FicDes", 260),
    integer("Dex_IdUsu"),
    integer("Dex_Estado"),
    number("Dex_Importe"),
    date("Dex_Fecha"),
});

constexpr auto allTables = std::to_array<TableDefinition>({
    {.name = "DPI", .owner = Owner::program, .columns = dpi, .key = "DPI_Id"},
    {.name = "PARDPI", .owner = Owner::program, .columns = pardpi, .key = "PARDPI_ID"},
    {.name = "PDM", .owner = Owner::program, .columns = pdm, .key = "PDM_ID"},
    {.name = "ENG", .owner = Owner::program, .columns = eng, .key = "ENG_Id"},
    {.name = "MoDpi", .owner = Owner::program, .columns = moDpi, .key = "MoDpi_Id"},
    {.name = "Calculos", .owner = Owner::program, .columns = calculos},
    {.name = "materiales", .owner = Owner::host, .columns = materiales, .key = "mat_id"},
    {.name = "ART", .owner = Owner::host, .columns = art, .key = "ART_ID"},
    {.name = "CLI", .owner = Owner::host, .columns = cli, .key = "CLI_ID"},
    {.name = "RSEC", .owner = Owner::host, .columns = rsec, .key = "RSEC_ID"},
    {.name = "MAQ", .owner = Owner::host, .columns = maq, .key = "MAQ_ID"},
    {.name = "OPE", .owner = Owner::host, .columns = ope, .key = "OPE_ID"},
    {.name = "OBM", .owner = Owner::host, .columns = obm},
    {.name = "PRO", .owner = Owner::host, .columns = pro, .key = "PRO_ID"},
    {.name = "CAC", .owner = Owner::host, .columns = cac, .key = "CAC_ID"},
    {.name = "LAC", .owner = Owner::host, .columns = lac},
    {.name = "REC", .owner = Owner::host, .columns = rec},
    {.name = "Cav", .owner = Owner::host, .columns = cav, .key = "Cav_Id"},
    {.name = "Lav", .owner = Owner::host, .columns = lav},
    {.name = "ORDEN", .owner = Owner::host, .columns = orden, .key = "ORDEN_ID"},
    {.name = "OrdPiñones", .owner = Owner::host, .columns = ordPinones, .key = "Opi_Id"},
    {.name = "Mat", .owner = Owner::host, .columns = mat},
    {.name = "RUT", .owner = Owner::host, .columns = rut},
    {.name = "dex", .owner = Owner::host, .columns = dex, .key = "Dex_Id", .catalog = Catalog::documents},
});

constexpr auto allIndexes = std::to_array<IndexDefinition>({
    {.name = "IX_DPI_Fecha", .table = "DPI", .columns = "DPI_Fecha"},
    {.name = "IX_DPI_Toothing", .table = "DPI", .columns = "DPI_Z, DPI_Pas, DPI_AC, DPI_Rodillo, DPI_Tipo, DPI_Fecha"},
    {.name = "IX_DPI_Type", .table = "DPI", .columns = "DPI_Tipo, DPI_Fecha"},
    {.name = "IX_DPI_TypeKey", .table = "DPI", .columns = "DPI_Tipo"},
    {.name = "IX_DPI_Accepted", .table = "DPI", .columns = "DPI_FAcepta, DPI_Fecha"},
    {.name = "IX_DPI_CustomerDate", .table = "DPI", .columns = "DPI_CodCliente, DPI_Fecha"},
    {.name = "IX_MoDpi_Dpi", .table = "MoDpi", .columns = "MoDpi_Dpi"},
    {.name = "IX_OPE_Machine", .table = "OPE", .columns = "OPE_MAD"},
    {.name = "IX_OBM_Machine", .table = "OBM", .columns = "OBM_MAQ"},
    {.name = "IX_PDM_Chain", .table = "PDM", .columns = "PDM_Tipo, PDM_Z"},
    {.name = "IX_LAC_Article", .table = "LAC", .columns = "LAC_CODART"},
    {.name = "IX_REC_Customer", .table = "REC", .columns = "REC_IdClPr"},
    {.name = "IX_Cav_Customer", .table = "Cav", .columns = "Cav_IdCli"},
    {.name = "IX_Lav_Note", .table = "Lav", .columns = "Lav_Idcav"},
    {.name = "IX_ORDEN_Number", .table = "ORDEN", .columns = "ORDEN_NUM"},
    {.name = "IX_RUT_Machine", .table = "RUT", .columns = "RUT_Maq, RUT_Mpos"},
});

bool sameName(std::string_view a, std::string_view b) {
    return runtime::UCase(a) == runtime::UCase(b);
}

}  // namespace

std::span<const TableDefinition> tables() {
    return allTables;
}

std::span<const IndexDefinition> indexes() {
    return allIndexes;
}

const TableDefinition* findTable(std::string_view name) {
    const auto found =
        std::ranges::find_if(allTables, [&](const TableDefinition& table) { return sameName(table.name, name); });
    return found == allTables.end() ? nullptr : &*found;
}

const ColumnDefinition* findColumn(const TableDefinition& table, std::string_view name) {
    const auto found = std::ranges::find_if(
        table.columns, [&](const ColumnDefinition& column) { return sameName(column.name, name); });
    return found == table.columns.end() ? nullptr : &*found;
}

std::string catalogPrefix(Catalog catalog, std::string_view sessionCatalog) {
    return catalog == Catalog::session ? std::string() : "DOC" + std::string(sessionCatalog) + ".dbo.";
}

}  // namespace velmora::data
