// What stands when a save fails, wherever it fails: nothing in the database, all that was typed on a form that can be
// used.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "velmora/proposal/saving.h"

#include "support/proposal_workshop.h"

namespace velmora::proposal {
namespace {

using screen::Key;
using support::ProposalWorkshop;
using support::TemporaryFolder;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// The handle of the database that was opened first, for what only the engine itself can be told.
sqlite3* openedFirst = nullptr;

int remember(sqlite3* database, const char**, const void*) {
    openedFirst = openedFirst == nullptr ? database : openedFirst;
    return SQLITE_OK;
}

/// While it lives, `openedFirst` waits for a database.
struct Watch {
    Watch() { EXPECT_EQ(sqlite3_auto_extension(reinterpret_cast<void (*)()>(&remember)), SQLITE_OK); }
    ~Watch() {
        openedFirst = nullptr;
        sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(&remember));
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
};

void enter(ProposalWorkshop& workshop) {
    workshop.enterToothing();
    workshop.enterCustomerAndUnits();
    workshop.set("txtObservaciones", "no se pierde");
    workshop.set("txtPesu(2)", "R-77");
}

/// A refused save has left everything as it was.
void expectRefused(ProposalWorkshop& workshop, const std::vector<std::string>& before, const std::string& reason) {
    ASSERT_THAT(workshop.screen.messageTexts(), ElementsAre(HasSubstr(reason)));
    EXPECT_THAT(workshop.errors, IsEmpty());
    EXPECT_EQ(workshop.texts(), before);
    EXPECT_TRUE(workshop.form().enabled());
    EXPECT_FALSE(workshop.form().isUnloaded());
    const auto& f = workshop.fields();
    EXPECT_FALSE(f.bCargandoPropuesta || f.bCargandoDisco || f.bCargandoCubo);
    EXPECT_TRUE(workshop.session.Campos().fields().empty());
    EXPECT_TRUE(f.txtPesu(0).enabled());
    EXPECT_EQ(workshop.screen.pointers.back(), screen::Pointer::normal);
}

TEST(SaveFailuresTest, AFailureAtEachStepOfANewRowInTurnLosesNothing) {
    int steps = 0;
    {
        ProposalWorkshop counted;
        enter(counted);
        counted.faults.count();
        counted.key(Key::f5);
        steps = counted.faults.operations();
    }
    ASSERT_GT(steps, 10);
    int refused = 0;
    for (int step = 0; step < steps; ++step) {
        SCOPED_TRACE(step);
        ProposalWorkshop workshop;
        enter(workshop);
        const std::vector<std::string> before = workshop.texts();
        workshop.faults.failAt(step);
        workshop.key(Key::f5);
        workshop.faults.count();
        const bool stored = workshop.query("select count(*) from DPI") == "1";
        if (!stored) {
            ++refused;
            expectRefused(workshop, before, "Error en la grabacion del registro:\r\nFallo provocado");
            EXPECT_EQ(workshop.form().tag(), "E");
        } else {
            EXPECT_THAT(workshop.screen.messageTexts(), ElementsAre("Datos Grabados satisfactoriamente"));
            EXPECT_EQ(workshop.text("txtPesu(3)"), "1") << "the row is there, and the form knows it";
            const auto& f = workshop.fields();
            EXPECT_FALSE(f.bCargandoPropuesta || f.bCargandoDisco || f.bCargandoCubo);
            EXPECT_TRUE(workshop.form().enabled());
        }
        workshop.screen.messages.clear();
        workshop.errors.clear();
        workshop.key(Key::f5);
        EXPECT_EQ(workshop.query("select count(*) from DPI"), "1") << "the second try stores it once";
        EXPECT_EQ(workshop.query("select DPI_Obser from DPI"), "no se pierde");
        EXPECT_THAT(workshop.screen.messageTexts(), ElementsAre("Datos Grabados satisfactoriamente"));
        EXPECT_THAT(workshop.errors, IsEmpty());
    }
    EXPECT_EQ(refused, 5) << "begin, insert, highest number, date, commit";
}

TEST(SaveFailuresTest, AFailureAtEachStepOfAChangedRowInTurnLosesNothing) {
    constexpr int begin = 0;
    constexpr int commit = 4;  // behind the look at the row, the look at the orders, and the update
    for (int step = begin; step <= commit; ++step) {
        SCOPED_TRACE(step);
        ProposalWorkshop workshop;
        enter(workshop);
        workshop.key(Key::f5);
        workshop.screen.messages.clear();
        workshop.set("txtPesu(11)", "9");
        workshop.set("txtObservaciones", "otra cosa");
        workshop.leave();
        const std::vector<std::string> before = workshop.texts();
        workshop.faults.failAt(step);
        workshop.key(Key::f5);
        workshop.faults.count();
        expectRefused(workshop, before, "Error en la actualizacion del registro\r\nFallo provocado");
        EXPECT_EQ(workshop.query("select DPI_Obser from DPI"), "no se pierde");
        EXPECT_EQ(workshop.query("select DPI_Unidades from DPI"), "3");
        workshop.key(Key::f5);
        EXPECT_EQ(workshop.query("select DPI_Obser from DPI"), "otra cosa");
        EXPECT_EQ(workshop.query("select DPI_Unidades from DPI"), "9");
    }
}

TEST(SaveFailuresTest, AFullDiskIsRefusedWithItsReason) {
    TemporaryFolder folder;
    const std::string path = folder.file("taller.db");
    { const auto made = support::makeWorkshopDatabase(path); }
    const Watch watch;
    ProposalWorkshop workshop(support::openWorkshopDatabase(path));
    sqlite3* const database = openedFirst;
    ASSERT_EQ(sqlite3_exec(database, "PRAGMA max_page_count = 1", nullptr, nullptr, nullptr), SQLITE_OK);
    enter(workshop);
    workshop.set("txtObservaciones", std::string(3900, 'x'));
    std::vector<std::string> before;
    int stored = 0;
    while (true) {
        before = workshop.texts();
        workshop.screen.messages.clear();
        workshop.key(Key::f5);
        if (workshop.screen.messageTexts() != std::vector<std::string>{"Datos Grabados satisfactoriamente"}) {
            break;
        }
        ASSERT_LT(++stored, 50) << "the disk is never full";
        workshop.openAnew();
        enter(workshop);
        workshop.set("txtObservaciones", std::string(3900, 'x'));
    }
    expectRefused(workshop, before, "No queda espacio en el disco de la base de datos.");
    EXPECT_EQ(workshop.query("select count(*) from DPI"), std::to_string(stored));
    ASSERT_EQ(sqlite3_exec(database, "PRAGMA max_page_count = 1000000", nullptr, nullptr, nullptr), SQLITE_OK);
    workshop.key(Key::f5);
    EXPECT_EQ(workshop.query("select count(*) from DPI"), std::to_string(stored + 1)) << "with room again it goes";
}

TEST(SaveFailuresTest, AReadOnlyFileIsRefusedWithItsReason) {
    TemporaryFolder folder;
    const std::string path = folder.file("taller.db");
    { const auto made = support::makeWorkshopDatabase(path); }
    ProposalWorkshop workshop(support::openWorkshopDatabase(path, true));
    enter(workshop);
    const std::vector<std::string> before = workshop.texts();
    workshop.key(Key::f5);
    expectRefused(workshop, before, "La base de datos es de solo lectura.");
}

TEST(SaveFailuresTest, ADatabaseThatAnotherWriterHoldsIsRefusedAndFreeAgainAfterwards) {
    TemporaryFolder folder;
    const std::string path = folder.file("taller.db");
    ProposalWorkshop workshop(support::makeWorkshopDatabase(path));
    const auto other = support::openWorkshopDatabase(path);
    other->beginTrans();
    enter(workshop);
    const std::vector<std::string> before = workshop.texts();
    workshop.key(Key::f5);
    expectRefused(workshop, before, "La base de datos está ocupada por otro proceso. Inténtelo de nuevo.");
    other->rollbackTrans();
    workshop.key(Key::f5);
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "1");
}

TEST(SaveFailuresTest, ALostConnectionIsToldBeforeAnythingIsTried) {
    ProposalWorkshop workshop;
    enter(workshop);
    const std::vector<std::string> before = workshop.texts();
    workshop.connection.lose();
    workshop.connection.clear();
    workshop.key(Key::f5);
    expectRefused(workshop, before, "La conexión con la Base de Datos se perdió");
    EXPECT_EQ(workshop.screen.messages[0].icon, screen::Icon::none);
    EXPECT_THAT(workshop.connection.log(), IsEmpty());
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "0");
}

TEST(SaveFailuresTest, AnEmptyListOfMaterialsEndsAsARefusedWrite) {
    ProposalWorkshop workshop;
    enter(workshop);
    workshop.fields().cboMatDisco.clear();
    const std::vector<std::string> before = workshop.texts();
    workshop.key(Key::f5);
    expectRefused(workshop, before, "Error en la grabacion del registro:\r\n");
    EXPECT_THAT(workshop.connection.logged("ROLLBACK"), ElementsAre("ROLLBACK"));
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "0");
}

TEST(SaveFailuresTest, AnErrorInTheFieldsDoesNotEscapeWithTheTransactionOpen) {
    ProposalWorkshop workshop;
    enter(workshop);
    workshop.fields().rsMatCubo = sql::Recordset{};
    workshop.key(Key::f5);
    EXPECT_THAT(workshop.errors, IsEmpty());
    EXPECT_NO_THROW(workshop.database->beginTrans()) << "no transaction was left behind";
    EXPECT_TRUE(workshop.form().enabled());
}

TEST(SaveFailuresTest, ATextThatIsNoNumberIsNamedByItsColumn) {
    ProposalWorkshop workshop;
    enter(workshop);
    workshop.leave();
    workshop.fields().Text1(12).setText("ocho");
    const std::vector<std::string> before = workshop.texts();
    workshop.key(Key::f5);
    expectRefused(workshop, before, "El valor de DPI_Chav no es válido");
    EXPECT_EQ(workshop.query("select count(*) from DPI"), "0");
}

TEST(SaveFailuresTest, ATextTooLongIsNamedByItsColumnWithNothingLost) {
    struct Case {
        const char* field;
        const char* column;
    };
    for (const Case& each : {Case{"txtPesu(1)", "DPI_NomCliente"}, Case{"txtPesu(2)", "DPI_RefCli"},
                             Case{"txtObservaciones", "DPI_Obser"}}) {
        ProposalWorkshop workshop;
        enter(workshop);
        workshop.set(each.field, std::string(5000, 'x'));
        workshop.leave();
        const std::vector<std::string> before = workshop.texts();
        workshop.key(Key::f5);
        expectRefused(workshop, before, std::string("'") + each.column + "'");
        EXPECT_EQ(workshop.query("select count(*) from DPI"), "0");
        EXPECT_EQ(workshop.text(each.field).size(), 5000u);
    }
}

}  // namespace
}  // namespace velmora::proposal
