// An empty workshop that was filled through the forms prices and accepts a sprocket as the demonstration workshop does,
// whose rows were typed.

#include <fstream>
#include <set>

#include "support/command_output.h"
#include "workshop_bench.h"

namespace velmora::workshop_data {
namespace {

using ::testing::HasSubstr;

/// The story up to the acceptance, on the proposal with this number, and all figures that it stores. Numbers of rows
/// and orders, and the places in the machines' queues, depend on what was there before.
std::string storyOf(const std::string& number) {
    return R"(open propuestas
type txtPesu(0) 1001
key ENTER
type txtPesu(2) "TR-1400"
key ENTER
type Text1(0) "12,7"
key ENTER
type Text1(1) 38
key ENTER
type Text1(8) "7,75"
key ENTER
type Text1(2) "8,51"
key ENTER
choose cboMatCubo "003 - Cubo F-1140"
type txtPesu(9) "2,5"
key ENTER
type txtPesu(11) 12
key ENTER
key F5
expect-message "Datos Grabados satisfactoriamente"
key F1
press cmdNuevaLinea
type txtLinea(0) 201
key ENTER
type txtLinea(6) 24
key ENTER
print txtLinea(1) txtLinea(2) cboOperarios txtLinea(5) txtLinea(7)
press cmdGrabarLinea
press cmdSalir
print txtPesu(7) txtPesu(8) txtPesu(10) txtPesu(12)
key F5
key ESC
open seguimiento
type txtCriterio(4) )" +
           number + R"(
press cmdfiltro
type txtPesu(3) "PED-881"
type txtPesu(4) 20112026
type txtPesu(5) 11122026
leave
answer yes
answer yes
answer yes
press XPButton1
key ESC
query "select DPI_NomCliente,DPI_DmPri,DPI_DmExt,DPI_DmCub,DPI_AnchoTotal,DPI_DisCortDM,DPI_DisCortAN,DPI_DisCortPESO,DPI_DisPVE,DPI_DisImporte,DPI_CosteCorteDisco,DPI_CubCortDM,DPI_CubCortPESO,DPI_CubPVE,DPI_CubImporte,DPI_ImpMat,DPI_ImpMO,DPI_ImpTS,DPI_Importe,DPI_FAcepta from DPI where DPI_Id = )" +
           number + R"("
query "select ORDEN_CLI,ORDEN_NOM,ORDEN_GF,ORDEN_UNI,ORDEN_PRE,ORDEN_DES from ORDEN where ORDEN_IdDPI = )" +
           number + R"("
query "select Mat_Art,Mat_Des,Mat_Pco,Mat_Pve,Mat_Can,Mat_Dex,Mat_Lar,Mat_FCA,Mat_Fac,Mat_Mat from Mat inner join ORDEN on Mat_Ord = ORDEN_NUM where ORDEN_IdDPI = )" +
           number + R"( order by Mat_Art"
query "select RUT_pos,RUT_Maq,RUT_Estimado from RUT inner join ORDEN on RUT_NumOrden = ORDEN_NUM where ORDEN_IdDPI = )" +
           number + R"( order by RUT_pos"
)";
}

class FilledWorkshopTest : public ::testing::Test {
  protected:
    /// What the story prints on the database, without the order's number.
    std::string played(const std::string& database, const std::string& number) const {
        const std::string script = folder.file("story.drive");
        std::ofstream(script) << storyOf(number);
        const std::string output = support::outputOf(std::string(VELMORA_DRIVE) + " --db '" + database +
                                                     "' --now '2026-11-21 10:00:00' '" + script + "'");
        constexpr std::string_view told = "Orden de trabajo nº ";
        const std::size_t order = output.find(told);
        EXPECT_NE(order, std::string::npos) << output;
        return order == std::string::npos ? output : output.substr(0, order) + output.substr(output.find(" generada"));
    }

    /// Types rows of the demonstration workshop into the form, those whose first column is among the given ones.
    static void type(Workshop& demo, Workshop& shop, const char* name, const std::set<std::string>& wanted) {
        const Table& table = *findTable(name);
        FormUser user(shop, name);
        std::size_t typed = 0;
        for (const RowTexts& row : demo.rowsOf(name)) {
            if (!wanted.contains(row.front())) {
                continue;
            }
            std::vector<std::pair<std::string, std::string>> values;
            for (std::size_t i = 0; i < row.size(); ++i) {
                values.emplace_back(table.columns[i].name, row[i]);
            }
            user.add(values);
            ++typed;
        }
        EXPECT_EQ(shop.rowsOf(name).size(), typed) << name;
        EXPECT_GE(typed, wanted.size()) << name;
    }

    support::TemporaryFolder folder;
};

TEST_F(FilledWorkshopTest, PricesAndAcceptsASprocketAsTheDemonstrationDoes) {
    const std::string demoFile = folder.file("demo.db");
    const std::string ownFile = folder.file("taller.db");
    {
        Workshop demo(demoDatabase(demoFile));
        Workshop shop(emptyDatabase(ownFile));
        type(demo, shop, "CLI", {"1001"});
        type(demo, shop, "materiales", {"1", "2"});
        type(demo, shop, "ART", {"RED-F114", "RED-F1140", "DIS-F114"});
        type(demo, shop, "PARDPI", {"Disco F-114", "Redondo F-114", "Cubo F-1140"});
        type(demo, shop, "RSEC", {"1", "2"});
        type(demo, shop, "MAQ", {"131", "201"});
        type(demo, shop, "OPE", {"1", "2"});
        // The demonstration's second operator also works on a machine that is not here.
        FormUser(shop, "OBM").add({{"OBM_OPE", "2"}, {"OBM_MAQ", "201"}, {"OBM_PTR", "39,5"}});
        type(demo, shop, "Calculos", {"Diámetro del cubo", "Ancho total"});
        EXPECT_THAT(shop.screen.messages, ::testing::IsEmpty());
    }
    const std::string figures = played(demoFile, "321");
    EXPECT_EQ(played(ownFile, "1"), figures);
    EXPECT_THAT(figures, HasSubstr("txtPesu(12) = \"453,48\"")) << "material 19,49, outside work 2,50, labour 15,80";
    EXPECT_THAT(figures, HasSubstr("2026-11-21 10:00:00")) << "accepted";
}

}  // namespace
}  // namespace velmora::workshop_data
