#include "velmora/estimate/cut_prices.h"

#include "fields_alone.h"

namespace velmora::support {
namespace {

using estimate::CutPrices;

class CutPricesTest : public SessionAlone {
  protected:
    CutPrices prices{session};
};

TEST_F(CutPricesTest, GivesTheRateOfTheMaterial) {
    prices.msCargarPreciosCorte();
    EXPECT_EQ(prices.FnPrecioCorte("001"), 0.05);
    EXPECT_EQ(prices.FnPrecioCorte("2"), 0.02);
    EXPECT_EQ(prices.FnPrecioCorte("004"), 0.03);
    EXPECT_EQ(prices.FnPrecioCorte("001"), 0.05) << "each search begins at the first row";
}

TEST_F(CutPricesTest, AnIdWithNoRowCostsTheDefault) {
    prices.msCargarPreciosCorte();
    EXPECT_EQ(prices.FnPrecioCorte("099"), 0.01);
    EXPECT_EQ(prices.FnPrecioCorte("007"), 0.01);
}

TEST_F(CutPricesTest, ARateOfZeroCostsTheDefault) {
    prices.msCargarPreciosCorte();
    EXPECT_EQ(prices.FnPrecioCorte("006"), 0.01);
}

TEST_F(CutPricesTest, ATextThatIsNoNumberCostsTheDefault) {
    prices.msCargarPreciosCorte();
    EXPECT_EQ(prices.FnPrecioCorte("abc"), 0.01);
    EXPECT_EQ(prices.FnPrecioCorte(""), 0.01);
    EXPECT_EQ(prices.FnPrecioCorte("001"), 0.05) << "an error does not outlive its question";
}

TEST_F(CutPricesTest, OnlyARateAboveZeroIsTheMaterialsOwn) {
    EXPECT_FALSE(prices.hasOwnRate("001")) << "not loaded";
    prices.msCargarPreciosCorte();
    EXPECT_TRUE(prices.hasOwnRate("001"));
    EXPECT_FALSE(prices.hasOwnRate("006"));
    EXPECT_FALSE(prices.hasOwnRate("099"));
}

TEST_F(CutPricesTest, OfTwoRowsForAMaterialTheFirstCounts) {
    materials.push_back(material(1));
    materials.back().rate = 0.7;
    answerMaterials(database, materials);
    prices.msCargarPreciosCorte();
    EXPECT_EQ(prices.FnPrecioCorte("001"), 0.05);
}

TEST_F(CutPricesTest, RatesThatWereNeverLoadedCostTheDefault) {
    EXPECT_EQ(prices.FnPrecioCorte("001"), 0.01);
}

TEST_F(CutPricesTest, NoMaterialAtAllCostsTheDefault) {
    answerMaterials(database, {});
    prices.msCargarPreciosCorte();
    EXPECT_EQ(prices.FnPrecioCorte("001"), 0.01);
}

TEST_F(CutPricesTest, AMaterialAddedLaterCostsTheDefaultUntilTheRatesAreLoadedAgain) {
    prices.msCargarPreciosCorte();
    materials.push_back(material(1));
    materials.back().id = 9;
    answerMaterials(database, materials);
    EXPECT_EQ(prices.FnPrecioCorte("009"), 0.01);
    prices.msCargarPreciosCorte();
    EXPECT_EQ(prices.FnPrecioCorte("009"), 0.05);
}

TEST_F(CutPricesTest, AChangedRateCountsOnlyAfterTheNextLoad) {
    prices.msCargarPreciosCorte();
    material(1).rate = 0.5;
    answerMaterials(database, materials);
    EXPECT_EQ(prices.FnPrecioCorte("001"), 0.05);
}

TEST_F(CutPricesTest, AsksTheDatabaseOnceAndThenNoMore) {
    prices.msCargarPreciosCorte();
    EXPECT_EQ(
        connection.log(),
        std::vector<std::string>{
            "Select PARDPI_ID,mat_pcs from materiales inner join art on materiales.mat_id= art.art_mat inner join "
            "PARDPI on art_id = PARDPI_ART where PARDPI_ID>0 "});
    connection.clear();
    for (const char* id : {"001", "004", "099", "x", "001"}) {
        prices.FnPrecioCorte(id);
    }
    EXPECT_TRUE(connection.log().empty());
}

TEST_F(CutPricesTest, AFailingLoadReachesTheCaller) {
    connection.refuse("mat_pcs");
    EXPECT_THROW(prices.msCargarPreciosCorte(), sql::DbError);
}

}  // namespace
}  // namespace velmora::support
