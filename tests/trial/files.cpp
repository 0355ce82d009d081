// Copies and drafts, done by the rooms that the desktop does them with:
//
//   trial_files copy DATABASE      makes a copy: "made"
//   trial_files restore DATABASE   puts the oldest copy back: "restored"
//   trial_files draft DATABASE     keeps two drafts, one behind the other: "kept 1", "kept 2"; ends as a crash does
//   trial_files look DATABASE      the copies and the drafts that are left: "copy FILE DAMAGE", "draft TEXT"
//
// Status 2 with the reason on the standard error output when it was not done.

#include <exception>
#include <iostream>
#include <string>

#include <unistd.h>

#include "velmora/adapters/sqlite/backup.h"
#include "velmora/apps/backup/copies.h"
#include "velmora/apps/desktop/drafts.h"
#include "velmora/platform/system/file_path.h"

namespace {

using namespace velmora;

std::string draftOf(const std::string& words) {
    return "[Text1(1)]\ntext=" + words + "\n[end]\n";
}

void keepDrafts(const std::string& database) {
    desktop::Drafts drafts(database);
    for (const char* number : {"1", "2"}) {
        drafts.keep(draftOf(number));
        std::cout << "kept " << number << std::endl;
    }
    ::_exit(0);
}

void look(const std::string& database, const system::Clock& clock) {
    for (const backup::Copy& copy : backup::Copies(database, clock).all()) {
        const std::string file = system::fileText(copy.file);
        std::cout << "copy " << file << '\t' << sqlite::damageOf(file) << '\n';
    }
    for (const desktop::LeftDraft& draft : desktop::Drafts(database).left()) {
        for (const char* number : {"1", "2"}) {
            if (draft.text == draftOf(number)) {
                std::cout << "draft " << number << '\n';
            }
        }
    }
}

void run(const std::string& deed, const std::string& database) {
    const system::SystemClock clock;
    backup::Copies copies(database, clock);
    if (deed == "copy") {
        copies.make();
        std::cout << "made" << std::endl;
    } else if (deed == "restore") {
        copies.restore(copies.all().back());
        std::cout << "restored" << std::endl;
    } else if (deed == "draft") {
        keepDrafts(database);
    } else {
        look(database, clock);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        return 1;
    }
    try {
        run(argv[1], argv[2]);
    } catch (const std::exception& e) {
        std::cerr << e.what() << '\n';
        return 2;
    }
    return 0;
}
