#pragma once
// A shop whose proposals are accepted: database, session, the controls of the tracking form on a bare form, a list that
// is filled as the form fills it, and a user who answers what is asked.

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/platform/desk.h"
#include "velmora/tracking/acceptance.h"
#include "velmora/tracking/detail.h"

#include "support/faulty_connection.h"
#include "support/no_services.h"
#include "support/stopped_clock.h"

namespace velmora::tracking {

/// Answers every question: the first one with `confirms`, those of the cuts with `cutsDisc` and `cutsHub`.
class AnsweringScreen final : public screen::Screen {
  public:
    screen::Answer confirms = screen::Answer::yes;
    screen::Answer cutsDisc = screen::Answer::yes;
    screen::Answer cutsHub = screen::Answer::yes;
    std::vector<screen::MessageBox> messages;
    int hourglasses = 0;  ///< how often it came up
    int yields = 0;       ///< how often events that wait were let through
    std::function<void()> onYield;
    /// Runs while a box is open, before it is answered.
    std::function<void(const screen::MessageBox&)> whileOpen;

    std::vector<std::string> texts() const;

    void showModal(screen::Form& form) override { form.unload(); }
    screen::Answer show(const screen::MessageBox& box) override;
    std::optional<std::size_t> search(const screen::SearchWindow&) override { return std::nullopt; }
    void setPointer(screen::Pointer pointer) override;
    void processEvents() override;
};

/// A new database with articles and customers.
///
/// | ART | code  | formula | cut  |   | CLI_COD | controlled | limit |
/// |-----|-------|---------|------|---|---------|------------|-------|
/// | 11  | R-114 | 2       | yes  |   | 1001    | no         | 0     |
/// | 12  | R-140 | 2       | yes  |   | 1002    | yes        | 1000  |
/// | 13  | T-355 | 4       | yes  |   | 1003    | yes        | null  |
/// | 14  | P-275 | 1       | yes  |
/// | 15  | R-NC  | 2       | null |
/// | 16  | S-6   | 6       | yes  |
/// | 17  | S-0   | 0       | yes  |
/// | 18  | S-5   | 5       | yes  |
std::unique_ptr<sql::Connection> makeShopDatabase(const std::string& path = ":memory:");
/// The same in an empty database of any engine.
void fillShop(sql::Connection& database);
/// One that is there already.
inline constexpr std::chrono::milliseconds usualBusyTimeout{5000};
std::unique_ptr<sql::Connection> openShopDatabase(const std::string& path,
                                                  std::chrono::milliseconds busyTimeout = usualBusyTimeout);

/// Columns and their values as SQL writes them.
using Columns = std::map<std::string, std::string>;

/// Inserts a proposal of three sprockets for customer 1001, with the columns given in place of those. Gives its number.
std::int32_t addProposal(sql::Connection& connection, const Columns& columns = {});
void addLabour(sql::Connection& connection, std::int32_t proposal, int machine, const std::string& hours);

/// The rows of a query: values divided by "|", rows by line breaks; NULL for null.
std::string rowsOf(sql::Connection& connection, std::string_view statement);

class AcceptanceShop {
  public:
    explicit AcceptanceShop(std::unique_ptr<sql::Connection> opened = makeShopDatabase());
    AcceptanceShop(const AcceptanceShop&) = delete;
    AcceptanceShop& operator=(const AcceptanceShop&) = delete;

    std::int32_t addProposal(const Columns& columns = {}) { return tracking::addProposal(*database, columns); }
    void addLabour(std::int32_t proposal, int machine, const std::string& hours) {
        tracking::addLabour(*database, proposal, machine, hours);
    }
    void change(std::string_view statement) { database->execute(statement); }

    /// Fills list and panel by a clause, as the form does.
    void list(const std::string& where);
    void choose(std::int32_t proposal) { list(" Where  (DPI_id = " + std::to_string(proposal) + " ) "); }
    /// Presses the button; a run-time error that reaches the user ends in `errors`.
    void accept();
    void chooseAndAccept(std::int32_t proposal) {
        choose(proposal);
        accept();
    }

    /// See rowsOf.
    std::string query(std::string_view statement) { return rowsOf(*database, statement); }
    std::vector<std::string> errorTexts() const;
    std::string count(const std::string& table) { return query("select count(*) from " + table); }

    std::unique_ptr<sql::Connection> database;
    support::FaultyConnection connection;
    adapters::StandInSession session;
    AnsweringScreen screen;
    components::ComponentFactory components;
    support::NoServices services;
    support::StoppedClock clock;
    platform::Desk desk{screen, components, services, clock};
    session::KestraUtil oUtil{screen, connection};
    screen::Form form{"frmSeguimiento"};
    TrackingFields fields{form};
    DetailPanel panel{fields, oUtil, screen};
    Acceptance acceptance;
    std::vector<runtime::RuntimeError> errors;
    int reloads = 0;
};

}  // namespace velmora::tracking
