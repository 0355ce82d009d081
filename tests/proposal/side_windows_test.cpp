#include "velmora/proposal/side_windows.h"

#include <gmock/gmock.h>

#include "velmora/services/frm_doc.h"
#include "velmora/services/frm_hcomp.h"

#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using ::testing::IsEmpty;

class SideWindowsTest : public ::testing::Test {
  protected:
    SideWindowsTest() {
        for (const char* row : {
                 "INSERT INTO PRO (PRO_ID) VALUES (4)",
                 "INSERT INTO CAC (CAC_ID,CAC_FECHA,CAC_SERIE,CAC_NUMERO,CAC_IDPRO) VALUES "
                 "(1,'14/01/2026 00:00:00',N'A',5001,4)",
                 "INSERT INTO LAC (LAC_IDCAC,LAC_CODART,LAC_PRECIO,LAC_DEXTERIOR,LAC_DINTERIOR) VALUES "
                 "(1,N'T-E355',1.45,80,60)",
                 "INSERT INTO LAC (LAC_IDCAC,LAC_CODART,LAC_PRECIO) VALUES (1,N'R-F114',0.95)",
                 "INSERT INTO PARDPI (PARDPI_NOM,PARDPI_ART,PARDPI_HIERRO,PARDPI_DISCO,PARDPI_MATP,PARDPI_CRE) VALUES "
                 "(N'Cremallera tubo',13,0,0,N'Tubo E355',1)",
             }) {
            shop.database->execute(row);
        }
    }

    /// Presses the button of a material; what its window shows: code, description, formula, prices.
    std::string pricesOf(int index) {
        std::string shown = "nothing";
        shop.screen.queueModal([&](screen::Form& form) {
            auto& prices = dynamic_cast<services::frmHcomp&>(form);
            shown =
                prices.txtFields(0).text() + "|" + prices.txtFields(1).text() + "|" + std::to_string(prices.nFormula);
            for (std::size_t i = 0; i < prices.dbgCompras.rowCount(); ++i) {
                shown += "|" + prices.dbgCompras.cellText(i, 1) + " " + prices.dbgCompras.cellText(i, 4);
            }
        });
        shop.attempt([&] { shop.form().buttonsAndGrid().cmdHPrecios(index).onClick(); });
        return shown;
    }

    support::ProposalWorkshop shop;
};

TEST_F(SideWindowsTest, EachButtonShowsTheArticleOfItsMaterial) {
    shop.fields().cboMatDisco.setListIndex(1);
    EXPECT_EQ(pricesOf(0), "T-E355|Tubo E355|4|1,4500 Ø Ext: 80 , Ø Int: 60");
    shop.fields().cboMatCubo.setListIndex(1);
    EXPECT_EQ(pricesOf(1), "T-E355|Tubo E355|4|1,4500 Ø Ext: 80 , Ø Int: 60");
    shop.fields().cboMatCre.setListIndex(1);
    EXPECT_EQ(pricesOf(2), "T-E355|Tubo E355|4|1,4500 Ø Ext: 80 , Ø Int: 60");
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(SideWindowsTest, TheFirstMaterialAndNoneOpenAnEmptyList) {
    shop.form();
    shop.connection.clear();
    // The article of the line's set is told, its purchases are not.
    EXPECT_EQ(pricesOf(0), "R-F114|Redondo F-114|2");
    EXPECT_EQ(pricesOf(1), "R-F1140|Redondo F-1140|2");
    EXPECT_EQ(pricesOf(2), "P-S275|Pletina S275|1");
    shop.fields().cboMatDisco.setListIndex(0);
    EXPECT_EQ(pricesOf(0), "R-F114|Redondo F-114|2");
    shop.attempt([&] { shop.fields().cboMatDisco.setListIndex(-1); });  // no entry has a number to be read
    shop.errors.clear();
    EXPECT_EQ(pricesOf(0), "R-F114|Redondo F-114|2");
    EXPECT_THAT(shop.connection.logged("lac_codart"), IsEmpty());
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(SideWindowsTest, TheFirstMaterialsPurchasesAreThereAllTheSame) {
    shop.fields().cboMatDisco.setListIndex(0);
    EXPECT_EQ(shop.fields().rsMatDisco->isOpen() ? (*shop.fields().rsMatDisco)["art_cod"].toText() : "", "R-F114");
    EXPECT_EQ(shop.query("select count(*) from LAC where LAC_CODART = 'R-F114'"), "1");
}

TEST_F(SideWindowsTest, AProposalWithoutANumberHasNoDocuments) {
    shop.form();
    shop.connection.clear();
    shop.press("cmdDoc");
    shop.fields().txtPesu(3).setText("uno");
    shop.press("cmdDoc");
    EXPECT_THAT(shop.connection.log(), IsEmpty());
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(SideWindowsTest, ASavedProposalOpensItsDocuments) {
    shop.saveNewProposal();
    shop.database->execute("INSERT INTO DOCVELMORA.dbo.dex (Dex_IdExp,Dex_IdAct,Dex_Fic) VALUES (1,-8,N'plano.pdf')");
    bool opened = false;
    shop.screen.queueModal([&](screen::Form& form) {
        auto& documents = dynamic_cast<services::frmDoc&>(form);
        EXPECT_EQ(documents.nIdExp, 1);
        EXPECT_EQ(documents.nIdAct, -8);
        EXPECT_EQ(documents.dbgPlanos.cellText(0, 1), "plano.pdf");
        opened = true;
    });
    shop.press("cmdDoc");
    EXPECT_TRUE(opened);
    EXPECT_THAT(shop.errors, IsEmpty());
}

}  // namespace
}  // namespace velmora::proposal
