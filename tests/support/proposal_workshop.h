#pragma once
// A small workshop for the tests of the main form: a database, a session and a scripted screen, and a user who works
// on the form as people do.

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/platform/desk.h"
#include "velmora/platform/sql/connection.h"
#include "velmora/proposal/frm_bercial_pinones.h"

#include "support/fake_screen.h"
#include "support/faulty_connection.h"
#include "support/no_services.h"
#include "support/recording_connection.h"
#include "support/stopped_clock.h"
#include "support/temporary_folder.h"

namespace velmora::support {

/// The scripted screen, which can also say Cancel to whatever is asked, and at which things happen meanwhile.
class WorkshopScreen final : public ScriptedScreen {
  public:
    bool cancelsQuestions = false;
    /// Runs while a box is open, before it is answered.
    std::function<void(const screen::MessageBox&)> whileOpen;
    /// Runs when the events of the toolkit are let through.
    std::function<void()> onEvents;

    screen::Answer show(const screen::MessageBox& box) override;
    void processEvents() override;
};

/// The database with its rows: materials 1 (disc) to 5, customers 1001 to 1003, a double chain with 17 teeth. The
/// clock stands at 15/01/2026 10:00.
std::unique_ptr<sql::Connection> makeWorkshopDatabase(const std::string& path = ":memory:");
/// Makes the tables and the rows in an empty database of any engine.
void fillWorkshop(sql::Connection& database);
/// One that is there already.
std::unique_ptr<sql::Connection> openWorkshopDatabase(const std::string& path, bool readOnly = false);

/// Every text on a form by the name of its control, chosen entries included.
std::vector<std::string> textsOf(const screen::Form& form);

class ProposalWorkshop {
  public:
    ProposalWorkshop() : ProposalWorkshop(makeWorkshopDatabase()) {}
    explicit ProposalWorkshop(std::unique_ptr<sql::Connection> database);
    ~ProposalWorkshop();
    ProposalWorkshop(const ProposalWorkshop&) = delete;
    ProposalWorkshop& operator=(const ProposalWorkshop&) = delete;

    // --- The form ----------------------------------------------------------------------------------------------

    /// The main form, made at first use.
    proposal::frmBercialPiñones& form();
    /// Another form on the same database; the one before is gone.
    proposal::frmBercialPiñones& openAnew();
    estimate::FieldMap& fields() { return form().fields(); }

    // --- The user ----------------------------------------------------------------------------------------------

    /// Moves to the field and replaces its text. An error goes into `errors` and the work goes on. Every control
    /// that refuses fails the test.
    void set(std::string_view field, std::string_view text);
    void choose(std::string_view list, int index);
    void check(std::string_view box, bool on);
    void press(std::string_view button);
    void key(screen::Key key);
    void leave();
    /// Runs what a person does to the form; a run-time error ends in `errors`.
    void attempt(const std::function<void()>& action);

    /// The toothing of a plain sprocket of 38 teeth, above the one-piece limit.
    void enterToothing();
    /// Customer 1001, three pieces.
    void enterCustomerAndUnits();
    /// Both, and F5. The proposal is on the form afterwards, with its number.
    void saveNewProposal();

    // --- What stands there ---------------------------------------------------------------------------------------

    screen::Control& control(std::string_view name);
    std::string text(std::string_view name);
    bool enabled(std::string_view name) { return control(name).enabled(); }
    bool visible(std::string_view name) { return control(name).visible(); }
    std::string focused();
    /// Every text on the form by the name of its control, chosen entries included.
    std::vector<std::string> texts();
    /// The first value of a query's first row, as text; "NULL" for null.
    std::string query(std::string_view sql);
    /// The numbers of the errors that reached the user.
    std::vector<long> errorNumbers() const;

    std::vector<runtime::RuntimeError> errors;

    std::unique_ptr<sql::Connection> database;
    FaultyConnection faults;
    RecordingConnection connection;
    adapters::StandInSession session;
    WorkshopScreen screen;
    components::ComponentFactory components;
    NoServices services;
    StoppedClock clock;
    platform::Desk desk{screen, components, services, clock};

  private:
    std::unique_ptr<proposal::frmBercialPiñones> form_;
};

}  // namespace velmora::support
