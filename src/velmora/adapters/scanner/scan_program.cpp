#include "velmora/adapters/scanner/scan_program.h"

#include <array>
#include <system_error>

namespace velmora::scanner {

namespace fs = std::filesystem;

std::string scanProgram(const fs::path& programs) {
    constexpr const char* name = "velmora-scan";
    const std::array places{programs / name, (programs / VELMORA_SCAN_INSTALLED / name).lexically_normal()};
    for (const fs::path& place : places) {
        std::error_code ignored;
        if (fs::is_regular_file(place, ignored)) {
            return place.string();
        }
    }
    return places.front().string();
}

fs::path ownFolder() {
    std::error_code ignored;
    return fs::read_symlink("/proc/self/exe", ignored).parent_path();
}

}  // namespace velmora::scanner
