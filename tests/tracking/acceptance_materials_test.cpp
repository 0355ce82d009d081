#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/data/product_types.h"
#include "velmora/tracking/acceptance.h"

#include "acceptance_run.h"

namespace velmora::tracking {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* materials =
    "select Mat_Art,Mat_Uni,Mat_Lar,Mat_Din,Mat_Dex,Mat_Anc,Mat_Esp,Mat_For,Mat_FCA,MAT_UdCorte,MAT_LargoCorte,"
    "MAT_DmCorte,MAT_CubCorte from Mat";
constexpr const char* noHub = "0";

TEST_F(AcceptanceTest, TheDiscByFormulaAndAnswer) {
    struct Row {
        const char* article;
        screen::Answer cut;
        const char* stored;
    };
    const Row rows[] = {
        {"11", screen::Answer::yes, "R-114|1|36|1|165|1|1|2|2|3|10|165|1"},
        {"11", screen::Answer::no, "R-114|1|36|1|165|1|1|2|2|0|0|0|1"},
        {"11", screen::Answer::cancel, "R-114|1|36|1|165|1|1|2|2|0|0|0|1"},
        {"13", screen::Answer::yes, "T-355|1|36|1|165|1|1|4|4|3|10|165|1"},
        {"14", screen::Answer::no, "P-275|1|36|1|165|1|1|1|1|0|0|0|1"},
        {"15", screen::Answer::yes, "R-NC|1|36|1|165|1|1|2|2|0|0|0|1"},
        {"16", screen::Answer::yes, "S-6|3|10|33,5|165|1|1|6|6|0|0|0|0"},
        {"17", screen::Answer::yes, "S-0|3|10|33,5|165|1|1|0|0|0|0|0|0"},
        {"18", screen::Answer::yes, "S-5|3|10|33,5|165|1|1|5|5|0|0|0|0"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.stored);
        shop.change("delete from Mat");
        shop.change("delete from RUT");
        shop.screen.messages.clear();
        shop.screen.cutsDisc = row.cut;
        accepted({{"DPI_ArtDisco", row.article}, {"DPI_DmInterno", "33.5"}, {"DPI_CubCortPESO", noHub}});
        EXPECT_EQ(query(materials), row.stored);
        const std::string article = row.article;
        const bool isAsked = article != "15" && article != "16" && article != "17" && article != "18";
        EXPECT_EQ(shop.screen.messages.size(), isAsked ? 3u : 2u) << "the question of the cut";
        EXPECT_EQ(shop.count("RUT where RUT_Maq = 131"), isAsked && row.cut == screen::Answer::yes ? "1" : "0");
    }
}

TEST_F(AcceptanceTest, AnArticleWithoutAFormulaIsCutOffALength) {
    shop.change("UPDATE ART SET ART_For = NULL WHERE ART_ID = 17");
    accepted({{"DPI_ArtDisco", "17"}, {"DPI_ArtCubo", "17"}, {"DPI_DmInterno", "33.5"}});
    EXPECT_EQ(query(materials),
              "S-0|1|36|1|165|1|1|NULL|NULL|3|10|165|1\n"
              "S-0|1|177|1|95|1|1|NULL|NULL|3|57|95|2");
}

TEST_F(AcceptanceTest, TheDiscNotCutHereIsStillMarkedAsADisc) {
    shop.screen.cutsDisc = screen::Answer::no;
    accepted({{"DPI_CubCortPESO", noHub}});
    EXPECT_EQ(query("select MAT_CubCorte from Mat"), "1");
}

TEST_F(AcceptanceTest, AHubNotCutHereIsNotMarkedAsAHub) {
    shop.screen.cutsHub = screen::Answer::no;
    accepted();
    EXPECT_EQ(query("select MAT_CubCorte from Mat where Mat_Art = 'R-140'"), "0");
}

TEST_F(AcceptanceTest, TheHubByArticleAndAnswer) {
    struct Row {
        const char* article;
        screen::Answer cut;
        const char* stored;
    };
    const Row rows[] = {
        {"12", screen::Answer::yes, "R-140|1|177|1|95|1|1|2|2|3|57|95|2"},
        {"12", screen::Answer::no, "R-140|1|177|1|95|1|1|2|2|0|0|0|0"},
        {"13", screen::Answer::yes, "T-355|1|177|20|95|1|1|4|4|3|57|95|2"},
        {"15", screen::Answer::yes, "R-NC|1|177|1|95|1|1|2|2|0|0|0|0"},
        {"16", screen::Answer::yes, "S-6|1|177|1|95|1|1|6|6|3|57|95|2"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.stored);
        shop.change("delete from Mat");
        shop.screen.cutsHub = row.cut;
        accepted({{"DPI_ArtCubo", row.article}, {"DPI_DisCortPESO", "0"}});
        EXPECT_EQ(query(materials), row.stored);
    }
}

TEST_F(AcceptanceTest, TwinHubsCountTwiceInLengthAndCuts) {
    for (const char* type : {"2", "3"}) {
        shop.change("delete from Mat");
        accepted({{"DPI_Tipo", type}, {"DPI_DisCortPESO", "0"}});
        EXPECT_EQ(query("select Mat_Lar,MAT_UdCorte,Mat_Uni from Mat"), "354|6|1") << type;
    }
}

TEST_F(AcceptanceTest, TheVariableSprocketsHubsDoNotCountTwice) {
    accepted({{"DPI_Tipo", "10"}, {"DPI_DisCortPESO", "0"}});
    EXPECT_EQ(query("select Mat_Lar,MAT_UdCorte,Mat_Uni from Mat"), "177|3|1");
}

TEST_F(AcceptanceTest, TheTypesThatHaveAHubRow) {
    for (int type = 0; data::findProductType(type); ++type) {
        shop.change("delete from Mat");
        accepted({{"DPI_Tipo", std::to_string(type)}, {"DPI_DisCortPESO", "0"}});
        const bool has = type == 0 || (type >= 2 && type <= 5) || type == 10 || type == 12;
        EXPECT_EQ(shop.count("Mat"), has ? "1" : "0") << type;
    }
}

TEST_F(AcceptanceTest, AGearsHubIsNotWrittenThoughItHasOne) {
    accepted({{"DPI_Tipo", "8"}});
    EXPECT_EQ(query("select Mat_Art from Mat"), "R-114");
}

TEST_F(AcceptanceTest, ARackHasItsPlateAndNothingElse) {
    struct Row {
        const char* article;
        screen::Answer cut;
        const char* stored;
    };
    const Row rows[] = {
        {"14", screen::Answer::yes, "P-275|3|1000,5|0|0|165|30|1|1|3|10|0|0"},
        {"14", screen::Answer::no, "P-275|3|1000,5|0|0|165|30|1|1|0|0|0|0"},
        {"15", screen::Answer::yes, "R-NC|3|1000,5|0|0|165|30|2|2|0|0|0|0"},
        {"16", screen::Answer::yes, "S-6|3|1000,5|0|0|165|30|6|6|3|10|0|0"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.stored);
        shop.change("delete from Mat");
        shop.screen.cutsDisc = row.cut;
        accepted({{"DPI_Tipo", "13"}, {"DPI_ArtDisco", row.article}, {"DPI_DmFon", "30"}, {"DPI_Llanta", "1000.5"}});
        EXPECT_EQ(query(materials), row.stored);
        EXPECT_EQ(query("select Mat_Idp from Mat"), "0");
    }
    EXPECT_EQ(shop.count("OrdPiñones"), "0");
    EXPECT_EQ(logged("INSERT INTO Mat").front(),
              "INSERT INTO Mat (Mat_Ord,Mat_Ser,Mat_Art,Mat_Des,Mat_Pco,Mat_Pve,Mat_Can,Mat_Med,Mat_Tca,Mat_Anc,"
              "Mat_Esp,Mat_Dex,Mat_For,Mat_FCA,Mat_Fac,Mat_Mat,Mat_Imp,Mat_Idp,Mat_Din,MAT_DmCorte,MAT_CubCorte,"
              "Mat_Lar,Mat_Uni,MAT_UdCorte,MAT_LargoCorte) VALUES (1,N'0',N'P-275',N'Pletina S275',0.8,1.2,0,N'Kg',0,"
              "165,30,0,N'1',1,7.85,3,0,0,0,0,0,1000.5,3,3,10)");
}

TEST_F(AcceptanceTest, ThePiecesBoughtOneByOneAreWrittenInThisOrder) {
    accepted({{"DPI_ArtDisco", "16"}, {"DPI_CubCortPESO", noHub}});
    EXPECT_THAT(
        logged("INSERT INTO Mat").front(),
        HasSubstr("Mat_Imp,Mat_Idp,Mat_Din,MAT_UdCorte,MAT_LargoCorte,MAT_DmCorte,MAT_CubCorte,Mat_Lar,Mat_Uni)"));
}

TEST_F(AcceptanceTest, LengthsAreRoundedToCents) {
    accepted({{"DPI_DisCortAN", "10.335"}, {"DPI_CubCortAN", "57.111"}, {"DPI_Unidades", "3"}});
    EXPECT_EQ(query("select Mat_Lar from Mat"), "37,01\n177,33") << "12,335 x 3 = 37,005; 59,111 x 3 = 177,333";
}

TEST_F(AcceptanceTest, WithoutWeightsThereIsNoMaterialAndNoQuestion) {
    for (const char* nothing : {"0", "NULL"}) {
        shop.screen.messages.clear();
        accepted({{"DPI_DisCortPESO", nothing}, {"DPI_CubCortPESO", nothing}});
        EXPECT_EQ(shop.screen.messages.size(), 2u);
    }
    EXPECT_EQ(shop.count("Mat"), "0");
    EXPECT_EQ(shop.count("RUT"), "0");
    EXPECT_EQ(query("select ORDEN_NUM from ORDEN order by ORDEN_NUM"), "1\n2");
}

TEST_F(AcceptanceTest, ANullWeightDoesNotEndTheAcceptance) {
    accepted({{"DPI_DisCortPESO", "NULL"}, {"DPI_CubCortPESO", noHub}});
    EXPECT_THAT(shop.screen.texts(), ElementsAre(asked, done));
}

TEST_F(AcceptanceTest, TheCutQuestionsAreAskedThus) {
    accepted();
    ASSERT_EQ(shop.screen.messages.size(), 4u);
    for (const int index : {1, 2}) {
        const screen::MessageBox& box = shop.screen.messages[static_cast<std::size_t>(index)];
        EXPECT_EQ(box.title, "Corte Material Disco");
        EXPECT_EQ(box.icon, screen::Icon::question);
        EXPECT_EQ(box.buttons, screen::Buttons::yesNo);
    }
    EXPECT_FALSE(shop.connection.transactionOpen());
}

TEST_F(AcceptanceTest, TheHubsQuestionDoesNotBearATitleOfItsOwn) {
    accepted();
    EXPECT_THAT(shop.screen.messages[2].text, HasSubstr("Cubo"));
    EXPECT_THAT(shop.screen.messages[2].title, Not(HasSubstr("Cubo")));
}

TEST_F(AcceptanceTest, NoTransactionWaitsOnTheUser) {
    bool open = false;
    shop.screen.whileOpen = [&](const screen::MessageBox&) { open = open || shop.connection.transactionOpen(); };
    accepted();
    EXPECT_EQ(shop.screen.messages.size(), 4u);
    EXPECT_FALSE(open);
}

TEST_F(AcceptanceTest, TwoCutsGoBeforeTheLabour) {
    id = shop.addProposal();
    shop.addLabour(id, 10, "0.25");
    shop.chooseAndAccept(id);
    EXPECT_EQ(query("select RUT_pos,RUT_Maq,RUT_Estimado,RUT_IdUsu,RUT_IdOrden,RUT_NumOrden from RUT order by RUT_pos"),
              "1|131|1|7|1|1\n2|131|1|7|1|1\n3|10|0,75|7|1|1");
}

TEST_F(AcceptanceTest, TheRouteCountsThePiecesOfThePanel) {
    id = shop.addProposal({{"DPI_DisCortPESO", "0"}, {"DPI_CubCortPESO", "0"}});
    shop.addLabour(id, 10, "0.5");
    shop.choose(id);
    panel(pieces).setText("2,5");
    shop.accept();
    EXPECT_EQ(query("select RUT_Estimado from RUT"), "1,25");
}

TEST_F(AcceptanceTest, TheProposalStaysTheSameWhateverTheListDoesMeanwhile) {
    shop.addProposal({{"DPI_Z", "11"}, {"DPI_DisCortDM", "1"}, {"DPI_CubCortDM", "1"}});
    shop.addProposal({{"DPI_Z", "22"}});
    shop.list(" Where  ( DPI_FAcepta is null )  Order by DPI_Id DESC ");
    shop.screen.whileOpen = [&](const screen::MessageBox& box) {
        if (box.buttons == screen::Buttons::yesNo) {
            shop.fields.rsDpi->requery();
        }
    };
    shop.accept();
    EXPECT_THAT(shop.errorTexts(), IsEmpty());
    EXPECT_EQ(query("select ORDEN_IdDPI from ORDEN"), "2");
    EXPECT_EQ(query("select Opi_Die from OrdPiñones"), "22");
    EXPECT_EQ(query("select Mat_Dex from Mat"), "165\n95");
    EXPECT_EQ(query("select DPI_Id from DPI where not DPI_FAcepta is null"), "2");
}

}  // namespace
}  // namespace velmora::tracking
