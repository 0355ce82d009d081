#include "velmora/services/frm_doc.h"

#include <gmock/gmock.h>

#include "velmora/platform/toolkit/grid_keys.h"

#include "services_bench.h"

namespace velmora::services {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A scanner whose user accepts or cancels.
class FakeScanner final : public components::Scanner {
  public:
    struct Paper {
        bool accepted = true;
        std::string content = "%PDF scan";
        std::vector<std::string> paths;
    };
    explicit FakeScanner(Paper& paper) : paper_(paper) {}
    void setFichero(std::string_view path) override { path_ = path; }
    void jConfig() override {
        paper_.paths.push_back(path_);
        if (paper_.accepted) {
            write(path_, paper_.content);
        }
    }
    bool resultado() const override { return paper_.accepted; }

  private:
    Paper& paper_;
    std::string path_;
};

class FrmDocTest : public ServicesTest {
  protected:
    FrmDocTest() {
        components.add("MIRTOL.jMirtol", [this] { return std::make_unique<FakeScanner>(paper); });
        form.nIdExp = 7;
        form.nIdAct = actOfProposals;
        form.msCargarDocumentos();
        form.activate();
        connection.clear();
    }

    void menu(const char* key) { form.Toolbar1.onMenuClick(key); }
    void button(int index) { form.Toolbar1.onButtonClick(index); }
    void add(const std::string& name, std::string_view content = "x") {
        services.files.push_back(write(desktop.file(name), content));
        menu("FICHERO");
    }
    std::vector<std::string> names() {
        std::vector<std::string> all;
        for (std::size_t i = 0; i < form.dbgPlanos.rowCount(); ++i) {
            all.push_back(form.dbgPlanos.cellText(i, 1));
        }
        return all;
    }

    FakeScanner::Paper paper;
    frmDoc form{session, desk};
};

TEST_F(FrmDocTest, TheBarHoldsItsButtonsAtTheirPlaces) {
    const auto& items = form.Toolbar1.items();
    ASSERT_EQ(items.size(), 7U);
    std::vector<std::string> captions;
    for (const auto& item : items) {
        captions.push_back(item.caption);
    }
    EXPECT_THAT(captions,
                ElementsAre("Nuevo documento", "", "Visualizar documento", "", "Eliminar Documento", "", "Salir"));
    ASSERT_EQ(items[0].menu.size(), 2U);
    EXPECT_EQ(items[0].menu[0].key, "FICHERO");
    EXPECT_EQ(items[0].menu[0].caption, "Fichero existente");
    EXPECT_EQ(items[0].menu[1].key, "ESCANER");
    EXPECT_EQ(items[0].menu[1].caption, "Escaner");
    EXPECT_EQ(form.caption(), "Documentos Adjuntos");
    EXPECT_EQ(form.name(), "frmDoc");
}

TEST_F(FrmDocTest, TheListShowsNamesAndHidesKeys) {
    ASSERT_EQ(form.dbgPlanos.columns().size(), 2U);
    EXPECT_FALSE(form.dbgPlanos.columns()[0].visible);
    EXPECT_EQ(form.dbgPlanos.columns()[1].caption, "Fichero");
    EXPECT_EQ(form.dbgPlanos.columns()[1].width, 7000);
}

TEST_F(FrmDocTest, FilesFromDiskAreListedTheNewestFirst) {
    add("primero.pdf");
    add("segundo.pdf");
    EXPECT_THAT(names(), ElementsAre("segundo.pdf", "primero.pdf"));
    ASSERT_EQ(services.requests.size(), 2U);
    EXPECT_EQ(services.requests[0].title, "Selección de Fichero");
    EXPECT_EQ(services.requests[0].filter, "Todos (*.*)|*.*");
    EXPECT_FALSE(exists(desktop.file("primero.pdf")));
    EXPECT_EQ(query("select Dex_IdExp from DOCTALLER.dbo.dex"), "7");
    EXPECT_EQ(query("select Dex_IdAct from DOCTALLER.dbo.dex"), "-8");
    EXPECT_EQ(form.tag(), "");
}

TEST_F(FrmDocTest, ADialogThatIsLeftStoresNothing) {
    services.files.push_back(std::nullopt);
    menu("FICHERO");
    EXPECT_THAT(connection.log(), IsEmpty());
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(FrmDocTest, AFileWhoseContentFailsMarksTheFormAndIsListed) {
    services.files.push_back(desktop.file("falta.pdf"));
    menu("FICHERO");
    EXPECT_EQ(form.tag(), "E");
    EXPECT_THAT(names(), ElementsAre("falta.pdf"));
}

TEST_F(FrmDocTest, TheDocumentUnderTheCursorIsViewed) {
    add("primero.pdf", "uno");
    add("segundo.pdf", "dos");
    button(3);
    EXPECT_EQ(contentOf(temporary.file("segundo.pdf")), "dos");
    form.dbgPlanos.moveToRow(1);
    button(3);
    EXPECT_EQ(contentOf(temporary.file("primero.pdf")), "uno");
    EXPECT_EQ(services.opened.size(), 2U);
}

TEST_F(FrmDocTest, ADoubleClickAndEnterOpenTheDocumentUnderTheCursor) {
    add("primero.pdf", "uno");
    add("segundo.pdf", "dos");
    toolkit::pressRow(form.dbgPlanos);
    EXPECT_EQ(contentOf(temporary.file("segundo.pdf")), "dos");
    form.dbgPlanos.moveToRow(1);
    toolkit::keyInGrid(form.dbgPlanos, toolkit::strokeOf(screen::Key::enter), 1);
    EXPECT_EQ(contentOf(temporary.file("primero.pdf")), "uno");
    EXPECT_EQ(services.opened.size(), 2U);
}

TEST_F(FrmDocTest, WithoutDocumentsNothingIsViewedOrDeleted) {
    button(3);
    button(5);
    EXPECT_THAT(screen.messages, IsEmpty());
    EXPECT_THAT(connection.log(), IsEmpty());
}

TEST_F(FrmDocTest, OnlyAYesDeletesTheDocumentUnderTheCursor) {
    add("primero.pdf");
    add("segundo.pdf");
    form.dbgPlanos.moveToRow(1);
    screen.queue(screen::Answer::no);
    button(5);
    EXPECT_THAT(names(), ElementsAre("segundo.pdf", "primero.pdf"));
    screen.queue(screen::Answer::yes);
    button(5);
    EXPECT_THAT(names(), ElementsAre("segundo.pdf"));
    EXPECT_EQ(screen.messages[0].text, "Realmente desea eliminar este documento ?");
    EXPECT_EQ(screen.messages[0].icon, screen::Icon::question);
    EXPECT_EQ(screen.messages[0].buttons, screen::Buttons::yesNo);
}

TEST_F(FrmDocTest, TheDocumentOfTheQuestionIsTheOneThatGoesWhateverCameMeanwhile) {
    add("primero.pdf");
    add("segundo.pdf");
    form.dbgPlanos.moveToRow(1);
    screen.whileAsked = [&] {
        database->execute("INSERT INTO DOCTALLER.dbo.dex (Dex_IdExp,Dex_IdAct,Dex_Fic) VALUES (7,-8,N'de otro.pdf')");
    };
    screen.queue(screen::Answer::yes);
    button(5);
    EXPECT_THAT(names(), ElementsAre("de otro.pdf", "segundo.pdf"));
}

TEST_F(FrmDocTest, ADocumentThatIsGoneLeavesTheList) {
    add("primero.pdf");
    add("segundo.pdf");
    database->execute("delete from DOCTALLER.dbo.dex where Dex_Id=2");
    screen.queue(screen::Answer::yes);
    button(5);
    EXPECT_EQ(screen.messages.back().text, "Este documento ya no existe: otro usuario lo ha eliminado.");
    EXPECT_THAT(names(), ElementsAre("primero.pdf"));
}

TEST_F(FrmDocTest, AProposalThatIsGoneGetsNoDocument) {
    database->execute("delete from DPI");
    add("plano.pdf", "uno");
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(contentOf(desktop.file("plano.pdf")), "uno");
    EXPECT_EQ(form.tag(), "");
    EXPECT_EQ(screen.messages.size(), 1U);
}

TEST_F(FrmDocTest, AScanIsStoredUnderTheMinuteAndItsFileIsGone) {
    menu("ESCANER");
    EXPECT_THAT(paper.paths, ElementsAre(temporary.file("DOC202601151007.pdf")));
    EXPECT_THAT(names(), ElementsAre("DOC202601151007.pdf"));
    EXPECT_EQ(value("select Dex_Doc from DOCTALLER.dbo.dex"), sql::Value(bytes("%PDF scan")));
    EXPECT_FALSE(exists(temporary.file("DOC202601151007.pdf")));
    EXPECT_THAT(screen.messages, IsEmpty());
}

TEST_F(FrmDocTest, TwoScansOfOneMinuteBearTheSameName) {
    menu("ESCANER");
    paper.content = "%PDF otra";
    menu("ESCANER");
    EXPECT_THAT(names(), ElementsAre("DOC202601151007.pdf", "DOC202601151007.pdf")) << "without the second";
    EXPECT_EQ(value("select Dex_Doc from DOCTALLER.dbo.dex where Dex_Id = 1"), sql::Value(bytes("%PDF scan")));
    EXPECT_EQ(value("select Dex_Doc from DOCTALLER.dbo.dex where Dex_Id = 2"), sql::Value(bytes("%PDF otra")));
}

TEST_F(FrmDocTest, WithoutATemporaryFolderNothingIsScanned) {
    services.folder.clear();
    try {
        menu("ESCANER");
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), 76);
        EXPECT_EQ(error.description(), "No hay carpeta temporal en la que escribir DOC202601151007.pdf");
    }
    EXPECT_THAT(paper.paths, IsEmpty());
    EXPECT_EQ(query("select count(*) from DOCTALLER.dbo.dex"), "0");
}

TEST_F(FrmDocTest, AScanThatIsCancelledLeavesNoRow) {
    paper.accepted = false;
    menu("ESCANER");
    EXPECT_EQ(paper.paths.size(), 1U);
    EXPECT_THAT(connection.log(), IsEmpty());
    EXPECT_EQ(query("select count(*) from DOCTALLER.dbo.dex"), "0");
}

TEST_F(FrmDocTest, AScanIsDeletedEvenWhenItsContentDidNotReachTheDatabase) {
    faults.failAt(6);
    menu("ESCANER");
    EXPECT_EQ(query("select count(*) from DOCTALLER.dbo.dex where Dex_Doc is null"), "1");
    EXPECT_FALSE(exists(temporary.file("DOC202601151007.pdf")));
    EXPECT_EQ(form.tag(), "E");
}

TEST_F(FrmDocTest, AFileFromDiskWhoseContentFailedStaysWhereAScanDoesNot) {
    faults.failAt(6);
    add("plano.pdf", "uno");
    EXPECT_EQ(contentOf(desktop.file("plano.pdf")), "uno");
}

TEST_F(FrmDocTest, WithoutTheScannersComponentNothingIsStored) {
    components::ComponentFactory none;
    platform::Desk bare{screen, none, services, clock};
    frmDoc other(session, bare);
    try {
        other.Toolbar1.onMenuClick("ESCANER");
        FAIL() << "no error";
    } catch (const runtime::RuntimeError& error) {
        EXPECT_EQ(error.number(), 429);
    }
    EXPECT_EQ(query("select count(*) from DOCTALLER.dbo.dex"), "0");
}

TEST_F(FrmDocTest, ButtonAndEscapeClose) {
    button(1);
    button(2);
    EXPECT_FALSE(form.isUnloaded());
    form.keyDown(screen::Key::escape);
    EXPECT_TRUE(form.isUnloaded());
    frmDoc other(session, desk);
    other.Toolbar1.onButtonClick(7);
    EXPECT_TRUE(other.isUnloaded());
}

}  // namespace
}  // namespace velmora::services
