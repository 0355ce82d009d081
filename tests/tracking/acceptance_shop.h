#pragma once
// A shop whose proposals are accepted: database, session, the controls of the tracking form on a bare form, a list that
// is filled as the form fills it, and a user who answers what is asked.

#include <chrono>
#include <deque>
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

/// Counts what reaches a connection, from 0: statements, begins, commits, rollbacks; keeps their log; refuses some, or
/// is lost at one: from there on everything fails and an open transaction is undone, as a server does.
class FaultPoints final : public sql::ForwardingConnection {
  public:
    explicit FaultPoints(sql::Connection& target) : ForwardingConnection(target) {}

    void refuse(int operation, long number = sql::provider::failure) { refused_[operation] = number; }
    void loseAt(int operation) { lostAt_ = operation; }
    /// The operation itself still goes through.
    void loseAfter(int operation) { lostAfter_ = operation; }
    /// Fails there as no database does: by an exception that is no run-time error.
    void breakAt(int operation) { brokenAt_ = operation; }
    /// Runs right before the next statement that holds the text.
    void before(std::string text, std::function<void()> deed) { before_ = {std::move(text), std::move(deed)}; }
    /// Works again, and counts anew.
    void restore();
    const std::vector<std::string>& log() const { return log_; }
    bool transactionOpen() const { return open_; }

    sql::Recordset execute(std::string_view statement) override;
    void beginTrans() override;
    void commitTrans() override;
    void rollbackTrans() override;
    bool isAlive() override { return !lost_ && ForwardingConnection::isAlive(); }

  private:
    void pass(std::string_view what);
    void passed();
    void lose();

    std::vector<std::string> log_;
    std::map<int, long> refused_;
    std::pair<std::string, std::function<void()>> before_;
    int lostAt_ = -1;
    int lostAfter_ = -1;
    int brokenAt_ = -1;
    bool lost_ = false;
    bool open_ = false;
};

class StoppedClock final : public system::Clock {
  public:
    runtime::Date time = runtime::Date::of(2026, 1, 15, 10);
    runtime::Date now() const override { return time; }

    /// Every pause that was asked for. None of them lasts unless `pace` is set: then so many times shorter than asked.
    mutable std::vector<std::chrono::milliseconds> pauses;
    std::function<void()> onPause;
    int pace = 0;
    void pause(std::chrono::milliseconds length) const override;
};

class NoServices final : public system::Services {
  public:
    std::string temporaryFolder() const override { return {}; }
    std::optional<std::string> openFileDialog(const system::OpenFileRequest&) override { return {}; }
    int openWithAssociatedProgram(std::string_view) override { return 0; }
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
/// One that is there already.
std::unique_ptr<sql::Connection> openShopDatabase(
    const std::string& path, std::chrono::milliseconds busyTimeout = std::chrono::milliseconds(5000));

/// Columns and their values as SQL writes them.
using Columns = std::map<std::string, std::string>;

/// Inserts a proposal of three sprockets for customer 1001, with the columns given in place of those. Gives its number.
std::int32_t addProposal(sql::Connection& connection, const Columns& columns = {});
void addLabour(sql::Connection& connection, std::int32_t proposal, int machine, const std::string& hours);

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

    /// The rows of a query: values divided by "|", rows by line breaks; NULL for null.
    std::string query(std::string_view statement);
    std::vector<std::string> errorTexts() const;
    std::string count(const std::string& table) { return query("select count(*) from " + table); }

    std::unique_ptr<sql::Connection> database;
    FaultPoints connection;
    adapters::StandInSession session;
    AnsweringScreen screen;
    components::ComponentFactory components;
    NoServices services;
    StoppedClock clock;
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
