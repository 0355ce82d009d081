// window_pictures ROWS FOLDER DPI: writes a picture of every window into the folder, at a scale in dots per inch. ROWS
// is what picture_rows has written.

#include <charconv>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "velmora/adapters/session/stand_in_session.h"
#include "velmora/adapters/win32/picture.h"
#include "velmora/adapters/win32/win32_screen.h"
#include "velmora/apps/desktop/picture_forms.h"
#include "velmora/platform/system/file_path.h"

#include "support/no_services.h"
#include "support/picture_moment.h"
#include "support/recorded_rows.h"

namespace {

using namespace velmora;

int writeAll(const std::string& rows, const std::string& folder, int dpi) {
    support::RecordedConnection connection(support::readRecording(rows));
    adapters::StandInSession session(connection);
    win32::Win32Screen screen(GetModuleHandleW(nullptr));
    support::NoServices services;
    const components::ComponentFactory components;
    const support::PictureClock clock;
    platform::Desk desk{screen, components, services, clock};
    std::filesystem::create_directories(system::filePath(folder));
    for (const desktop::WindowPicture& picture : desktop::windowPictures(session, desk)) {
        const std::string path = folder + "/" + picture.name + ".png";
        const std::unique_ptr<screen::Form> form = picture.make();
        if (!win32::picture(screen, *form, path, dpi)) {
            std::cerr << "cannot write " << path << '\n';
            return 1;
        }
        std::cout << path << '\n';
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    int dpi = 0;
    if (argc != 4 || std::from_chars(argv[3], argv[3] + std::strlen(argv[3]), dpi).ptr == argv[3]) {
        std::cerr << "window_pictures ROWS FOLDER DPI\n";
        return 2;
    }
    try {
        return writeAll(argv[1], argv[2], dpi);
    } catch (const std::exception& e) {
        std::cerr << e.what() << '\n';
        return 1;
    }
}
