#include "velmora/apps/desktop/guide.h"

#include <array>
#include <filesystem>
#include <system_error>

#include "velmora/platform/system/file_path.h"

namespace velmora::desktop {

namespace {

/// Seen from the folder of the programs: installed, and in a build.
constexpr std::array places{VELMORA_GUIDE_INSTALLED, "../guide/guia.pdf"};

/// The answers of the system up to this one are errors.
constexpr int lastError = 32;

}  // namespace

std::string guideFile(const std::string& programs) {
    for (const char* place : places) {
        const std::filesystem::path file = (system::filePath(programs) / place).lexically_normal();
        std::error_code failure;
        if (std::filesystem::is_regular_file(file, failure)) {
            return system::fileText(file);
        }
    }
    return {};
}

void openGuide(platform::Desk& desk, const std::string& programs) {
    const std::string file = guideFile(programs);
    std::string trouble;
    if (file.empty()) {
        trouble = "No se encuentra la guía: no está instalada con el programa.";
    } else if (desk.services.openWithAssociatedProgram(file) <= lastError) {
        trouble = "No hay un programa que abra la guía:\n" + file;
    }
    if (!trouble.empty()) {
        desk.screen.show({.text = trouble, .icon = screen::Icon::exclamation, .title = "VELMORA"});
    }
}

}  // namespace velmora::desktop
