// The kind with which each column of an acceptance is passed to the host's session. The session renders some kinds
// alike, so the statements alone do not distinguish them; a host's own session may.

#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "acceptance_shop.h"

namespace velmora::tracking {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

/// Forwards everything and records each write: its table, then its columns with their kinds.
class NotingSession final : public session::Session {
  public:
    explicit NotingSession(session::Session& target) : target_(target) {}

    std::vector<std::string> writes;
    std::vector<int> decimals;
    std::vector<std::string> conditions;  ///< all that were set, in order
    std::vector<int> modes;

    sql::Connection& Connection() override { return target_.Connection(); }
    void Tabla(std::string_view name) override {
        table_ = name;
        target_.Tabla(name);
    }
    void Modo(int mode) override {
        modes.push_back(mode);
        target_.Modo(mode);
    }
    session::FieldList& Campos() override { return target_.Campos(); }
    void Donde(std::string_view clause) override {
        conditions.emplace_back(clause);
        target_.Donde(clause);
    }
    void Actualizar(std::string& error, bool& correcto) override {
        note();
        target_.Actualizar(error, correcto);
    }
    void Insertar(std::string& error, bool& correcto) override {
        note();
        target_.Insertar(error, correcto);
    }
    bool ComprobarConexion(sql::Connection& connection, std::string& error) override {
        return target_.ComprobarConexion(connection, error);
    }
    std::int32_t IdUsuario() const override { return target_.IdUsuario(); }
    sql::Value Parametros(std::string_view name) const override { return target_.Parametros(name); }

  private:
    void note() {
        std::string columns = table_ + ":";
        for (const session::Field& field : target_.Campos().fields()) {
            columns += " " + field.nombre + " " + std::to_string(static_cast<int>(field.tipo));
            decimals.push_back(field.decimales);
        }
        writes.push_back(columns);
    }

    session::Session& target_;
    std::string table_;
};

class ColumnKindsTest : public ::testing::Test {
  protected:
    /// Accepts a proposal with these columns through the recording session.
    void accepted(const Columns& columns = {}) {
        shop.choose(shop.addProposal(columns));
        Acceptance acceptance(shop.fields, session, shop.oUtil, shop.desk, [] {});
        acceptance.msAceptarPresupuesto();
    }
    std::vector<std::string> writesTo(const std::string& table) {
        std::vector<std::string> found;
        for (const std::string& write : session.writes) {
            if (write.starts_with(table + ":")) {
                found.push_back(write);
            }
        }
        return found;
    }

    AcceptanceShop shop;
    NotingSession session{shop.session};
};

const std::string head = "Mat: Mat_Ord 1 Mat_Ser 3 Mat_Art 3 Mat_Des 3 Mat_Pco 2 Mat_Pve 2";
const std::string headEnd = " Mat_Can 2 Mat_Med 3 Mat_Tca 1";
const std::string formula = " Mat_For 3 Mat_FCA 1 Mat_Fac 2 Mat_Mat 1 Mat_Imp 2 Mat_Idp 1";
const std::string cut = " MAT_UdCorte 2 MAT_LargoCorte 2 MAT_DmCorte 2 MAT_CubCorte 1";
const std::string discRow = head + headEnd + " Mat_Anc 1 Mat_Esp 1 Mat_Dex 2" + formula;
const std::string hubRow =
    head + " Mat_Uni 1" + headEnd + " Mat_Lar 2 Mat_Anc 1 Mat_Esp 1 Mat_Din 2 Mat_Dex 2" + formula + cut;

TEST_F(ColumnKindsTest, OfTheOrder) {
    accepted();
    EXPECT_THAT(writesTo("ORDEN"),
                ElementsAre("ORDEN: ORDEN_NUM 1 ORDEN_SER 3 ORDEN_CLI 1 ORDEN_NOM 3 ORDEN_GF 2 ORDEN_OBS 3 ORDEN_UNI 1 "
                            "ORDEN_REF 3 ORDEN_INI 4 ORDEN_ADE 3 ORDEN_PLA 6 ORDEN_PRE 2 ORDEN_IdDPI 1 ORDEN_PED 3 "
                            "ORDEN_DES 3"));
}

TEST_F(ColumnKindsTest, OfARepeatOrderWithItsDateAndWithoutACustomersNumber) {
    shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_REF,ORDEN_ART) VALUES (6,N'R-77',N'T-355')");
    accepted({{"DPI_PedCliente", "NULL"}, {"DPI_FechaEntrega", "'30/06/2026'"}});
    EXPECT_THAT(writesTo("ORDEN"),
                ElementsAre("ORDEN: ORDEN_NUM 1 ORDEN_SER 3 ORDEN_CLI 1 ORDEN_NOM 3 ORDEN_GF 2 ORDEN_OBS 3 ORDEN_UNI 1 "
                            "ORDEN_REF 3 ORDEN_INI 4 ORDEN_ART 3 ORDEN_ADE 3 ORDEN_PLA 4 ORDEN_PRE 2 ORDEN_IdDPI 1 "
                            "ORDEN_Ped 6 ORDEN_DES 3"));
}

TEST_F(ColumnKindsTest, OfTheMarkOnTheProposal) {
    accepted({{"DPI_FPedCliente", "'02/01/2026'"}});
    EXPECT_THAT(writesTo("DPI"), ElementsAre("DPI: DPI_Orden 1 DPI_FAcepta 6 DPI_FPedCliente 4 DPI_FechaEntrega 6 "
                                             "DPI_PedCliente 3 DPI_RefCli 3"));
}

TEST_F(ColumnKindsTest, OfTheSprocket) {
    accepted();
    EXPECT_THAT(
        writesTo("OrdPiñones"),
        ElementsAre("OrdPiñones: Opi_OrdId 1 Opi_Pas 2 Opi_Die 2 Opi_Rod 2 Opi_Anca 2 Opi_Eje 2 Opi_Chav 2 "
                    "Opi_Pri 2 Opi_DmPri 2 Opi_DmFon 2 Opi_DmExt 2 Opi_DmCub 2 Opi_Alt 2 Opi_Ancto 2 Opi_Llanta "
                    "2 Opi_Anccu 2 Opi_Disdm 2 Opi_DisGr 2 Opi_Cubdm 2 Opi_CubGr 2 Opi_PesoDis 2 Opi_PesoCub "
                    "2"));
}

TEST_F(ColumnKindsTest, OfDiscAndHubCutHereOrNot) {
    const std::string disc = discRow + " Mat_Uni 1 Mat_Lar 2 Mat_Din 2" + cut;
    for (const screen::Answer answer : {screen::Answer::yes, screen::Answer::no}) {
        session.writes.clear();
        shop.screen.cutsDisc = shop.screen.cutsHub = answer;
        accepted();
        EXPECT_THAT(writesTo("Mat"), ElementsAre(disc, hubRow));
    }
}

TEST_F(ColumnKindsTest, OfADiscBoughtPieceByPiece) {
    accepted({{"DPI_ArtDisco", "16"}, {"DPI_CubCortPESO", "0"}});
    EXPECT_THAT(writesTo("Mat"), ElementsAre(discRow + " Mat_Din 2" + cut + " Mat_Lar 2 Mat_Uni 1"));
}

TEST_F(ColumnKindsTest, OfARacksPlate) {
    for (const screen::Answer answer : {screen::Answer::yes, screen::Answer::no}) {
        session.writes.clear();
        shop.screen.cutsDisc = answer;
        accepted({{"DPI_Tipo", "13"}, {"DPI_ArtDisco", "14"}});
        EXPECT_THAT(writesTo("Mat"),
                    ElementsAre(head + headEnd + " Mat_Anc 2 Mat_Esp 2 Mat_Dex 2" + formula +
                                " Mat_Din 2 MAT_DmCorte 2 MAT_CubCorte 1 Mat_Lar 2 Mat_Uni 1 MAT_UdCorte 2 "
                                "MAT_LargoCorte 2"));
    }
}

TEST_F(ColumnKindsTest, OfTheRoute) {
    accepted({{"DPI_CubCortPESO", "0"}});
    EXPECT_THAT(
        writesTo("RUT"),
        ElementsAre("RUT: RUT_IdUsu 1 RUT_pos 1 RUT_IdOrden 1 RUT_NumOrden 1 RUT_Maq 1 RUT_Estimado 2 RUT_Mpos 1"));
}

TEST_F(ColumnKindsTest, EveryColumnHasTwoDecimalsAndEveryWriteModeZero) {
    accepted();
    EXPECT_THAT(session.decimals, Each(2));
    EXPECT_THAT(session.modes, Each(0));
    EXPECT_EQ(session.modes.size(), session.writes.size());
}

TEST_F(ColumnKindsTest, OnlyTheMarkHasAConditionAndTheRouteSetsNone) {
    accepted();
    EXPECT_THAT(session.conditions, ElementsAre("", " where dpi_id = 1", "", "", ""));
    EXPECT_EQ(writesTo("RUT").size(), 2u);
}

}  // namespace
}  // namespace velmora::tracking
