#include "velmora/adapters/host/work_orders.h"

#include "host_bench.h"

namespace velmora::host {
namespace {

using ::testing::ElementsAre;

class WorkOrdersTest : public HostTest {
  protected:
    void storeOrder() {
        store({
            "INSERT INTO ORDEN (ORDEN_NUM,ORDEN_SER,ORDEN_CLI,ORDEN_NOM,ORDEN_GF,ORDEN_OBS,ORDEN_UNI,ORDEN_REF,"
            "ORDEN_INI,ORDEN_ADE,ORDEN_ART,ORDEN_PLA,ORDEN_PRE,ORDEN_IdDPI,ORDEN_PED,ORDEN_DES) VALUES "
            "(41,N'0',1001,N'TALLERES NORTE SL',1.5,N'Pintado',3,N'R-7','15/01/2026 00:00:00',N'',NULL,NULL,1234.5,7,"
            "NULL,N'Piñon Especial Z 38')",
            "INSERT INTO OrdPiñones (Opi_OrdId,Opi_Pas,Opi_Die,Opi_Rod,Opi_PesoCub) VALUES (1,12.7,38,7.75,2.43)",
            "INSERT INTO OrdPiñones (Opi_OrdId,Opi_Pas,Opi_Die) VALUES (2,19.05,17)",
            "INSERT INTO Mat (Mat_Ord,Mat_Art,Mat_Des,Mat_Dex,Mat_Din,Mat_Anc,Mat_Esp,Mat_Lar,Mat_Uni,MAT_UdCorte,"
            "MAT_DmCorte,MAT_LargoCorte) VALUES (41,N'R-F114',N'Redondo',162,1,1,1,36,1,3,162,10)",
            "INSERT INTO Mat (Mat_Ord,Mat_Art,Mat_Des,Mat_Dex) VALUES (42,N'OTRA',N'De otra orden',1)",
            "INSERT INTO MAQ (MAQ_ID,MAQ_NOM,MAQ_SEC) VALUES (10,N'Torno CNC',1)",
            "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos) VALUES "
            "(1,2,1,41,10,0.535,4)",
            "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos) VALUES "
            "(1,1,1,41,131,1,9)",
            "INSERT INTO RUT (RUT_IdUsu,RUT_pos,RUT_IdOrden,RUT_NumOrden,RUT_Maq,RUT_Estimado,RUT_Mpos) VALUES "
            "(1,1,2,42,10,1,5)",
        });
    }
    void show(std::int32_t number) {
        const auto orders = components.create<components::WorkOrders>("KOLTAR.KOLTARD");
        orders->setMyBd(session);
        orders->jLoad(number);
    }
};

TEST_F(WorkOrdersTest, TheHeadIsShownAsTheHostWouldReadIt) {
    storeOrder();
    screen.queueModal([](screen::Form& form) {
        EXPECT_EQ(form.name(), "frmOrden");
        EXPECT_EQ(form.caption(), "Orden de Trabajo nº 41");
        const std::vector<std::string> expected{"41",
                                                "0",
                                                "15/01/2026",
                                                "",
                                                "000007",
                                                "1001",
                                                "TALLERES NORTE SL",
                                                "3",
                                                "1.234,50",
                                                "1,50",
                                                "Piñon Especial Z 38",
                                                "R-7",
                                                "",
                                                "",
                                                "",
                                                "Pintado"};
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(text(form, "txtOrden(" + std::to_string(i) + ")"), expected[i]) << i;
        }
    });
    show(41);
}

TEST_F(WorkOrdersTest, MeasuresMaterialAndRouteAreThoseOfTheOrder) {
    storeOrder();
    screen.queueModal([](screen::Form& form) {
        EXPECT_TRUE(control(form, "fraPiñon").isVisible());
        EXPECT_EQ(text(form, "txtPiñon(0)"), "12,70");
        EXPECT_EQ(text(form, "txtPiñon(1)"), "38");
        EXPECT_EQ(text(form, "txtPiñon(2)"), "7,75");
        EXPECT_EQ(text(form, "txtPiñon(3)"), "") << "a measure that was never written";
        EXPECT_EQ(text(form, "txtPiñon(20)"), "2,43");
        EXPECT_EQ(rowCount(form, "dbgMaterial"), 1U);
        EXPECT_EQ(row(form, "dbgMaterial", 0), "R-F114|Redondo|162,00|1,00|1,00|1,00|36,00|1|3|162,00|10,00");
        EXPECT_EQ(rowCount(form, "dbgRuta"), 2U);
        EXPECT_EQ(row(form, "dbgRuta", 0), "1|131||1,00|9") << "by position; a machine that MAQ lacks has no name";
        EXPECT_EQ(row(form, "dbgRuta", 1), "2|10|Torno CNC|0,54|4");
    });
    show(41);
}

TEST_F(WorkOrdersTest, AnOrderForARackShowsNoSprocket) {
    store({"INSERT INTO ORDEN (ORDEN_NUM,ORDEN_NOM) VALUES (50,N'CREMALLERAS SA')"});
    screen.queueModal([](screen::Form& form) {
        EXPECT_EQ(text(form, "txtOrden(6)"), "CREMALLERAS SA");
        EXPECT_FALSE(control(form, "fraPiñon").isVisible());
        EXPECT_EQ(rowCount(form, "dbgMaterial"), 0U);
        EXPECT_EQ(rowCount(form, "dbgRuta"), 0U);
    });
    show(50);
}

TEST_F(WorkOrdersTest, AnUnknownNumberIsSaidAndNothingIsShown) {
    storeOrder();
    show(7);
    EXPECT_THAT(screen.messageTexts(), ElementsAre("No existe la orden de trabajo nº 7."));
    EXPECT_EQ(screen.messages[0].icon, screen::Icon::exclamation);
}

TEST_F(WorkOrdersTest, NothingCanBeEnteredAndEscapeOrTheButtonCloses) {
    storeOrder();
    screen.queueModal([](screen::Form& form) {
        expectReadOnlyAndNamed(form);
        EXPECT_EQ(form.activeControl(), &control(form, "txtOrden(0)"));
        form.keyDown(screen::Key::escape);
        EXPECT_TRUE(form.isUnloaded());
    });
    show(41);
    screen.queueModal([](screen::Form& form) {
        dynamic_cast<screen::Button&>(control(form, "cmdSalir")).onClick();
        EXPECT_TRUE(form.isUnloaded());
    });
    show(41);
}

TEST_F(WorkOrdersTest, WithoutASessionNothingCanBeShown) {
    const auto orders = components.create<components::WorkOrders>("koltar.koltard");
    try {
        orders->jLoad(41);
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), 91);
    }
}

}  // namespace
}  // namespace velmora::host
