// A host in forty lines: opens a session of its own, shows the main form without a screen, prices a piece.
#include <iostream>
#include <utility>
#include <vector>

#include "velmora/adapters/script/script_screen.h"
#include "velmora/adapters/script/script_services.h"
#include "velmora/adapters/script/user.h"
#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/data/new_database.h"
#include "velmora/proposal/frm_bercial_pinones.h"
#include "velmora/shell/vmora.h"

int main() {
    using namespace velmora;
    const system::SystemClock clock;
    sql::Engines engines;
    sqlite::registerIn(engines);
    const auto database = engines.open("sqlite::memory:");
    data::createDatabase(*database);
    data::fillDemo(*database, clock.now());
    adapters::StandInSession session(*database);

    script::Journal journal(std::cout);
    script::Answers answers;
    script::ScriptScreen screen(journal, answers);
    script::ScriptServices services(journal, answers);
    const components::ComponentFactory components;  // printing, work orders …: a host registers its own by ProgID
    platform::Desk desk{screen, components, services, clock};

    screen.onIdle([&] {  // in place of a person before the form: pitch, teeth, chain width, roller, pieces
        auto& fields = dynamic_cast<proposal::frmBercialPiñones&>(*screen.forms().back()).fields();
        script::User person(journal);
        for (const auto& [field, text] :
             std::vector<std::pair<screen::TextBox*, const char*>>{{&fields.Text1(0), "12,7"},
                                                                   {&fields.Text1(1), "38"},
                                                                   {&fields.Text1(8), "7,75"},
                                                                   {&fields.Text1(2), "8,51"},
                                                                   {&fields.txtPesu(11), "10"}}) {
            person.set(*field, text);
        }
        person.leave(*screen.forms().back());
        std::cout << "Total Pieza " << fields.txtPesu(10).text() << ", Importe Total " << fields.txtPesu(12).text()
                  << '\n';
        return false;  // nothing more to do: the form is closed
    });

    shell::VMORA vmora{desk};
    vmora.MyBd(&session);
    vmora.jShow();
}
