// Imports machines from a file and kills itself in the middle of the rows: killed_import DATABASE FILE.

#include <csignal>
#include <iostream>
#include <variant>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/adapters/sqlite/database.h"
#include "velmora/apps/workshop_data/csv_transfer.h"

namespace {

using namespace velmora;

/// Kills the process when some hundred rows have been written.
class Killing : public screen::Progress {
  public:
    bool cancelled() override { return ++asked_ > 2 && std::raise(SIGKILL) == 0; }

  private:
    int asked_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        return 2;
    }
    const auto connection = sqlite::openDatabase(argv[1], {});
    adapters::StandInSession session(*connection);
    const workshop_data::TableStore machines(session, *workshop_data::findTable("MAQ"));
    const auto bytes = workshop_data::readFile(argv[2]);
    const auto file = workshop_data::contentOf(std::get<std::string>(bytes));
    Killing progress;
    workshop_data::importNow(*connection, machines, file, workshop_data::planNow(machines, file), progress);
    std::cerr << "still here\n";
    return 0;
}
