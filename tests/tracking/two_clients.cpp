// Two processes on one database file that accept the same proposals at the same moment. No order number is ever given
// twice, no proposal ever gets two orders, and who comes second is told.
//
//   two_clients [PROPOSALS]      1000 unless told

#include <charconv>
#include <chrono>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>

#include "acceptance_shop.h"
#include "support/two_processes.h"

namespace velmora::tracking {
namespace {

/// How a client of this process has fared. Written by each client, one line.
struct Tally {
    int accepted = 0;
    int told = 0;  ///< that the other one was first
    int wrong = 0;
    int pauses = 0;
};

/// The rows of all proposals as they stood before the race, on which both clients work: stale from the first one on.
std::vector<sql::Row> staleRows(AcceptanceShop& shop, std::vector<sql::Column>& columns) {
    shop.list(" order by DPI_Id");
    sql::Recordset& rows = *shop.fields.rsDpi;
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

Tally race(const std::string& path, support::Meeting& meeting) {
    AcceptanceShop shop(openShopDatabase(path, std::chrono::seconds(30)));
    shop.clock.pace = 1;
    shop.fields.txtCriterio(numberFrom).setText("1");
    std::vector<sql::Column> columns;
    const std::vector<sql::Row> rows = staleRows(shop, columns);
    Tally tally;
    for (const sql::Row& row : rows) {
        shop.screen.messages.clear();
        shop.errors.clear();
        shop.fields.rsDpi = sql::Recordset(sql::rowsInMemory(columns, {row}));
        meeting.meet();
        shop.accept();
        const std::string last = shop.screen.messages.empty() ? "" : shop.screen.messages.back().text;
        if (last.starts_with("Presupuesto Aceptado")) {
            ++tally.accepted;
        } else if (last.starts_with("El presupuesto ya fue aceptado")) {
            ++tally.told;
        } else {
            ++tally.wrong;
            std::cerr << last << '\n';
            for (const std::string& text : shop.errorTexts()) {
                std::cerr << text << '\n';
            }
        }
    }
    tally.pauses = static_cast<int>(shop.clock.pauses.size());
    return tally;
}

void fill(const std::string& path, int proposals) {
    const auto database = makeShopDatabase(path);
    database->beginTrans();
    for (int made = 0; made < proposals; ++made) {
        const std::int32_t number = addProposal(*database);
        addLabour(*database, number, 10, "0.25");
    }
    database->commitTrans();
}

/// Says what is wrong; true when nothing is.
bool check(const std::string& path, int proposals) {
    AcceptanceShop shop(openShopDatabase(path));
    const std::string all = std::to_string(proposals);
    struct Row {
        const char* what;
        const char* statement;
        std::string expected;
    };
    const Row rows[] = {
        {"orders", "select count(*) from ORDEN", all},
        {"numbers given", "select count(distinct ORDEN_NUM) from ORDEN", all},
        {"highest number", "select max(ORDEN_NUM) from ORDEN", all},
        {"proposals with an order", "select count(distinct ORDEN_IdDPI) from ORDEN", all},
        {"proposals that know their order",
         "select count(*) from DPI inner join ORDEN on DPI_Orden = ORDEN_NUM where ORDEN_IdDPI = DPI_Id and not "
         "DPI_FAcepta is null",
         all},
        {"sprockets", "select count(distinct Opi_OrdId) from OrdPiñones", all},
        {"materials", "select count(*) from Mat", std::to_string(2 * proposals)},
        {"route rows", "select count(*) from RUT", std::to_string(3 * proposals)},
    };
    bool good = true;
    for (const Row& row : rows) {
        const std::string found = shop.query(row.statement);
        std::cout << row.what << ": " << found << (found == row.expected ? "" : ", not " + row.expected) << '\n';
        good = good && found == row.expected;
    }
    return good;
}

int run(int proposals) {
    const support::FolderForAll folder;
    const std::string path = folder.file("taller.db");
    fill(path, proposals);

    support::Meeting meeting(2);
    const auto begun = std::chrono::steady_clock::now();
    const std::function<Tally()> client = [&] { return race(path, meeting); };
    Tally total;
    for (const std::optional<Tally>& each : support::runTogether<Tally>(meeting, {client, client})) {
        if (!each) {
            ++total.wrong;
            continue;
        }
        std::cout << "client: accepted " << each->accepted << ", told " << each->told << ", gave way " << each->pauses
                  << " times, wrong " << each->wrong << '\n';
        total.accepted += each->accepted;
        total.told += each->told;
        total.wrong += each->wrong;
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begun;
    std::cout << "seconds: " << static_cast<int>(seconds.count()) << '\n';
    const bool good =
        check(path, proposals) && total.wrong == 0 && total.accepted == proposals && total.told == proposals;
    return good ? 0 : 1;
}

}  // namespace
}  // namespace velmora::tracking

int main(int argc, char** argv) {
    int proposals = 1000;
    if (argc > 1) {
        const std::string_view text(argv[1]);
        std::from_chars(text.data(), text.data() + text.size(), proposals);
    }
    return velmora::tracking::run(proposals);
}
