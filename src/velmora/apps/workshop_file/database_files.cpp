#include "velmora/apps/workshop_file/database_files.h"

#include <system_error>

#include "velmora/adapters/sqlite/file_content.h"
#include "velmora/platform/system/file_path.h"

namespace velmora::workshop_file {

namespace fs = std::filesystem;

fs::path documentsOf(const fs::path& database) {
    return system::filePath(sqlite::documentsFileOf(system::fileText(database)));
}

fs::path settingsOf(const fs::path& database) {
    fs::path file = database;
    file += ".ajustes";
    return file;
}

std::array<fs::path, 3> filesOf(const fs::path& database) {
    return {documentsOf(database), settingsOf(database), database};
}

void removeSideFiles(const fs::path& file) {
    for (const char* side : sqlite::sideFileEndings) {
        fs::path beside = file;
        beside += side;
        std::error_code ignored;
        fs::remove(beside, ignored);
    }
}

void removeFilesOf(const fs::path& database) {
    for (const fs::path& file : filesOf(database)) {
        std::error_code ignored;
        fs::remove(file, ignored);
        removeSideFiles(file);
    }
}

}  // namespace velmora::workshop_file
