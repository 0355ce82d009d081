// Every kind of write on a server whose connection is lost: before each request that the write sends, and before the
// answer to it. Looked at from another connection, the write has happened whole or not at all (one of several steps:
// up to one of them), the user is told, what was typed stays, and it can be tried again once connected anew.

#include <algorithm>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/database.h"
#include "velmora/labour/frm_mano_obra.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/reference/frm_eng_val.h"
#include "velmora/reference/frm_materias.h"
#include "velmora/reference/frm_pdm_val.h"
#include "velmora/services/document_store.h"

#include "cut_line.h"
#include "server_under_test.h"
#include "support/proposal_workshop.h"
#include "support/staff.h"

namespace velmora::odbc {
namespace {

using Moment = test::CutLine::Moment;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::Not;

/// A user who has typed what is to be written, on a connection that may be lost.
struct Stage {
    explicit Stage(ServerConnection& server) : shop(std::make_unique<sql::ForwardingConnection>(server)) {
        shop.screen.whileOpen = [this](const screen::MessageBox& box) {
            if (box.buttons != screen::Buttons::ok) {
                shop.screen.queue(screen::Answer::yes);
            }
        };
    }

    template <typename Form>
    Form& open() {
        auto made = std::make_unique<Form>(shop.session, shop.desk);
        Form& opened = *made;
        form = std::move(made);
        return opened;
    }
    void set(screen::TextBox& box, std::string_view text) {
        EXPECT_TRUE(form->moveFocus(box, screen::Form::Insist::yes)) << box.fullName();
        box.setText(text);
    }
    /// False when the button cannot be pressed.
    bool press(screen::Button& button) {
        if (form->moveFocus(button, screen::Form::Insist::yes)) {
            button.onClick();
            return true;
        }
        return false;
    }
    std::vector<std::string> typed() { return form ? support::textsOf(*form) : shop.texts(); }
    /// What the user has been told: words of boxes, and numbers of errors that nothing traps.
    std::string told() {
        std::string all;
        for (const screen::MessageBox& box : shop.screen.messages) {
            all += box.text + "\n";
        }
        for (const runtime::RuntimeError& error : shop.errors) {
            all += "error " + std::to_string(error.number()) + " " + error.description() + "\n";
        }
        return all;
    }

    support::ProposalWorkshop shop;
    support::TemporaryFolder folder;
    std::unique_ptr<screen::Form> form;  ///< none: the main form, or no form
    std::function<void()> act;           ///< what writes
};

/// A write, and how it stands in the database after none, one, … of the requests that make something durable.
struct Write {
    const char* name;
    std::vector<const char*> rows;  ///< statements that prepare the database
    std::function<void(Stage&)> begin;
    const char* look;  ///< the query that tells how the write stands
    std::vector<const char*> durable;
    std::vector<std::string> stands;
    std::vector<std::string> again;    ///< after a second try
    std::vector<std::string> inDoubt;  ///< after a second try when it was the answer to this one that was lost
    const char* success;               ///< words of a write that is whole

    friend void PrintTo(const Write& write, std::ostream* out) { *out << write.name; }
};

// --- The users -------------------------------------------------------------------------------------------------------

void typeNewProposal(Stage& stage) {
    stage.shop.enterToothing();
    stage.shop.enterCustomerAndUnits();
    stage.act = [&stage] { stage.shop.key(screen::Key::f5); };
}

void storeProposal(Stage& stage) {
    typeNewProposal(stage);
    stage.act();
}

void changeProposal(Stage& stage) {
    storeProposal(stage);
    stage.shop.set("txtPesu(11)", "9");
    stage.shop.leave();
}

void deleteProposal(Stage& stage) {
    storeProposal(stage);
    stage.act = [&stage] { stage.shop.key(screen::Key::f9); };
}

std::string newestProposal(Stage& stage) {
    return stage.shop.query("select max(DPI_Id) from DPI");
}

void storeLabour(Stage& stage) {
    stage.shop.database->execute(
        "INSERT INTO MoDpi (MoDpi_Dpi,MoDpi_Ope,MoDpi_Maq,MoDpi_Minutos,MoDpi_Pvp,MoDpi_Tiempo,MoDpi_Importe) VALUES "
        "(" +
        newestProposal(stage) + ",2,11,60,39.5,1,39.5)");
}

void duplicateProposal(Stage& stage) {
    storeProposal(stage);
    storeLabour(stage);
    storeLabour(stage);
    stage.act = [&stage] { stage.shop.key(screen::Key::f6); };
}

labour::frmManoObra& openLabour(Stage& stage) {
    auto& form = stage.open<labour::frmManoObra>();
    form.nIdDpi = runtime::CLng(newestProposal(stage));
    form.bModificable = true;
    form.msCargarLineas();
    form.activate();
    return form;
}

void typeNewLine(Stage& stage) {
    auto& form = openLabour(stage);
    auto& fields = form.fields();
    stage.press(fields.cmdNuevaLinea);
    stage.set(fields.txtLinea(labour::machine), "10");
    stage.set(fields.txtLinea(labour::minutes), "90");
    form.leaveFocus();
    stage.act = [&] { stage.press(fields.cmdGrabarLinea); };
}

void changeLine(Stage& stage) {
    storeLabour(stage);
    auto& form = openLabour(stage);
    auto& fields = form.fields();
    stage.press(fields.cmdEditarLinea);
    stage.set(fields.txtLinea(labour::minutes), "120");
    form.leaveFocus();
    stage.act = [&] { stage.press(fields.cmdGrabarLinea); };
}

void deleteLine(Stage& stage) {
    storeLabour(stage);
    auto& fields = openLabour(stage).fields();
    stage.act = [&] { stage.press(fields.cmdEliminarLinea); };
}

void typeNewMaterial(Stage& stage) {
    auto& form = stage.open<reference::frmMaterias>();
    form.activate();
    auto& fields = form.fields();
    stage.press(fields.cmdNuevo);
    stage.set(fields.Text1(reference::materialName), "Pletina nueva");
    stage.set(fields.Text1(reference::materialArticleCode), "P-S275");
    form.leaveFocus();
    stage.act = [&] { stage.press(fields.cmdGuardar); };
}

void changeMaterial(Stage& stage) {
    auto& form = stage.open<reference::frmMaterias>();
    form.activate();
    auto& fields = form.fields();
    fields.dbgFco.moveToRow(fields.dbgFco.rowCount() - 1);
    stage.set(fields.Text1(reference::materialName), "Tubo fino");
    form.leaveFocus();
    stage.act = [&] { stage.press(fields.cmdGuardar); };
}

void deleteMaterial(Stage& stage) {
    auto& form = stage.open<reference::frmMaterias>();
    form.activate();
    auto& fields = form.fields();
    fields.dbgFco.moveToRow(fields.dbgFco.rowCount() - 1);
    stage.act = [&] { stage.press(fields.cmdBorrar); };
}

reference::frmPDMVal& openDoubles(Stage& stage) {
    auto& form = stage.open<reference::frmPDMVal>();
    form.activate();
    return form;
}

void typeNewDouble(Stage& stage) {
    auto& form = openDoubles(stage);
    auto& fields = form.fields();
    stage.press(fields.cmdNuevo);
    stage.set(fields.Text1(reference::chainTeeth), "14");
    stage.set(fields.Text1(reference::chainDe), "47");
    form.leaveFocus();
    stage.act = [&] { stage.press(fields.cmdGrabar); };
}

void changeDouble(Stage& stage) {
    auto& form = openDoubles(stage);
    auto& fields = form.fields();
    stage.set(fields.Text1(reference::chainDe), "38");
    form.leaveFocus();
    stage.act = [&] { stage.press(fields.cmdGrabar); };
}

void typeGear(Stage& stage) {
    auto& form = stage.open<reference::frmENGVal>();
    form.activate();
    auto& fields = form.fields();
    for (const auto& [field, value] : {std::pair{reference::gearModule, "3"}, std::pair{reference::gearTeeth, "10"},
                                       std::pair{reference::gearHeight, "6,75"}, std::pair{reference::gearBore, "8"}}) {
        stage.set(fields.Text1(field), value);
    }
    form.leaveFocus();
    stage.act = [&] { stage.press(fields.cmdGrabar); };
}

services::DocumentOwner ownerOf(Stage& stage) {
    return {.nIdExp = runtime::CLng(newestProposal(stage)), .nIdAct = services::actOfProposals};
}

/// A document whose file stays until its content is stored: otherwise the scan or the drawing would be lost.
void attach(Stage& stage) {
    const std::string path = stage.folder.file("plano.pdf");
    std::ofstream(path) << "0123456789";
    const services::DocumentOwner owner = ownerOf(stage);
    stage.act = [&stage, path, owner] {
        services::DocumentStore store(stage.shop.session, stage.shop.desk);
        const bool stored = store.msAnadirFichero(path, owner);
        const bool told = !stage.shop.screen.messages.empty();
        EXPECT_EQ(std::ifstream(path).is_open(), !stored || told) << "the file goes only when its content is stored";
    };
}

void deleteDocument(Stage& stage) {
    const services::DocumentOwner owner = ownerOf(stage);
    stage.shop.database->execute("INSERT INTO DOCVELMORA.dbo.dex (Dex_Fic,Dex_IdExp,Dex_IdAct) VALUES (N'plano.pdf'," +
                                 std::to_string(owner.nIdExp) + "," + std::to_string(owner.nIdAct) + ")");
    stage.act = [&stage, owner] {
        services::DocumentStore store(stage.shop.session, stage.shop.desk);
        const sql::Recordset list = store.list(owner);
        if (list.hasRows()) {
            store.remove(store.shown(list, owner));
        }
    };
}

// --- What they write -------------------------------------------------------------------------------------------------

constexpr const char* noProposals = "delete from DPI";
constexpr const char* oneProposal = "INSERT INTO DPI (DPI_Tipo) VALUES (0)";
constexpr const char* noLines = "delete from MoDpi";
constexpr const char* linesOfLabour = "select MoDpi_Minutos from MoDpi order by MoDpi_Id";
constexpr const char* usualMaterials = "delete from PARDPI where PARDPI_ID > 5";
constexpr const char* anotherMaterial =
    "INSERT INTO PARDPI (PARDPI_NOM,PARDPI_ART,PARDPI_HIERRO,PARDPI_DISCO,PARDPI_MATP,PARDPI_CRE) VALUES "
    "(N'Tubo',13,0,0,N'E355',0)";
constexpr const char* namesOfMaterials = "select PARDPI_NOM from PARDPI where PARDPI_ID > 5 order by PARDPI_ID";
constexpr const char* noDoubles = "delete from PDM where PDM_Tipo = 0";
constexpr const char* oneDouble =
    "INSERT INTO PDM (PDM_Tipo,PDM_Titulo,PDM_Z,PDM_Paso,PDM_AC,PDM_Rodillo,PDM_b1,PDM_b2,PDM_X,PDM_H1,PDM_De,PDM_Dp,"
    "PDM_Df,PDM_Dm,PDM_D2,PDM_A) VALUES (0,N'diez',10,9.5,5.7,6.3,5.3,15.5,4.9,2,34,30.8,24.4,20,10,25)";
constexpr const char* exteriorsOfDoubles = "select PDM_De from PDM where PDM_Tipo = 0 order by PDM_Id";
constexpr const char* noDocuments = "delete from DOCVELMORA.dbo.dex";
constexpr const char* documents = "select isnull(DATALENGTH(Dex_Doc),0) from DOCVELMORA.dbo.dex order by Dex_Id";
constexpr const char* commit = "COMMIT TRANSACTION";

const std::vector<Write>& writes() {
    static const std::vector<Write> all{
        {"new proposal",
         {noProposals},
         typeNewProposal,
         "select DPI_Unidades from DPI",
         {commit},
         {"", "3"},
         {"3", "3"},
         {"3 3"},
         "Datos Grabados satisfactoriamente"},
        {"changed proposal",
         {noProposals},
         changeProposal,
         "select DPI_Unidades from DPI",
         {commit},
         {"3", "9"},
         {"9", "9"},
         {"9"},
         "Datos Grabados satisfactoriamente"},
        {"deleted proposal",
         {noProposals},
         deleteProposal,
         "select DPI_Unidades from DPI",
         {commit},
         {"3", ""},
         {"", ""},
         {""},
         ""},
        {"duplicated proposal",
         {noProposals, noLines},
         duplicateProposal,
         "select count(*), (select count(*) from MoDpi) from DPI",
         {commit},
         {"1|2", "2|4"},
         {"2|4", "3|6"},
         {"3|6"},
         "Propuesta duplicada satisfactoriamente"},
        {"new line",
         {noProposals, oneProposal, noLines},
         typeNewLine,
         linesOfLabour,
         {commit},
         {"", "90"},
         {"90", "90"},
         {"90 90"},
         ""},
        {"changed line",
         {noProposals, oneProposal, noLines},
         changeLine,
         linesOfLabour,
         {commit},
         {"60", "120"},
         {"120", "120"},
         {"120"},
         ""},
        {"deleted line",
         {noProposals, oneProposal, noLines},
         deleteLine,
         linesOfLabour,
         {commit},
         {"60", ""},
         {"", ""},
         {""},
         ""},
        {"new material",
         {noProposals, usualMaterials},
         typeNewMaterial,
         namesOfMaterials,
         {commit},
         {"", "Pletina nueva"},
         {"Pletina nueva", "Pletina nueva"},
         {"Pletina nueva Pletina nueva"},
         "Datos Gabados satisfactoriamente"},
        {"changed material",
         {noProposals, usualMaterials, anotherMaterial},
         changeMaterial,
         namesOfMaterials,
         {commit},
         {"Tubo", "Tubo fino"},
         {"Tubo fino", "Tubo fino"},
         {"Tubo fino"},
         "Datos Gabados satisfactoriamente"},
        {"deleted material",
         {noProposals, usualMaterials, anotherMaterial},
         deleteMaterial,
         namesOfMaterials,
         {commit},
         {"Tubo", ""},
         {"", ""},
         {""},
         ""},
        {"new double",
         {noDoubles, oneDouble},
         typeNewDouble,
         exteriorsOfDoubles,
         {commit},
         {"34", "34 47"},
         {"34 47", "34 47 47"},
         {"34 47 47"},
         "Datos grabados satisfactoriamente"},
        {"changed double",
         {noDoubles, oneDouble},
         changeDouble,
         exteriorsOfDoubles,
         {commit},
         {"34", "38"},
         {"38", "38"},
         {"38"},
         "Datos grabados satisfactoriamente"},
        {"gear",
         {"delete from ENG"},
         typeGear,
         "select ENG_Z from ENG",
         {commit},
         {"", "10"},
         {"10", "10"},
         {"10 10"},
         ""},
        {"document",
         {noProposals, oneProposal, noDocuments},
         attach,
         documents,
         {commit, "UPDATE "},
         {"", "0", "10"},
         {"10", "0 10", "10 10"},
         {"0 10", "10 10"},
         ""},
        {"deleted document",
         {noProposals, oneProposal, noDocuments},
         deleteDocument,
         documents,
         {commit},
         {"0", ""},
         {"", ""},
         {""},
         ""},
    };
    return all;
}

// --- The line is cut -------------------------------------------------------------------------------------------------

class LostWrites : public ::testing::TestWithParam<Write> {
  protected:
    static void SetUpTestSuite() {
        const std::string server = readConnectionText(*test::testServer());
        test::dropAllTables(server);
        const auto connection = openDatabase(server);
        support::fillWorkshop(*connection);
        support::addStaff(*connection);
    }

    static void TearDownTestSuite() { test::dropAllTables(readConnectionText(*test::testServer())); }

    std::string stand(const Write& write) {
        std::string all;
        for (sql::Recordset row = other_->execute(write.look); !row.eof(); row.moveNext()) {
            for (std::size_t i = 0; i < row.columns().size(); ++i) {
                all += (i > 0 ? "|" : all.empty() ? "" : " ") + row[i].toText();
            }
        }
        return all;
    }
    /// How many of its durable requests the server has got.
    std::size_t durableRequests(const Write& write) const {
        std::size_t found = 0;
        for (const std::string& request : line_.requests()) {
            if (found < write.durable.size() && request.find(write.durable[found]) != std::string::npos) {
                ++found;
            }
        }
        return found;
    }
    void begin(const Write& write, Stage& stage) {
        for (const char* row : write.rows) {
            other_->execute(row);
        }
        write.begin(stage);
        EXPECT_EQ(stand(write), write.stands.front());
        stage.shop.screen.messages.clear();
    }
    std::vector<std::string> undisturbed(const Write& write) {
        Stage stage(*connection_);
        begin(write, stage);
        line_.count();
        stage.shop.attempt(stage.act);
        EXPECT_EQ(stand(write), write.stands.back());
        EXPECT_THAT(stage.told(), HasSubstr(write.success));
        EXPECT_EQ(durableRequests(write), write.durable.size());
        return line_.requests();
    }
    static std::size_t lastDurable(const Write& write, const std::vector<std::string>& requests) {
        const auto last = std::find_if(requests.rbegin(), requests.rend(), [&](const std::string& request) {
            return request.find(write.durable.back()) != std::string::npos;
        });
        return static_cast<std::size_t>(requests.rend() - last) - 1;
    }
    /// Only then does it make a difference whether the server has got a request whose answer is lost.
    static bool isDurable(const Write& write, const std::string& request) {
        return std::ranges::any_of(write.durable,
                                   [&](const char* part) { return request.find(part) != std::string::npos; });
    }
    void cut(const Write& write, std::size_t request, Moment moment) {
        SCOPED_TRACE(std::string(write.name) +
                     (moment == Moment::beforeRequest ? " before " : " before the answer to ") +
                     std::to_string(request));
        Stage stage(*connection_);
        begin(write, stage);
        const std::vector<std::string> typed = stage.typed();
        line_.cutAt(request, moment);
        stage.shop.attempt(stage.act);
        const std::size_t done = durableRequests(write);
        const bool inDoubt = moment == Moment::beforeAnswer && done > 0 &&
                             line_.requests().back().find(write.durable[done - 1]) != std::string::npos;
        std::cout << write.name << (moment == Moment::beforeRequest ? ": before " : ": before the answer to ")
                  << request << ": " << stand(write) << "; " << stage.told();

        EXPECT_EQ(stand(write), write.stands[done]);
        EXPECT_NE(stage.told(), "");
        EXPECT_TRUE(connection_->takeLoss());
        if (done < write.durable.size() || inDoubt) {
            EXPECT_THAT(stage.typed(), ElementsAreArray(typed));
            if (*write.success != '\0') {
                EXPECT_THAT(stage.told(), Not(HasSubstr(write.success)));
            }
        }
        if (inDoubt) {
            EXPECT_THAT(stage.told(),
                        HasSubstr(write.durable[done - 1] == commit ? "puede que se hayan grabado" : "se perdió"));
        }
        line_.mend();
        connection_->reconnect();
        stage.shop.screen.messages.clear();
        stage.shop.errors.clear();
        stage.shop.attempt(stage.act);
        EXPECT_EQ(stand(write), inDoubt ? write.inDoubt[done - 1] : write.again[done]) << stage.told();
        std::cout << "  again: " << stand(write) << "; " << stage.told() << "\n";
    }

    std::string server_ = readConnectionText(*test::testServer());
    test::CutLine line_{valueOf(server_, "SERVER"), valueOf(server_, "PORT")};
    std::unique_ptr<ServerConnection> connection_ =
        openDatabase(withValue(withValue(server_, "SERVER", "127.0.0.1"), "PORT", std::to_string(line_.port())));
    std::unique_ptr<ServerConnection> other_ = openDatabase(server_);
};

TEST_P(LostWrites, AreWholeOrNotAtAllAndCanBeTriedAgain) {
    const Write& write = GetParam();
    const std::vector<std::string> requests = undisturbed(write);
    // Behind the last durable one, a screen reads anew what it shows: where it is stopped makes no difference.
    const std::size_t stored = lastDurable(write, requests);
    for (std::size_t request = 0; request < requests.size() && request <= stored + 1; ++request) {
        cut(write, request, Moment::beforeRequest);
        if (isDurable(write, requests[request])) {
            cut(write, request, Moment::beforeAnswer);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(OfEachKind, LostWrites, ::testing::ValuesIn(writes()), [](const auto& write) {
    std::string name = write.param.name;
    std::ranges::replace(name, ' ', '_');
    return name;
});

}  // namespace
}  // namespace velmora::odbc
