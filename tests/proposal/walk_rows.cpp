// walk_rows FILE: a whole proposal by keys alone on the small workshop; writes the statements with their rows into the
// file, for the same walk where there is no engine (tests/adapters/win32/proposal_walk.rows).

#include <iostream>

#include "velmora/adapters/script/journal.h"
#include "velmora/adapters/script/user.h"

#include "support/no_screen.h"
#include "support/proposal_walk.h"
#include "support/proposal_workshop.h"
#include "support/recorded_rows.h"

int main(int argc, char** argv) {
    using namespace velmora;
    if (argc != 2) {
        std::cerr << "walk_rows FILE\n";
        return 2;
    }
    const auto database = support::makeWorkshopDatabase();
    support::RowRecorder recorder(*database);
    adapters::StandInSession session(recorder);
    support::NoScreen screen;
    support::NoServices services;
    const components::ComponentFactory components;
    const support::StoppedClock clock;
    platform::Desk desk{screen, components, services, clock};
    proposal::frmBercialPiñones form(session, desk);
    form.activate();
    script::Journal journal{std::cerr};
    script::User user{journal};
    support::walkProposal(form, {.type =
                                     [&](std::u32string_view text) {
                                         for (const char32_t character : text) {
                                             user.stroke(form, toolkit::strokeTyping(character));
                                         }
                                     },
                                 .press = [&](screen::Key key) { user.stroke(form, toolkit::strokeOf(key)); }});
    support::writeRecording(recorder.recording(), argv[1]);
    return 0;
}
