#include "velmora/estimate/material_lists.h"

#include "wired_fields.h"

namespace velmora::support {
namespace {

using Entries = std::vector<std::string>;

const Entries discs{"001 - Disco F-114", "003 - Chapa hierro", "004 - Tubo disco", "006 - Sin tarifa"};
const Entries hubs{"002 - Cubo F-1140", "005 - Tubo cubo", "007 - Sin material"};
const Entries racks{"008 - Pletina"};

class MaterialListsTest : public WiredFields {
  protected:
    estimate::MaterialLists& lists() { return parts().materials; }
    void answerChanges() { answerMaterials(database, materials); }
};

TEST_F(MaterialListsTest, EntriesBeginWithTheNumberInThreeCharacters) {
    EXPECT_EQ(fields().cboMatDisco.items(), discs);
    EXPECT_EQ(fields().cboMatCubo.items(), hubs);
    EXPECT_EQ(fields().cboMatCre.items(), racks);
}

TEST_F(MaterialListsTest, ANumberAboveThreeFiguresLosesItsEndOnTheWayBack) {
    fields().cboMatDisco.addItem("1234 - Largo");
    fields().cboMatDisco.setText("1234 - Largo");
    EXPECT_EQ(estimate::entryKey(fields().cboMatDisco), "123") << "the number in front is 1234";
}

TEST_F(MaterialListsTest, NewListsStandOnTheirFirstEntries) {
    EXPECT_EQ(fields().cboMatDisco.listIndex(), 0);
    EXPECT_EQ(fields().cboMatCubo.listIndex(), 0);
    EXPECT_EQ(fields().cboMatCre.listIndex(), 0);
    EXPECT_EQ((*fields().rsMatDisco)["PARDPI_ID"].toLong(), 1);
    EXPECT_EQ((*fields().rsMatCubo)["PARDPI_ID"].toLong(), 2);
    EXPECT_EQ((*fields().rsMatCre)["PARDPI_ID"].toLong(), 8);
}

TEST_F(MaterialListsTest, ASmallPieceChoosesRoundsInBothLists) {
    lists().msCargarMaterialesSinCubo();
    EXPECT_EQ(fields().cboMatDisco.items(), hubs);
    EXPECT_EQ(fields().cboMatCubo.items(), hubs);
    EXPECT_EQ((*fields().rsMatDisco)["PARDPI_ID"].toLong(), 2);
}

TEST_F(MaterialListsTest, AnIndexIsKeptByPosition) {
    fields().cboMatDisco.setListIndex(2);
    fields().cboMatCubo.setListIndex(1);
    lists().msCargarMaterialesSinCubo();
    EXPECT_EQ(fields().cboMatDisco.text(), "007 - Sin material");
    EXPECT_EQ(fields().cboMatCubo.text(), "005 - Tubo cubo");
    EXPECT_EQ((*fields().rsMatDisco)["PARDPI_ID"].toLong(), 7);
}

TEST_F(MaterialListsTest, AnIndexPastTheEndBecomesTheFirst) {
    fields().cboMatDisco.setListIndex(3);
    lists().msCargarMaterialesSinCubo();
    EXPECT_EQ(fields().cboMatDisco.listIndex(), 0);
    materials.erase(materials.begin() + 6);
    answerChanges();
    fields().cboMatCubo.setListIndex(2);
    lists().msCargarMaterialesConCubo();
    EXPECT_EQ(fields().cboMatCubo.listIndex(), 0);
}

TEST_F(MaterialListsTest, AListWithEntriesAndNoIndexTakesItsFirst) {
    material(8).rack = false;
    answerChanges();
    lists().msCargarMaterialesCre();
    EXPECT_EQ(fields().cboMatCre.listIndex(), -1);
    material(8).rack = true;
    answerChanges();
    lists().msCargarMaterialesCre();
    EXPECT_EQ(fields().cboMatCre.listIndex(), 0);
}

TEST_F(MaterialListsTest, AMaterialWithoutANameIsListedByItsNumber) {
    for (const int id : {1, 2, 8}) {
        material(id).name = nullptr;
    }
    openAnewWithMaterials();
    EXPECT_EQ(fields().cboMatDisco.text(), "001 - ");
    EXPECT_EQ(fields().cboMatCubo.text(), "002 - ");
    EXPECT_EQ(fields().cboMatCre.text(), "008 - ");
    EXPECT_EQ((*fields().rsMatDisco)["PARDPI_ID"].toLong(), 1);
}

TEST_F(MaterialListsTest, AWorkshopWithoutMaterialsHasEmptyListsAndAFormAllTheSame) {
    materials.clear();
    openAnewWithMaterials();
    EXPECT_EQ(fields().cboMatDisco.listCount(), 0);
    EXPECT_EQ(fields().cboMatCubo.listIndex(), -1);
    EXPECT_FALSE(fields().rsMatDisco->isOpen());
    enterLargeSprocket();
    EXPECT_EQ(fields().Text4(2).text(), "100") << "the hub is sized though nothing prices it";
    EXPECT_EQ(fields().txtPesu(15).text(), "0,00");
}

TEST_F(MaterialListsTest, ChoosingOpensTheRowWithItsArticle) {
    fields().cboMatDisco.setListIndex(1);
    EXPECT_EQ(connection.log(), Entries{"SELECT PARDPI.*,ART.* FROM PARDPI INNER JOIN ART ON PARDPI_ART = ART_ID WHERE "
                                        "PARDPI_ID= 3"});
    EXPECT_EQ((*fields().rsMatDisco)["ART_COD"].toText(), "CH-FE");
}

TEST_F(MaterialListsTest, BothEventsOfAListRunTheSameBody) {
    fields().cboMatDisco.setText("004 - Tubo disco");
    EXPECT_EQ((*fields().rsMatDisco)["PARDPI_ID"].toLong(), 1) << "no event yet";
    fields().cboMatDisco.onChosen();
    EXPECT_EQ((*fields().rsMatDisco)["PARDPI_ID"].toLong(), 4);
    fields().cboMatCubo.setText("005 - Tubo cubo");
    fields().cboMatCubo.onChosen();
    EXPECT_EQ((*fields().rsMatCubo)["PARDPI_ID"].toLong(), 5);
}

TEST_F(MaterialListsTest, ChoosingNothingIsATypeMismatch) {
    try {
        fields().cboMatDisco.setListIndex(-1);
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& e) {
        EXPECT_EQ(e.number(), runtime::typeMismatch);
    }
}

TEST_F(MaterialListsTest, StatementsOfTheListsToTheLetter) {
    lists().msCargarMaterialesConCubo();
    lists().msCargarMaterialesSinCubo();
    lists().msCargarMaterialesCre();
    EXPECT_EQ(connection.logged("SELECT * FROM"),
              (Entries{"SELECT * FROM PARDPI where PARDPI_DISCO=1", "SELECT * FROM PARDPI where PARDPI_DISCO=0",
                       "SELECT * FROM PARDPI where PARDPI_DISCO=0", "SELECT * FROM PARDPI where PARDPI_DISCO=0",
                       "SELECT * FROM PARDPI where PARDPI_CRE=1"}));
}

}  // namespace
}  // namespace velmora::support
