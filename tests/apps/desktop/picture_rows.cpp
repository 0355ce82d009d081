// picture_rows FILE: makes every window of the pictures on the demonstration workshop and writes the statements with
// their rows into the file.

#include <iostream>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/apps/desktop/picture_forms.h"
#include "velmora/apps/desktop/workshop.h"
#include "velmora/apps/engines/known_engines.h"

#include "support/no_screen.h"
#include "support/no_services.h"
#include "support/picture_moment.h"
#include "support/recorded_rows.h"

int main(int argc, char** argv) {
    using namespace velmora;
    if (argc != 2) {
        std::cerr << "picture_rows FILE\n";
        return 2;
    }
    const support::PictureClock clock;
    const auto workshop = desktop::openWorkshop(engines::knownEngines(clock), ":memory:", clock);
    support::RowRecorder recorder(workshop->connection());
    adapters::StandInSession session(recorder);
    support::NoScreen screen;
    support::NoServices services;
    const components::ComponentFactory components;
    platform::Desk desk{screen, components, services, clock};
    for (const desktop::WindowPicture& picture : desktop::windowPictures(session, desk)) {
        picture.make();
    }
    support::writeRecording(recorder.recording(), argv[1]);
    return 0;
}
