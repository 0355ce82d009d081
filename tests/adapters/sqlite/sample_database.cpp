#include "sample_database.h"

#include "velmora/adapters/sqlite/database.h"
#include "velmora/adapters/tsql/conversions.h"
#include "velmora/platform/runtime/numbers.h"

#include "support/database_template.h"

namespace velmora::test {

namespace {

constexpr const char* tables[] = {
    "CREATE TABLE [dbo].[DPI] ([DPI_Id] [int] IDENTITY (1, 1) NOT NULL, [DPI_Tipo] [int] NOT NULL, "
    "[DPI_Fecha] [datetime] NOT NULL DEFAULT getdate(), [DPI_FAcepta] [datetime] NULL, [DPI_Orden] [int] NULL, "
    "[DPI_CodCliente] [int] NULL, [DPI_NomCliente] [nvarchar] (100) NULL, [DPI_RefCli] [nvarchar] (50) NULL, "
    "[DPI_PedCliente] [nvarchar] (50) NULL, [DPI_FPedCliente] [datetime] NULL, [DPI_FechaEntrega] [datetime] NULL, "
    "[DPI_Obser] [ntext] NULL, [DPI_Z] [float] NULL, [DPI_Pas] [float] NULL, [DPI_AC] [float] NULL, "
    "[DPI_Rodillo] [float] NULL, [DPI_Eje] [float] NULL, [DPI_IdParDisco] [int] NULL, [DPI_IdParCubo] [int] NULL, "
    "[DPI_ArtDisco] [int] NULL, [DPI_ArtCubo] [int] NULL, [DPI_CosteCorteDisco] [float] NULL DEFAULT 8.2, "
    "[DPI_ImpTP] [float] NULL, [DPI_Unidades] [float] NULL, [DPI_Importe] [float] NULL, "
    "[DPI_PDM_Tipo] [int] NULL, [DPI_PDM_Texto] [nvarchar] (50) NULL, "
    "CONSTRAINT [PK_DPI] PRIMARY KEY CLUSTERED ([DPI_Id]) ON [PRIMARY]) ON [PRIMARY] TEXTIMAGE_ON [PRIMARY]",
    "CREATE TABLE PARDPI (PARDPI_ID int IDENTITY (1, 1) PRIMARY KEY, PARDPI_NOM nvarchar(50), PARDPI_ART int, "
    "PARDPI_HIERRO bit, PARDPI_DISCO bit, PARDPI_MATP nvarchar(100))",
    "CREATE TABLE PDM (PDM_ID int IDENTITY (1, 1) PRIMARY KEY, PDM_Tipo int, PDM_Titulo nvarchar(50), PDM_Z float, "
    "PDM_Paso float)",
    "CREATE TABLE MoDpi (MoDpi_Id int IDENTITY (1, 1) PRIMARY KEY, MoDpi_Dpi int, MoDpi_Ope int, MoDpi_Maq int, "
    "MoDpi_Minutos float, MoDpi_Pvp float, MoDpi_Tiempo float, MoDpi_Importe float)",
    "CREATE TABLE Calculos (Calculos_Tipo int, Calculos_Valor1 float, Calculos_Valor2 float, Calculos_Constante float)",
    "CREATE TABLE ART (ART_ID int NOT NULL PRIMARY KEY, ART_COD nvarchar(20), ART_DES nvarchar(100), ART_For int, "
    "ART_Fac float, ART_Pco float, ART_Pve float, ART_Mat int, ART_Corte int, ART_Estado int)",
    "CREATE TABLE CLI (CLI_ID int NOT NULL PRIMARY KEY, CLI_COD int, CLI_NOM nvarchar(100), CLI_COMER nvarchar(100), "
    "CLI_GtosFinan float, CLI_Riesgo int, CLI_ImpMaxRiesgo float)",
    "CREATE TABLE materiales (mat_id int NOT NULL PRIMARY KEY, mat_pcs float)",
    "CREATE TABLE OPE (OPE_ID int NOT NULL PRIMARY KEY, OPE_NOM nvarchar(50), OPE_VENTA float, OPE_MAD int)",
    "CREATE TABLE OBM (OBM_OPE int, OBM_MAQ int, OBM_PTR float)",
    "CREATE TABLE MAQ (MAQ_ID int NOT NULL PRIMARY KEY, MAQ_NOM nvarchar(50), MAQ_SEC int)",
    "CREATE TABLE RSEC (RSEC_ID int NOT NULL PRIMARY KEY, RSEC_NOM nvarchar(50))",
    "CREATE TABLE CAC (CAC_ID int NOT NULL PRIMARY KEY, CAC_FECHA datetime, CAC_SERIE nvarchar(5), CAC_NUMERO int, "
    "CAC_IDPRO int)",
    "CREATE TABLE LAC (LAC_IDCAC int, LAC_CODART nvarchar(20), LAC_PRECIO float, LAC_ANCHO float, LAC_ESPESOR float, "
    "LAC_DEXTERIOR float, LAC_DINTERIOR float, LAC_LARGO float)",
    "CREATE TABLE PRO (PRO_ID int NOT NULL PRIMARY KEY)",
    "CREATE TABLE REC (REC_IMPORTE float, REC_SIT nvarchar(1), REC_IdClPr int)",
    "CREATE TABLE Cav (Cav_Id int NOT NULL PRIMARY KEY, Cav_Situa int, Cav_IdCli int)",
    "CREATE TABLE Lav (Lav_Idcav int, Lav_Importe float)",
    "CREATE TABLE ORDEN (ORDEN_ID int IDENTITY (1, 1) PRIMARY KEY, ORDEN_NUM int, ORDEN_SER nvarchar(5), ORDEN_CLI "
    "int, "
    "ORDEN_NOM nvarchar(100), ORDEN_REF nvarchar(50), ORDEN_INI datetime, ORDEN_ADE nvarchar(100), ORDEN_ART "
    "nvarchar(20), "
    "ORDEN_PLA datetime NULL, ORDEN_PRE float)",
    "CREATE TABLE [OrdPiñones] (Opi_Id int IDENTITY (1, 1) PRIMARY KEY, Opi_OrdId int, Opi_Pas float, Opi_Die float)",
    "CREATE TABLE RUT (RUT_IdUsu int, RUT_pos int, RUT_IdOrden int, RUT_NumOrden int, RUT_Maq int, RUT_Estimado float, "
    "RUT_Mpos int)",
    "CREATE TABLE DOCVELMORA.dbo.dex (Dex_Id int IDENTITY (1, 1) PRIMARY KEY, Dex_IdExp int, Dex_IdAct int, Dex_Doc "
    "image NULL, "
    "Dex_Fic nvarchar(255), Dex_FicDes nvarchar(20), Dex_IdUsu int, Dex_Estado int, Dex_Importe float, Dex_Fecha "
    "datetime)",
};

constexpr const char* rows[] = {
    "INSERT INTO materiales (mat_id, mat_pcs) VALUES (1, 0.05)",
    "INSERT INTO materiales (mat_id, mat_pcs) VALUES (2, 0.02)",
    "INSERT INTO ART VALUES (1, 'R-F114', 'Redondo F-114', 2, 6.165, 0.95, 1.4, 1, 1, 0)",
    "INSERT INTO ART VALUES (2, 'CH-8', 'Chapa de 8', 1, 7.85, 0.8, 1.2, 2, 0, 0)",
    "INSERT INTO ART VALUES (3, 'VIEJO', 'Articulo de baja', 3, 1, 1, 1, 2, 0, 1)",
    "INSERT INTO PARDPI (PARDPI_NOM, PARDPI_ART, PARDPI_HIERRO, PARDPI_DISCO, PARDPI_MATP) VALUES ('Disco F-114', 1, "
    "1, 1, 'Acero')",
    "INSERT INTO PARDPI (PARDPI_NOM, PARDPI_ART, PARDPI_HIERRO, PARDPI_DISCO, PARDPI_MATP) VALUES ('Cubo', 2, 0, 0, "
    "'Chapa')",
    "INSERT INTO Calculos VALUES (1, 0, 100, 0.7)",
    "INSERT INTO Calculos VALUES (1, 100, 1000, 0.6)",
    "INSERT INTO Calculos VALUES (2, 0, 1000, 0.4)",
    "INSERT INTO CLI VALUES (1, 1001, 'TALLERES NORTE SL', 'NORTE', 1.5, 1, 3000)",
    "INSERT INTO CLI VALUES (2, 1002, N'Hierros Ñuñoa', N'ÑUÑOA', 0, 0, 0)",
    "INSERT INTO RSEC VALUES (1, 'Sierra')",
    "INSERT INTO MAQ VALUES (131, 'Sierra de cinta', 1)",
    "INSERT INTO MAQ VALUES (7, 'Talladora', NULL)",
    "INSERT INTO OPE VALUES (5, 'Ana', 30, 131)",
    "INSERT INTO OPE VALUES (6, 'Luis', 0, 7)",
    "INSERT INTO OBM VALUES (6, 131, 27.5)",
    "INSERT INTO PDM (PDM_Tipo, PDM_Titulo, PDM_Z, PDM_Paso) VALUES (3, 'ISO 3/4'''' Doble Z21', 21, 19.05)",
    "INSERT INTO DPI (DPI_Tipo, DPI_CodCliente, DPI_NomCliente, DPI_Z, DPI_Pas, DPI_AC, DPI_Rodillo, DPI_Eje, "
    "DPI_IdParDisco, "
    "DPI_IdParCubo, DPI_ArtDisco, DPI_ImpTP, DPI_Unidades, DPI_Importe) VALUES (0, 1001, N'TALLERES NORTE SL', 38, "
    "12.7, 7.75, "
    "7.75, 24, 1, 2, 1, 30.49, 3, 91.47)",
    "INSERT INTO DPI (DPI_Tipo, DPI_Fecha, DPI_FAcepta, DPI_Orden, DPI_CodCliente, DPI_NomCliente, DPI_RefCli, DPI_Z, "
    "DPI_Pas, "
    "DPI_AC, DPI_Rodillo, DPI_Eje, DPI_ArtDisco, DPI_ImpTP, DPI_Unidades) VALUES (13, "
    "convert(datetime,'10/01/2026',103), "
    "'11/01/2026 09:30:00', 500, 1002, N'Hierros Ñuñoa', N'REF-1', 38, 12.7, 7.75, 7.75, 30, 2, 12, 1)",
    "INSERT INTO MoDpi (MoDpi_Dpi, MoDpi_Ope, MoDpi_Maq, MoDpi_Minutos, MoDpi_Pvp, MoDpi_Tiempo, MoDpi_Importe) VALUES "
    "(1, 5, 131, 15, 30, 0.25, 7.5)",
    "INSERT INTO MoDpi (MoDpi_Dpi, MoDpi_Ope, MoDpi_Maq, MoDpi_Minutos, MoDpi_Pvp, MoDpi_Tiempo, MoDpi_Importe) VALUES "
    "(1, 6, 7, 10, 30, 0.1667, 5)",
    "INSERT INTO PRO VALUES (9)",
    "INSERT INTO CAC VALUES (1, '20/12/2025', 'A', 100, 9)",
    "INSERT INTO CAC VALUES (2, '17/10/2025 18:00:00', 'A', 90, 9)",
    "INSERT INTO CAC VALUES (3, '16/10/2025', 'A', 80, 9)",
    "INSERT INTO LAC VALUES (1, 'R-F114', 0.95, 100, 12.5, 65, 20, 1000000)",
    "INSERT INTO LAC VALUES (2, 'R-F114', 0.9, 80, 8, 60.25, 10, 3000)",
    "INSERT INTO LAC VALUES (3, 'R-F114', 0.85, 80, 8, 60, 10, 3000)",
    "INSERT INTO LAC VALUES (1, 'O''HARA', 2, 1, 1, 1, 1, 1)",
    "INSERT INTO REC VALUES (100.004, '1', 1)",
    "INSERT INTO REC VALUES (50, '4', 1)",
    "INSERT INTO REC VALUES (999, '5', 1)",
    "INSERT INTO Cav VALUES (1, 1, 1)",
    "INSERT INTO Cav VALUES (2, 2, 1)",
    "INSERT INTO Lav VALUES (1, 25.5)",
    "INSERT INTO Lav VALUES (2, 400)",
    "INSERT INTO ORDEN (ORDEN_NUM, ORDEN_SER, ORDEN_CLI, ORDEN_NOM, ORDEN_REF, ORDEN_INI, ORDEN_ADE, ORDEN_ART) VALUES "
    "(500, N'0', 1002, N'Hierros Ñuñoa', N'REF-1', convert(datetime,'11/01/2026',103), N'', N'CH-8')",
    "INSERT INTO [OrdPiñones] (Opi_OrdId, Opi_Pas, Opi_Die) VALUES (1, 12.7, 38)",
    "INSERT INTO RUT VALUES (1, 1, 1, 500, 131, 1, 4)",
    "INSERT INTO DOCVELMORA.dbo.Dex "
    "(Dex_Doc,Dex_Fic,Dex_FicDes,Dex_Idexp,Dex_IdAct,Dex_IdUsu,Dex_Estado,Dex_Importe,Dex_Fecha) "
    "VALUES (Null,N'plano.pdf',N'pdf',1,9,1,1,0,getdate())",
};

void fill(sql::Connection& connection) {
    for (const char* statement : tables) {
        connection.execute(statement);
    }
    for (const char* statement : rows) {
        connection.execute(statement);
    }
}

std::string shownValue(const sql::Value& value) {
    if (value.isNull()) {
        return "NULL";
    }
    if (value.isBit()) {
        return value.toBool() ? "true" : "false";
    }
    if (const auto* number = std::get_if<double>(&value.raw())) {
        const std::string digits = runtime::shortest(*number);
        return digits.find_first_of(".e") == std::string::npos ? digits + ".0" : digits;
    }
    if (const auto* date = std::get_if<runtime::Date>(&value.raw())) {
        return tsql::isoText(*date);
    }
    if (const auto* bytes = std::get_if<sql::Bytes>(&value.raw())) {
        std::string text = "0x";
        for (const std::byte byte : *bytes) {
            text += "0123456789ABCDEF"[std::to_integer<int>(byte) >> 4];
            text += "0123456789ABCDEF"[std::to_integer<int>(byte) & 15];
        }
        return text;
    }
    return value.toText();
}

}  // namespace

std::unique_ptr<sql::Connection> openSampleDatabase() {
    const sqlite::Options options{.clock = [] { return runtime::Date::of(2026, 1, 15, 10); }};
    static const support::DatabaseTemplate sample(fill, options);
    return sample.copy(":memory:", options);
}

std::string shown(sql::Recordset set) {
    std::string text;
    for (; !set.eof(); set.moveNext()) {
        if (!text.empty()) {
            text += "/";
        }
        for (std::size_t i = 0; i < set.columns().size(); ++i) {
            text += (i == 0 ? "" : "|") + shownValue(set[i]);
        }
    }
    return text;
}

}  // namespace velmora::test
