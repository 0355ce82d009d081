// Two processes on one database: one accepts a proposal while the other saves or deletes it. Nothing is written
// into a proposal once it has an order, no order is left without its proposal, and who comes second is told and loses
// nothing.
//
//   proposal_clients STORY [TURNS] [--server]      the stories stand at the end; 500 turns unless told
//
// --server: on the server that VELMORA_TEST_DSN names, all of whose tables are dropped; else on a file.

#include <array>
#include <chrono>
#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <sqlite3.h>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/proposal/frm_bercial_pinones.h"
#include "velmora/tracking/frm_seguimiento.h"

#include "support/no_services.h"
#include "support/proposal_workshop.h"
#include "support/story_database.h"
#include "support/two_processes.h"

namespace velmora::proposal {
namespace {

using support::Meeting;
using support::StoryDatabase;

constexpr const char* typedUnits = "5";
/// How long a client waits for the other's writes.
constexpr std::chrono::seconds patient(30);

/// How a client has fared.
struct Tally {
    int done = 0;
    int told = 0;  ///< that the other one was first
    int wrong = 0;

    void expect(bool holds, const std::string& what) {
        if (!holds) {
            ++wrong;
            std::cerr << "wrong: " << what << '\n';
        }
    }
};

/// Says Yes to everything.
class YesScreen final : public screen::Screen {
  public:
    std::vector<std::string> messages;

    void showModal(screen::Form& form) override { form.unload(); }
    screen::Answer show(const screen::MessageBox& box) override {
        messages.push_back(box.text);
        return box.buttons == screen::Buttons::ok ? screen::Answer::ok : screen::Answer::yes;
    }
    std::optional<std::size_t> search(const screen::SearchWindow&) override { return std::nullopt; }
    void setPointer(screen::Pointer) override {}
    void processEvents() override {}
};

/// A client of the database: what a running program holds.
class Client {
  public:
    explicit Client(const StoryDatabase& shared) : database(shared.open(patient)), session(*database) {}

    /// What was said last; the text of the error that the deed ended in, if it did.
    std::string lastWords(const std::function<void()>& deed) {
        screen.messages.clear();
        try {
            deed();
        } catch (const runtime::RuntimeError& error) {
            return error.description();
        }
        return screen.messages.empty() ? std::string() : screen.messages.back();
    }
    std::string query(const std::string& statement) {
        const sql::Recordset answer = database->execute(statement);
        return answer.eof() ? "none" : answer[0].isNull() ? "NULL" : answer[0].toText();
    }

    std::unique_ptr<sql::Connection> database;
    adapters::StandInSession session;
    YesScreen screen;
    components::ComponentFactory components;
    support::NoServices services;
    system::SystemClock clock;
    platform::Desk desk{screen, components, services, clock};
};

// --- The database ----------------------------------------------------------------------------------------------------

/// Refuses, whoever asks, what must not happen: a save, a deletion of a proposal that has an order. A client that tries
/// reads "late".
void refuseWhatIsLateInFile(const std::string& path) {
    constexpr const char* hasOrder =
        " WHEN OLD.DPI_FAcepta IS NOT NULL OR EXISTS (SELECT 1 FROM ORDEN WHERE ORDEN_IdDPI = OLD.DPI_Id) "
        "BEGIN SELECT RAISE(ABORT, 'late'); END;";
    const std::string triggers = std::string("CREATE TRIGGER late_save BEFORE UPDATE OF DPI_Unidades ON DPI") +
                                 hasOrder + "CREATE TRIGGER late_deletion BEFORE DELETE ON DPI" + hasOrder;
    sqlite3* file = nullptr;
    if (sqlite3_open(path.c_str(), &file) != SQLITE_OK ||
        sqlite3_exec(file, triggers.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(file));
    }
    sqlite3_close(file);
}

/// The same on a server, whose triggers run once for a statement, after it.
void refuseWhatIsLateOnServer(sql::Connection& connection) {
    constexpr const char* hasOrder =
        "EXISTS (SELECT 1 FROM deleted WHERE DPI_FAcepta IS NOT NULL OR DPI_Id IN (SELECT ORDEN_IdDPI FROM ORDEN)) "
        "RAISERROR (N'late', 16, 1)";
    connection.execute(std::string("CREATE TRIGGER late_save ON DPI AFTER UPDATE AS IF UPDATE(DPI_Unidades) AND ") +
                       hasOrder);
    connection.execute(std::string("CREATE TRIGGER late_deletion ON DPI AFTER DELETE AS IF ") + hasOrder);
}

void refuseWhatIsLate(const StoryDatabase& database, sql::Connection& connection) {
    if (const auto path = database.file()) {
        refuseWhatIsLateInFile(*path);
    } else {
        refuseWhatIsLateOnServer(connection);
    }
}

/// Proposals of three pieces, 1 to `count`, all alike.
void fill(const StoryDatabase& database, int count) {
    support::fillWorkshop(*database.open());
    Client client(database);
    frmBercialPiñones form(client.session, client.desk);
    auto& f = form.fields();
    const std::pair<estimate::TextBox&, const char*> entries[] = {
        {f.Text1(0), "12,7"}, {f.Text1(8), "7,75"},   {f.Text1(1), "38"},
        {f.Text1(2), "7,75"}, {f.txtPesu(0), "1001"}, {f.txtPesu(11), "3"},
    };
    for (const auto& [box, text] : entries) {
        form.moveFocus(box, screen::Form::Insist::yes);
        box.setText(text);
    }
    form.leaveFocus();
    if (!form.msGrabar(true)) {
        throw std::runtime_error("the first proposal was not saved");
    }
    const sql::Recordset first = client.database->execute("select * from DPI");
    std::string columns;
    for (const sql::Column& column : first.columns()) {
        if (column.name != "DPI_Id" && column.name != "DPI_Fecha") {
            columns += (columns.empty() ? "" : ",") + column.name;
        }
    }
    client.database->beginTrans();
    for (int made = 1; made < count; ++made) {
        client.database->execute("INSERT INTO DPI (" + columns + ") select " + columns + " from DPI where DPI_Id = 1");
    }
    client.database->commitTrans();
    refuseWhatIsLate(database, *client.database);
}

// --- The clients -----------------------------------------------------------------------------------------------------

/// What one client makes of each proposal, from 1 on: it prepares, both meet, it acts, both meet, it looks at what came
/// of it.
struct Part {
    std::function<void(std::int32_t)> prepare;
    std::function<std::string()> act;
    std::function<void(std::int32_t, const std::string& words, Tally&)> judge;
};

Tally play(Meeting& meeting, int turns, const Part& part) {
    Tally tally;
    for (std::int32_t proposal = 1; proposal <= turns; ++proposal) {
        part.prepare(proposal);
        meeting.meet();
        const std::string words = part.act();
        meeting.meet();
        part.judge(proposal, words, tally);
    }
    return tally;
}

bool isAccepted(const std::string& words) {
    return words.starts_with("Presupuesto Aceptado");
}

Tally accept(const StoryDatabase& database, Meeting& meeting, int turns) {
    Client client(database);
    tracking::frmSeguimiento form(client.session, client.desk);
    auto& fields = form.fields();
    return play(meeting, turns,
                {.prepare =
                     [&](std::int32_t proposal) {
                         fields.cboFiltroHistorico.setListIndex(tracking::allStates);
                         fields.txtCriterio(tracking::numberFrom).setText(std::to_string(proposal));
                         fields.cmdfiltro.onClick();
                     },
                 .act = [&] { return client.lastWords([&] { fields.XPButton1.onClick(); }); },
                 .judge =
                     [&](std::int32_t proposal, const std::string& words, Tally& tally) {
                         const std::string number = std::to_string(proposal);
                         const std::string orders =
                             client.query("select count(*) from ORDEN where ORDEN_IdDPI = " + number);
                         const std::string marked = client.query(
                             "select count(*) from DPI inner join ORDEN on DPI_Orden = ORDEN_NUM where not DPI_FAcepta "
                             "is null and ORDEN_IdDPI = DPI_Id and DPI_Id = " +
                             number);
                         tally.done += isAccepted(words) ? 1 : 0;
                         tally.told += isAccepted(words) || words.empty() ? 0 : 1;
                         const std::string expected = isAccepted(words) ? "1" : "0";
                         tally.expect(orders == expected && marked == expected,
                                      number + ": " + orders + " orders, " + marked + " marked, said: " + words);
                         tally.expect(!words.empty(), number + ": nothing was said");
                     }});
}

/// The other one comes now a little earlier, now a little later than the acceptance, which asks before it writes.
void staggered(std::int32_t proposal) {
    std::this_thread::sleep_for(std::chrono::microseconds(proposal % 10 * 150));
}

Tally save(const StoryDatabase& database, Meeting& meeting, int turns) {
    Client client(database);
    frmBercialPiñones form(client.session, client.desk);
    estimate::TextBox& units = form.fields().txtPesu(11);
    std::int32_t current = 0;
    return play(
        meeting, turns,
        {.prepare =
             [&](std::int32_t proposal) {
                 current = proposal;
                 form.msCargarPresupuesto(proposal, true);
                 units.setText(typedUnits);
             },
         .act =
             [&] {
                 staggered(current);
                 return client.lastWords([&] { form.msGrabar(false); });
             },
         .judge =
             [&](std::int32_t proposal, const std::string& words, Tally& tally) {
                 const std::string number = std::to_string(proposal);
                 const std::string stored = client.query("select DPI_Unidades from DPI where DPI_Id = " + number);
                 const bool saved = words == "Datos Grabados satisfactoriamente";
                 const bool refused = words.starts_with(
                     "Error en la actualizacion del registro\r\nEl presupuesto ya fue aceptado, orden de trabajo nº ");
                 tally.done += saved ? 1 : 0;
                 tally.told += refused ? 1 : 0;
                 tally.expect(saved || refused, number + ": " + words);
                 tally.expect(stored == (saved ? typedUnits : "3"), number + ": stored " + stored + ", said: " + words);
                 tally.expect(units.text() == typedUnits && form.enabled(), number + ": what was typed is lost");
             }});
}

Tally remove(const StoryDatabase& database, Meeting& meeting, int turns) {
    Client client(database);
    frmBercialPiñones form(client.session, client.desk);
    auto& f = form.fields();
    std::int32_t current = 0;
    return play(
        meeting, turns,
        {.prepare =
             [&](std::int32_t proposal) {
                 current = proposal;
                 form.msCargarPresupuesto(proposal, true);
                 f.txtPesu(11).setText(typedUnits);
             },
         .act =
             [&] {
                 staggered(current);
                 return client.lastWords([&] { form.keyDown(screen::Key::f9); });
             },
         .judge =
             [&](std::int32_t proposal, const std::string& words, Tally& tally) {
                 const std::string number = std::to_string(proposal);
                 const bool there = client.query("select count(*) from DPI where DPI_Id = " + number) == "1";
                 const bool deleted = words.starts_with("realmente desea eliminar") && f.txtPesu(3).text().empty();
                 const bool refused = words == "Error, No es posible eliminar un presupuesto aceptado";
                 tally.done += deleted ? 1 : 0;
                 tally.told += refused ? 1 : 0;
                 tally.expect(deleted || refused, number + ": " + words);
                 tally.expect(there == refused, number + (there ? ": is there" : ": is gone") + ", said: " + words);
                 tally.expect(deleted || (f.txtPesu(3).text() == number && f.txtPesu(11).text() == typedUnits),
                              number + ": what was typed is lost");
             }});
}

// --- The stories -----------------------------------------------------------------------------------------------------

using Other = Tally (*)(const StoryDatabase&, Meeting&, int);

bool against(const StoryDatabase& database, Other other, int turns, bool oneAlone) {
    fill(database, turns);
    Meeting meeting(2);
    const auto begun = std::chrono::steady_clock::now();
    const auto told = support::runTogether<Tally>(
        meeting, {[&] { return accept(database, meeting, turns); }, [&] { return other(database, meeting, turns); }});
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begun;
    if (!told[0] || !told[1]) {
        return false;
    }
    std::cout << "accepted " << told[0]->done << ", told " << told[0]->told << ", wrong " << told[0]->wrong
              << "\nother: done " << told[1]->done << ", told " << told[1]->told << ", wrong " << told[1]->wrong
              << "\nseconds: " << static_cast<int>(seconds.count()) << '\n';
    const bool each = told[0]->done + told[0]->told == turns && told[1]->done + told[1]->told == turns;
    const bool one = !oneAlone || told[0]->done + told[1]->done == turns;
    return each && one && told[0]->wrong == 0 && told[1]->wrong == 0;
}

struct Story {
    std::string_view name;
    Other other;
    bool oneAlone;  ///< if one of the two has done it, the other has not
};

constexpr std::array stories{
    Story{"save_against_accept", save, false},
    Story{"delete_against_accept", remove, true},
};
constexpr int longForm = 500;

bool play(const support::StoryArguments& arguments) {
    for (const Story& story : stories) {
        if (story.name == arguments.story) {
            std::cout << "-- " << story.name << '\n';
            return against(StoryDatabase(arguments.where), story.other,
                           arguments.turns > 0 ? arguments.turns : longForm, story.oneAlone);
        }
    }
    std::cerr << "no such story\n";
    return false;
}

}  // namespace
}  // namespace velmora::proposal

int main(int argc, char** argv) {
    const auto arguments = velmora::support::readStoryArguments(argc, argv);
    if (arguments && !velmora::support::canPlay(*arguments)) {
        return velmora::support::noServerStatus;
    }
    return arguments && velmora::proposal::play(*arguments) ? 0 : 1;
}
