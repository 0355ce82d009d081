#include "velmora/tracking/detail.h"

#include <gmock/gmock.h>

#include "tracking_form.h"

namespace velmora::tracking {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DetailTest : public TrackingTest {
  protected:
    DetailTest() {
        const char* const columns =
            "DPI_Fecha,DPI_RefCli,DPI_PedCliente,DPI_FPedCliente,DPI_FechaEntrega,DPI_Z,DPI_Pas,DPI_AC,DPI_Rodillo,"
            "DPI_Eje,Dpi_Modulo";
        store(columns, "'12/01/2026',N'REF-1',N'PED-1','02/01/2026','20/02/2026',38,12.7,7.75,8.51,24,0");
        store(columns, "'11/01/2026',NULL,NULL,NULL,NULL,21,19.05,11.68,12.07,30,2.5");
        open();
    }
    std::vector<std::string> details() {
        std::vector<std::string> all;
        fields().txtPesu.forEach([&](screen::TextBox& box) { all.push_back(box.text()); });
        return all;
    }
    void moveTo(std::size_t row) {
        shop.attempt([&] { fields().dbgDPI.moveToRow(row); });
    }
};

TEST_F(DetailTest, TheRowUnderTheCursorIsShown) {
    listAll();
    EXPECT_THAT(details(), ElementsAre("1001", "TALLERES NORTE SL", "REF-1", "PED-1", "02/01/2026", "20/02/2026",
                                       "10,5", "20", "0", "1,25", "1234,5", "3", "3703,5"));
}

TEST_F(DetailTest, ItsMeasuresBecomeTheExampleOfTheSearch) {
    listAll();
    EXPECT_EQ(measure(1), "38");
    EXPECT_EQ(measure(0), "12,7");
    EXPECT_EQ(measure(8), "7,75");
    EXPECT_EQ(measure(7), "24");
    EXPECT_EQ(measure(2), "8,51");
    EXPECT_EQ(measure(3), "0");
}

TEST_F(DetailTest, ThePanelFollowsTheGrid) {
    listAll();
    moveTo(1);
    EXPECT_THAT(details(), ElementsAre("1001", "TALLERES NORTE SL", "", "", "", "", "10,5", "20", "0", "1,25", "1234,5",
                                       "3", "3703,5"));
    EXPECT_EQ(measure(1), "21");
    EXPECT_EQ(measure(3), "2,5");
    moveTo(0);
    EXPECT_EQ(detail(customerReference), "REF-1");
}

TEST_F(DetailTest, AnEmptyListKeepsTheLastRowOnThePanel) {
    listAll();
    fields().txtCriterio(numberFrom).setText("99");
    press(fields().cmdfiltro);
    ASSERT_THAT(listed(), IsEmpty());
    EXPECT_EQ(detail(customerOrder), "PED-1");
    EXPECT_EQ(measure(1), "38");
}

TEST_F(DetailTest, ARowOverwritesWhatWasTypedForTheSearchAndForAnOrder) {
    listAll();
    set(fields().Text1(1), "99");
    set(fields().txtPesu(customerOrder), "NUEVO");
    moveTo(1);
    EXPECT_EQ(measure(1), "21");
    EXPECT_EQ(detail(customerOrder), "");
    EXPECT_EQ(shop.query("select DPI_PedCliente from DPI where DPI_Id=1"), "PED-1") << "nothing is saved here";
}

TEST_F(DetailTest, AMeasureThatIsNotThereLeavesItsField) {
    shop.database->execute("update DPI set DPI_Eje=NULL, DPI_Z=NULL where DPI_Id=2");
    listAll();
    moveTo(1);
    EXPECT_EQ(measure(7), "24");
    EXPECT_EQ(measure(1), "38");
    EXPECT_EQ(measure(0), "19,05");
    EXPECT_EQ(measure(3), "2,5");
    EXPECT_THAT(shop.errors, IsEmpty());
}

TEST_F(DetailTest, ANullThatMustBeShownIsAnErrorInTheMidstOfTheFilling) {
    listAll();
    for (const char* column : {"DPI_CodCliente", "DPI_NomCliente", "DPI_ImpMat", "DPI_ImpMO", "DPI_ImpTS", "DPI_ImpVA",
                               "DPI_ImpTP", "DPI_Unidades", "DPI_Importe"}) {
        shop.errors.clear();
        shop.database->execute("update DPI set " + std::string(column) + "=NULL where DPI_Id=1");
        press(fields().cmdfiltro);
        EXPECT_THAT(shop.errorNumbers(), ElementsAre(94)) << column;
        EXPECT_THAT(listed(), ElementsAre("000001", "000002")) << column << ": the list stands all the same";
        shop.database->execute("update DPI set " + std::string(column) + "=7 where DPI_Id=1");
    }
}

TEST_F(DetailTest, WhatComesBeforeTheNullIsFilledAndTheRestLeft) {
    shop.database->execute("update DPI set DPI_RefCli=N'REF-2', DPI_ImpMO=NULL, DPI_ImpMat=11 where DPI_Id=2");
    listAll();
    moveTo(1);
    EXPECT_THAT(shop.errorNumbers(), ElementsAre(94));
    EXPECT_EQ(detail(customerReference), "REF-2");
    EXPECT_EQ(detail(materialAmount), "11");
    EXPECT_EQ(detail(labourAmount), "20");
    EXPECT_EQ(measure(1), "38") << "the measures are not reached";
    EXPECT_EQ(fields().rsDpi->position(), 1u);
}

TEST_F(DetailTest, TheRowsBehindAnUnshowableOneCanStillBeReached) {
    shop.database->execute("update DPI set DPI_NomCliente=NULL where DPI_Id=1");
    listAll();
    EXPECT_THAT(shop.errorNumbers(), ElementsAre(94));
    moveTo(1);
    EXPECT_EQ(measure(1), "21");
}

TEST_F(DetailTest, TheRowShownIsKeptAsItWas) {
    EXPECT_FALSE(fields().shown.isOpen());
    listAll();
    const sql::Recordset first = fields().shown;
    shop.database->execute("update DPI set DPI_RefCli=N'OTRA' where DPI_Id=1");
    moveTo(1);
    EXPECT_EQ(first["DPI_Id"].toLong(), 1);
    EXPECT_EQ(first["DPI_RefCli"].toText(), "REF-1");
    EXPECT_EQ(fields().shown["DPI_Id"].toLong(), 2);
}

TEST_F(DetailTest, NoRowCountsAsShownWhenThePanelDoesNotShowItWhole) {
    shop.database->execute("update DPI set DPI_ImpTS=NULL where DPI_Id=2");
    listAll();
    EXPECT_TRUE(fields().shown.isOpen());
    moveTo(1);
    EXPECT_FALSE(fields().shown.isOpen());
    EXPECT_FALSE(isEdited(fields()));
    moveTo(0);
    EXPECT_TRUE(fields().shown.isOpen());
    fields().txtCriterio(numberFrom).setText("99");
    press(fields().cmdfiltro);
    EXPECT_FALSE(fields().shown.isOpen()) << "the panel keeps a row that the list no longer has";
}

TEST_F(DetailTest, ThePanelIsEditedOnceAFieldHoldsSomethingElse) {
    listAll();
    EXPECT_FALSE(isEdited(fields()));
    for (int field = customerCode; field <= totalAmount; ++field) {
        const std::string before = detail(field);
        fields().txtPesu(field).setText(before + "1");
        EXPECT_TRUE(isEdited(fields())) << field;
        fields().txtPesu(field).setText(before);
        EXPECT_FALSE(isEdited(fields())) << field;
    }
    moveTo(1);
    EXPECT_FALSE(isEdited(fields())) << "nulls are shown as nothing";
    goTo(fields().txtPesu(orderDate));
    form->leaveFocus();
    EXPECT_FALSE(isEdited(fields()));
}

// ---- The fields -------------------------------------------------------------------------------------------------

TEST_F(DetailTest, DatesTakeDigitsAloneAndOtherFieldsTakeAll) {
    type(fields().txtPesu(orderDate), "0a5/0.1,26");
    EXPECT_EQ(detail(orderDate), "050126");
    type(fields().txtPesu(customerOrder), "P-1/a");
    EXPECT_EQ(detail(customerOrder), "P-1/a");
    type(fields().txtPesu(pieces), "2,x");
    EXPECT_EQ(detail(pieces), "2,x");
}

TEST_F(DetailTest, KeysInFieldsThatAreNoDatesLetTheScreenCatchUp) {
    shop.screen.yields = 0;
    type(fields().txtPesu(customerName), "abc");
    EXPECT_EQ(shop.screen.yields, 3);
    type(fields().txtPesu(deliveryDate), "0101");
    EXPECT_EQ(shop.screen.yields, 3);
}

TEST_F(DetailTest, ATypedDateIsShownAsOne) {
    for (const auto& [typed, shown] : {std::pair{"050126", "05/01/2026"}, std::pair{"05012026", "05/01/2026"},
                                       std::pair{"5/1/26", "05/01/2026"}, std::pair{"999999", "999999"}}) {
        set(fields().txtPesu(deliveryDate), typed);
        form->leaveFocus();
        EXPECT_EQ(detail(deliveryDate), shown) << typed;
    }
}

TEST_F(DetailTest, ADateOfAnotherLengthIsThrownAway) {
    for (const char* typed : {"5", "50126", "050120261", "5/1/2026x", ""}) {
        set(fields().txtPesu(orderDate), typed);
        form->leaveFocus();
        EXPECT_EQ(detail(orderDate), "") << typed;
    }
}

TEST_F(DetailTest, PassingThroughADateWipesIt) {
    listAll();
    ASSERT_EQ(detail(orderDate), "02/01/2026");
    goTo(fields().txtPesu(orderDate));
    EXPECT_EQ(detail(orderDate), "02/01/2026") << "the slashes stay while the focus is there";
    form->leaveFocus();
    EXPECT_EQ(detail(orderDate), "");
    EXPECT_EQ(detail(deliveryDate), "20/02/2026");
    goTo(fields().txtPesu(deliveryDate));
    form->leaveFocus();
    EXPECT_EQ(detail(deliveryDate), "");
}

TEST_F(DetailTest, TheFieldWithTheFocusIsYellow) {
    goTo(fields().txtPesu(customerReference));
    EXPECT_EQ(fields().txtPesu(customerReference).backColor(), screen::colors::yellow);
    EXPECT_TRUE(fields().txtPesu(customerReference).allSelected());
    goTo(fields().txtPesu(orderDate));
    EXPECT_EQ(fields().txtPesu(customerReference).backColor(), screen::colors::white);
    form->leaveFocus();
    EXPECT_EQ(fields().txtPesu(orderDate).backColor(), screen::colors::white);
}

TEST_F(DetailTest, OtherFieldsKeepWhatWasTyped) {
    set(fields().txtPesu(customerCode), "12,345");
    form->leaveFocus();
    EXPECT_EQ(detail(customerCode), "12,345");
}

}  // namespace
}  // namespace velmora::tracking
