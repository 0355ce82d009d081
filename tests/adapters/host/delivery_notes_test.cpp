#include "velmora/adapters/host/delivery_notes.h"

#include "host_bench.h"

namespace velmora::host {
namespace {

using ::testing::ElementsAre;

class DeliveryNotesTest : public HostTest {
  protected:
    DeliveryNotesTest() {
        store({
            "INSERT INTO PRO (PRO_ID) VALUES (4)",
            "INSERT INTO ART (ART_ID,ART_COD,ART_DES) VALUES (1,N'R-F114',N'Redondo F-114')",
            "INSERT INTO ART (ART_ID,ART_COD,ART_DES) VALUES (2,N'R-F114',N'Redondo F-114 (doble)')",
            "INSERT INTO CAC (CAC_ID,CAC_FECHA,CAC_SERIE,CAC_NUMERO,CAC_IDPRO) VALUES "
            "(7,'14/01/2026 00:00:00',N'A',5007,4)",
            "INSERT INTO LAC (LAC_IDCAC,LAC_CODART,LAC_PRECIO,LAC_DEXTERIOR,LAC_LARGO) VALUES "
            "(7,N'R-F114',0.98765,80,3000)",
            "INSERT INTO LAC (LAC_IDCAC,LAC_CODART,LAC_PRECIO,LAC_ANCHO,LAC_ESPESOR) VALUES (7,N'SUELTO',1.5,60,12)",
            "INSERT INTO LAC (LAC_IDCAC,LAC_CODART,LAC_PRECIO) VALUES (8,N'R-F114',100)",
        });
    }
    void show(std::int32_t id) {
        const auto notes = components.create<components::DeliveryNotes>("SORVEL.SORVELCOMP");
        notes->setMyBd(session);
        notes->jLoad(id, true);
    }
};

TEST_F(DeliveryNotesTest, HeadAndLinesAreShown) {
    screen.queueModal([](screen::Form& form) {
        EXPECT_EQ(form.name(), "frmAlbaran");
        EXPECT_EQ(form.caption(), "Albarán de Compra A / 5007");
        EXPECT_EQ(text(form, "txtAlbaran(0)"), "4");
        EXPECT_EQ(text(form, "txtAlbaran(1)"), "A");
        EXPECT_EQ(text(form, "txtAlbaran(2)"), "5007");
        EXPECT_EQ(text(form, "txtAlbaran(3)"), "14/01/2026");
        EXPECT_EQ(rowCount(form, "dbgLineas"), 2U) << "an article that stands twice in ART makes one line";
        EXPECT_EQ(row(form, "dbgLineas", 0), "R-F114|Redondo F-114 (doble)|||80,00||3.000,00|0,9877");
        EXPECT_EQ(row(form, "dbgLineas", 1), "SUELTO||60,00|12,00||||1,5000");
    });
    show(7);
}

TEST_F(DeliveryNotesTest, PricesOfUnitsAreNotSummed) {
    screen.queueModal([](screen::Form& form) {
        for (const screen::Control* each : form.controls()) {
            const auto* captioned = dynamic_cast<const screen::Captioned*>(each);
            const auto* box = dynamic_cast<const screen::TextBox*>(each);
            EXPECT_TRUE(captioned == nullptr || captioned->caption() != "2,4877") << each->fullName();
            EXPECT_TRUE(box == nullptr || box->text() != "2,4877") << each->fullName();
            EXPECT_EQ(each->fullName().find("Total"), std::string::npos) << each->fullName();
        }
    });
    show(7);
}

TEST_F(DeliveryNotesTest, PricesHaveTheDecimalsThatTheHostAsksFor) {
    for (const int outside : {-1, 99}) {
        session.setParametro("par_decprecom", outside);
        screen.queueModal([](screen::Form&) {});
        EXPECT_NO_THROW(show(7)) << outside;
    }
    session.setParametro("par_decprecom", 2);
    screen.queueModal([](screen::Form& form) { EXPECT_EQ(row(form, "dbgLineas", 1), "SUELTO||60,00|12,00||||1,50"); });
    show(7);
}

TEST_F(DeliveryNotesTest, DecimalsThatNoPriceCanHaveAreTheNearestThatItCan) {
    session.setParametro("par_decprecom", -3);
    screen.queueModal([](screen::Form& form) {
        EXPECT_EQ(row(form, "dbgLineas", 1), "SUELTO||60,00|12,00||||2,") << "as in the list of prices";
    });
    show(7);
}

TEST_F(DeliveryNotesTest, AnUnknownKeyIsSaidAndNothingIsShown) {
    show(99);
    EXPECT_THAT(screen.messageTexts(), ElementsAre("No existe el albarán con la clave 99."));
}

TEST_F(DeliveryNotesTest, NothingCanBeEnteredAndEscapeOrTheButtonCloses) {
    screen.queueModal([](screen::Form& form) {
        expectReadOnlyAndNamed(form);
        form.keyDown(screen::Key::escape);
        EXPECT_TRUE(form.isUnloaded());
    });
    show(7);
    screen.queueModal([](screen::Form& form) {
        dynamic_cast<screen::Button&>(control(form, "cmdSalir")).onClick();
        EXPECT_TRUE(form.isUnloaded());
    });
    show(7);
}

TEST_F(DeliveryNotesTest, WithoutASessionNothingCanBeShown) {
    DeliveryNoteViewer notes(screen);
    EXPECT_THROW(notes.jLoad(7, true), runtime::RuntimeError);
}

}  // namespace
}  // namespace velmora::host
