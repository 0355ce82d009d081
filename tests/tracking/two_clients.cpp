// Two to four processes on one database: one proposal, one new order; no order number and no place in a machine's queue
// is ever given twice; what is accepted is what was shown.
//
//   two_clients STORY [TURNS] [--server]      the stories stand at the end, with the turns of their long form
//
// --server: on the server that VELMORA_TEST_DSN names, all of whose tables are dropped; else on a file.

#include <array>
#include <charconv>
#include <chrono>
#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/tracking/frm_seguimiento.h"

#include "acceptance_shop.h"
#include "support/story_database.h"
#include "support/two_processes.h"

namespace velmora::tracking {
namespace {

using support::Meeting;
using support::StoryDatabase;

/// Long timeout with which a client waits for the other's writes.
constexpr std::chrono::seconds patient(30);

/// Counts of a client's results.
struct Tally {
    int accepted = 0;
    int told = 0;  ///< that there is no order to be had
    int wrong = 0;
    int pauses = 0;

    void expect(bool holds, const std::string& what) {
        if (!holds) {
            ++wrong;
            std::cerr << "wrong: " << what << '\n';
        }
    }
};

/// Runs the clients, shows their counts, and returns the sum. A client that ended early counts as wrong.
Tally sumOf(Meeting& meeting, const std::vector<std::function<Tally()>>& clients) {
    const auto begun = std::chrono::steady_clock::now();
    Tally total;
    for (const std::optional<Tally>& each : support::runTogether<Tally>(meeting, clients)) {
        if (!each) {
            ++total.wrong;
            continue;
        }
        std::cout << "client: accepted " << each->accepted << ", told " << each->told << ", paused " << each->pauses
                  << " times, wrong " << each->wrong << '\n';
        total.accepted += each->accepted;
        total.told += each->told;
        total.wrong += each->wrong;
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begun;
    std::cout << "seconds: " << static_cast<int>(seconds.count()) << '\n';
    return total;
}

struct Figure {
    const char* what;
    std::string statement;
    int expected;
};

/// Prints each figure; true when all are as expected.
bool hold(const StoryDatabase& database, const std::vector<Figure>& figures) {
    AcceptanceShop shop(database.open());
    bool good = true;
    for (const Figure& figure : figures) {
        const std::string expected = std::to_string(figure.expected);
        const std::string found = shop.query(figure.statement);
        std::cout << figure.what << ": " << found << (found == expected ? "" : ", not " + expected) << '\n';
        good = good && found == expected;
    }
    return good;
}

std::string lastWords(const AcceptanceShop& shop) {
    return shop.errors.empty() ? shop.screen.messages.empty() ? "" : shop.screen.messages.back().text
                               : shop.errors.back().description();
}

bool isAccepted(const std::string& words) {
    return words.starts_with("Presupuesto Aceptado");
}

// --- Both accept the same proposals ----------------------------------------------------------------------------------

/// Parameters of a race.
struct Race {
    int pace = 1;  ///< pauses are shorter than a user's by this factor
    /// Prepares a proposal on the list as the first client, or a client before it, has left it before both press the
    /// button.
    std::function<void(AcceptanceShop&, std::int32_t proposal)> leave;
};

/// The rows of all proposals as of before the race; both clients work on these, so they are stale from the first
/// acceptance on.
std::vector<sql::Row> staleRows(AcceptanceShop& shop, std::vector<sql::Column>& columns) {
    shop.list(" order by DPI_Id");
    sql::Recordset rows = shop.fields.rsDpi->clone();
    columns = rows.columns();
    std::vector<sql::Row> all;
    for (; !rows.eof(); rows.moveNext()) {
        sql::Row row;
        for (std::size_t column = 0; column < columns.size(); ++column) {
            row.push_back(rows[column]);
        }
        all.push_back(std::move(row));
    }
    return all;
}

Tally race(const StoryDatabase& database, Meeting& meeting, const Race& race, bool isFirst) {
    AcceptanceShop shop(database.open(patient));
    shop.clock.pace = race.pace;
    shop.fields.txtCriterio(numberFrom).setText("1");
    std::vector<sql::Column> columns;
    const std::vector<sql::Row> rows = staleRows(shop, columns);
    Tally tally;
    for (const sql::Row& row : rows) {
        shop.fields.rsDpi = sql::Recordset(sql::rowsInMemory(columns, {row}));
        if (isFirst && race.leave) {
            race.leave(shop, (*shop.fields.rsDpi)["DPI_Id"].toLong());
        }
        shop.connection.restore();
        shop.screen.messages.clear();
        shop.errors.clear();
        meeting.meet();
        shop.accept();
        const std::string words = lastWords(shop);
        const bool isTold = words.starts_with("El presupuesto ya fue aceptado");
        tally.accepted += isAccepted(words) ? 1 : 0;
        tally.told += isTold ? 1 : 0;
        tally.expect(isAccepted(words) || isTold, words);
    }
    tally.pauses = static_cast<int>(shop.clock.pauses.size());
    return tally;
}

void fill(const StoryDatabase& database, int proposals) {
    const auto connection = database.open();
    fillShop(*connection);
    connection->beginTrans();
    for (int made = 0; made < proposals; ++made) {
        const std::int32_t number = addProposal(*connection);
        addLabour(*connection, number, 10, "0.25");
    }
    connection->commitTrans();
}

/// `leftovers`: number of orders of each proposal that exist before the race.
bool run(const StoryDatabase& database, const Race& options, int proposals, int leftovers) {
    fill(database, proposals);
    Meeting meeting(2);
    const Tally total = sumOf(meeting, {[&] { return race(database, meeting, options, true); },
                                        [&] { return race(database, meeting, options, false); }});
    const int orders = proposals * (1 + leftovers);
    const bool holds =
        hold(database, {
                           {"orders", "select count(*) from ORDEN", orders},
                           {"numbers given", "select count(distinct ORDEN_NUM) from ORDEN", orders},
                           {"highest number", "select max(ORDEN_NUM) from ORDEN", orders},
                           {"proposals with an order", "select count(distinct ORDEN_IdDPI) from ORDEN", proposals},
                           {"proposals that know their order",
                            "select count(*) from DPI inner join ORDEN on DPI_Orden = ORDEN_NUM where "
                            "ORDEN_IdDPI = DPI_Id and not DPI_FAcepta is null",
                            proposals},
                           {"sprockets", "select count(distinct Opi_OrdId) from OrdPiñones", proposals},
                           {"materials", "select count(*) from Mat", 2 * proposals},
                           {"route rows", "select count(*) from RUT", 3 * proposals},
                       });
    return holds && total.wrong == 0 && total.accepted == proposals && total.told == proposals;
}

bool sameProposal(const StoryDatabase& database, int turns) {
    return run(database, {}, turns, 0);
}

/// Both find the order of an earlier failure and wait equally long for it.
bool leftoverOrder(const StoryDatabase& database, int turns) {
    const Race options{.pace = 10, .leave = [](AcceptanceShop& shop, std::int32_t proposal) {
                           shop.change("INSERT INTO ORDEN (ORDEN_NUM,ORDEN_IdDPI) select isnull(max(ORDEN_NUM),0)+1," +
                                       std::to_string(proposal) + " from ORDEN");
                       }};
    return run(database, options, turns, 1);
}

/// The mark of the first client's own order has just failed: it does not wait, the other does.
bool ownLeftoverOrder(const StoryDatabase& database, int turns) {
    const Race options{.pace = 10, .leave = [](AcceptanceShop& shop, std::int32_t) {
                           shop.connection.before("UPDATE DPI", [] {
                               throw sql::DbError(sql::provider::timeout, "La marca no se pudo escribir");
                           });
                           shop.accept();
                       }};
    return run(database, options, turns, 1);
}

// --- Four accept proposals of their own, all for the same machines
// ------------------------------------------------------

Tally acceptEach(const StoryDatabase& database, Meeting& meeting, int client, int turns) {
    AcceptanceShop shop(database.open(patient));
    shop.clock.pace = 10;
    shop.fields.txtCriterio(numberFrom).setText("1");
    Tally tally;
    for (int turn = 0; turn < turns; ++turn) {
        shop.connection.restore();
        shop.screen.messages.clear();
        shop.errors.clear();
        meeting.meet();
        shop.chooseAndAccept(client * turns + turn + 1);
        const std::string words = lastWords(shop);
        tally.accepted += isAccepted(words) ? 1 : 0;
        tally.expect(isAccepted(words), words);
    }
    return tally;
}

bool sameMachines(const StoryDatabase& database, int turns) {
    constexpr int clients = 4;
    const int proposals = clients * turns;
    fill(database, proposals);
    Meeting meeting(clients);
    std::vector<std::function<Tally()>> work;
    for (int client = 0; client < clients; ++client) {
        work.emplace_back([&, client] { return acceptEach(database, meeting, client, turns); });
    }
    const Tally total = sumOf(meeting, work);
    const bool holds =
        hold(database, {
                           {"orders", "select count(distinct ORDEN_NUM) from ORDEN", proposals},
                           {"route rows", "select count(*) from RUT", 3 * proposals},
                           {"places in the saw's queue", "select count(distinct RUT_Mpos) from RUT where RUT_Maq = 131",
                            2 * proposals},
                           {"last place in it", "select max(RUT_Mpos) from RUT where RUT_Maq = 131", 2 * proposals},
                           {"places in the other machine's queue",
                            "select count(distinct RUT_Mpos) from RUT where RUT_Maq = 10", proposals},
                       });
    return holds && total.wrong == 0 && total.accepted == proposals;
}

// --- A list is scrolled while the other writes -----------------------------------------------------------------------

/// What the other client does with the proposal that is shown.
enum class Meanwhile { leavesIt, acceptsIt, changesIt, deletesIt };

Meanwhile meanwhile(int turn) {
    constexpr std::array deeds{Meanwhile::leavesIt,  Meanwhile::acceptsIt, Meanwhile::leavesIt,
                               Meanwhile::changesIt, Meanwhile::leavesIt,  Meanwhile::deletesIt};
    return deeds[static_cast<std::size_t>(turn) % deeds.size()];
}

/// How the reader is told.
const char* wordsOf(Meanwhile deed) {
    switch (deed) {
        case Meanwhile::leavesIt:
            return "Presupuesto Aceptado";
        case Meanwhile::acceptsIt:
            return "El presupuesto ya fue aceptado";
        case Meanwhile::changesIt:
            return "El presupuesto ha sido modificado";
        case Meanwhile::deletesIt:
            return "El presupuesto ya no existe";
    }
    return "";
}

constexpr int firstProposals = 300;  ///< many screens of a list
constexpr int meetings = 4;          ///< of a turn

/// A proposal whose teeth, customer's name and reference tell its number; each is a minute younger than the one before.
void addTelling(sql::Connection& connection) {
    connection.beginTrans();
    const int id = addProposal(connection);
    const std::string number = std::to_string(id);
    constexpr int dayOfMinutes = 24 * 60;
    const std::string date = std::to_string(10 + id / dayOfMinutes) + "/01/2026 " +
                             std::to_string(id % dayOfMinutes / 60) + ":" + std::to_string(id % 60) + ":00";
    connection.execute("UPDATE DPI SET DPI_Z = " + number + ", DPI_NomCliente = N'C-" + number +
                       "', DPI_RefCli = N'R-" + number + "', DPI_Fecha = '" + date + "' where DPI_Id = " + number);
    connection.commitTrans();
}

/// A user of the real form: looks at a row of the list, clicks it, scrolls, accepts it.
class Reader {
  public:
    Reader(const StoryDatabase& database, Meeting& meeting, std::int32_t& seen)
        : shop_(database.open(patient)), form_(shop_.session, shop_.desk), meeting_(meeting), seen_(seen) {
        shop_.clock.pace = 10;
    }

    Tally work(int turns) {
        for (int turn = 0; turn < turns; ++turn) {
            met_ = 0;
            try {
                play(turn);
            } catch (const runtime::RuntimeError& error) {
                tally_.expect(false, error.description());
            }
            while (met_ < meetings) {
                meet();
            }
        }
        tally_.pauses = static_cast<int>(shop_.clock.pauses.size());
        return tally_;
    }

  private:
    void play(int turn) {
        TrackingFields& f = form_.fields();
        const Meanwhile deed = meanwhile(turn);
        f.txtCriterio(numberFrom).setText("");
        f.cboFiltroHistorico.setListIndex(onlyPending);
        f.cmdfiltro.onClick();
        const std::size_t row = 5 + static_cast<std::size_t>(turn) * 37 % 200;
        seen_ = numberAt(row);
        meet();
        meet();  // rows were stored, deleted and accepted around it
        scroll();
        expectShown(row, "scrolled");
        f.dbgDPI.moveToRow(row);
        expectPanel("clicked");
        meet();
        if (deed != Meanwhile::leavesIt) {
            meet();
        }
        scroll();
        expectShown(row, "before the button");
        expectPanel("before the button");
        f.txtPesu(customerOrder).setText("PEDIDO " + std::to_string(turn));
        accept(deed);
        if (deed != Meanwhile::leavesIt) {
            expectPanel("told");
            tally_.expect(f.txtPesu(customerOrder).text() == "PEDIDO " + std::to_string(turn),
                          "what was typed is gone");
        }
    }

    void meet() {
        meeting_.meet();
        ++met_;
    }

    std::int32_t numberAt(std::size_t row) {
        const std::string text = form_.fields().dbgDPI.cellText(row, 1);
        std::int32_t number = 0;
        std::from_chars(text.data(), text.data() + text.size(), number);
        return number;
    }

    void scroll() {
        const std::size_t rows = form_.fields().dbgDPI.rowCount();
        for (std::size_t row = 0; row < rows; row += 20) {
            numberAt(row);
        }
        numberAt(0);
    }

    void expectShown(std::size_t row, const std::string& when) {
        const std::int32_t now = numberAt(row);
        tally_.expect(now == seen_,
                      when + ": the list shows " + std::to_string(now) + " where it showed " + std::to_string(seen_));
    }

    void expectPanel(const std::string& when) {
        const auto& txtPesu = form_.fields().txtPesu;
        const std::string number = std::to_string(seen_);
        tally_.expect(
            txtPesu(customerName).text() == "C-" + number && txtPesu(customerReference).text() == "R-" + number,
            when + ": the panel shows " + txtPesu(customerName).text() + ", " + txtPesu(customerReference).text() +
                " of " + number);
    }

    void accept(Meanwhile deed) {
        shop_.connection.restore();
        shop_.screen.messages.clear();
        form_.fields().XPButton1.onClick();
        const std::string words = lastWords(shop_);
        tally_.accepted += isAccepted(words) ? 1 : 0;
        tally_.told += isAccepted(words) ? 0 : 1;
        tally_.expect(words.starts_with(wordsOf(deed)), words);
        const std::string number = std::to_string(seen_);
        const bool hasOrder = deed == Meanwhile::leavesIt || deed == Meanwhile::acceptsIt;
        const std::string order = shop_.query("select ORDEN_NOM,ORDEN_REF from ORDEN where ORDEN_IdDPI = " + number);
        tally_.expect(order == (hasOrder ? "C-" + number + "|R-" + number : ""), number + " has the order " + order);
    }

    Tally tally_;
    AcceptanceShop shop_;
    frmSeguimiento form_;
    Meeting& meeting_;
    std::int32_t& seen_;
    int met_ = 0;
};

/// The other client, who writes around the proposal that the reader has seen, and to it.
class Writer {
  public:
    Writer(const StoryDatabase& database, Meeting& meeting, const std::int32_t& seen)
        : shop_(database.open(patient)), meeting_(meeting), seen_(seen) {
        shop_.clock.pace = 10;
        shop_.fields.txtCriterio(numberFrom).setText("1");
    }

    Tally work(int turns) {
        for (int turn = 0; turn < turns; ++turn) {
            meeting_.meet();
            writeAround();
            meeting_.meet();
            meeting_.meet();
            writeTo(meanwhile(turn));
            meeting_.meet();
        }
        tally_.pauses = static_cast<int>(shop_.clock.pauses.size());
        return tally_;
    }

  private:
    void writeTo(Meanwhile deed) {
        const std::string number = std::to_string(seen_);
        switch (deed) {
            case Meanwhile::leavesIt:
                return writeAround();
            case Meanwhile::acceptsIt:
                return accept(seen_);
            case Meanwhile::changesIt:
                return shop_.change("UPDATE DPI SET DPI_ImpTP = DPI_ImpTP + 1 where DPI_Id = " + number);
            case Meanwhile::deletesIt:
                return shop_.change("delete from DPI where DPI_Id = " + number);
        }
    }

    void writeAround() {
        for (int stored = 0; stored < 3; ++stored) {
            addTelling(*shop_.database);
        }
        shop_.change("delete from DPI where DPI_Id = " + std::to_string(another("max")));
        accept(another("max"));
        accept(another("min"));
    }

    std::int32_t another(const std::string& which) {
        return shop_.database
            ->execute("select " + which + "(DPI_Id) from DPI where DPI_FAcepta is null and DPI_Id <> " +
                      std::to_string(seen_))[0]
            .toLong();
    }

    void accept(std::int32_t proposal) {
        shop_.connection.restore();
        shop_.screen.messages.clear();
        shop_.errors.clear();
        shop_.chooseAndAccept(proposal);
        const std::string words = lastWords(shop_);
        tally_.accepted += isAccepted(words) ? 1 : 0;
        tally_.expect(isAccepted(words), words);
    }

    Tally tally_;
    AcceptanceShop shop_;
    Meeting& meeting_;
    const std::int32_t& seen_;
};

bool scrolledList(const StoryDatabase& database, int turns) {
    {
        const auto connection = database.open();
        fillShop(*connection);
        for (int made = 0; made < firstProposals + 2 * turns; ++made) {
            addTelling(*connection);
        }
    }
    Meeting meeting(2);
    support::Shared<std::int32_t> seen;
    const Tally total = sumOf(meeting, {[&] { return Reader(database, meeting, *seen).work(turns); },
                                        [&] { return Writer(database, meeting, *seen).work(turns); }});
    const bool holds = hold(
        database,
        {
            {"orders", "select count(*) from ORDEN", total.accepted},
            {"numbers given", "select count(distinct ORDEN_NUM) from ORDEN", total.accepted},
            {"proposals with an order", "select count(distinct ORDEN_IdDPI) from ORDEN", total.accepted},
            {"orders of another customer",
             "select count(*) from ORDEN inner join DPI on ORDEN_IdDPI = DPI_Id where ORDEN_NOM <> DPI_NomCliente", 0},
            {"sprockets of another proposal",
             "select count(*) from OrdPiñones inner join ORDEN on Opi_OrdId = ORDEN_ID inner join DPI on "
             "ORDEN_IdDPI = DPI_Id where Opi_Die <> DPI_Z",
             0},
            {"references of another proposal",
             "select count(*) from DPI where not DPI_FAcepta is null and substring(DPI_NomCliente,2,20) "
             "<> substring(DPI_RefCli,2,20)",
             0},
        });
    int accepted = 0;
    for (int turn = 0; turn < turns; ++turn) {
        accepted += meanwhile(turn) == Meanwhile::leavesIt ? 1 : 0;
    }
    return holds && total.wrong == 0 && total.told == turns - accepted;
}

struct Story {
    std::string_view name;
    bool (*play)(const StoryDatabase& database, int turns);
    int turns;  ///< of the long form
};

constexpr std::array stories{
    Story{"same_proposal", sameProposal, 1000},         Story{"leftover_order", leftoverOrder, 500},
    Story{"own_leftover_order", ownLeftoverOrder, 500}, Story{"same_machines", sameMachines, 250},
    Story{"scrolled_list", scrolledList, 500},
};

bool play(const support::StoryArguments& arguments) {
    for (const Story& story : stories) {
        if (story.name == arguments.story) {
            std::cout << "-- " << story.name << '\n';
            return story.play(StoryDatabase(arguments.where), arguments.turns > 0 ? arguments.turns : story.turns);
        }
    }
    std::cerr << "no such story\n";
    return false;
}

}  // namespace
}  // namespace velmora::tracking

int main(int argc, char** argv) {
    const auto arguments = velmora::support::readStoryArguments(argc, argv);
    if (arguments && !velmora::support::canPlay(*arguments)) {
        return velmora::support::noServerStatus;
    }
    return arguments && velmora::tracking::play(*arguments) ? 0 : 1;
}
