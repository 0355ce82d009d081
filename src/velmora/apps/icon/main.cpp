// velmora-icon FOLDER: writes the icon below FOLDER in the places of an icon theme: SIZExSIZE/apps/velmora.png and
// scalable/apps/velmora.svg.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include "velmora/apps/icon/icon_image.h"
#include "velmora/apps/icon/icon_svg.h"

namespace {

namespace fs = std::filesystem;
using namespace velmora;

fs::path placeOf(const fs::path& theme, const std::string& size, const char* name) {
    const fs::path folder = theme / size / "apps";
    fs::create_directories(folder);
    return folder / name;
}

void writeImages(const fs::path& theme) {
    for (const int size : icon::imageSizes) {
        const std::string length = std::to_string(size);
        const fs::path file = placeOf(theme, std::string(length).append("x").append(length), "velmora.png");
        if (!icon::iconImage(size).save(QString::fromStdString(file.string()), "PNG")) {
            throw std::runtime_error("cannot write " + file.string());
        }
    }
}

void writeScalable(const fs::path& theme) {
    const fs::path file = placeOf(theme, "scalable", "velmora.svg");
    std::ofstream out(file, std::ios::binary);
    out << icon::iconSvg() << std::flush;
    if (!out) {
        throw std::runtime_error("cannot write " + file.string());
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "velmora-icon FOLDER\n";
        return 2;
    }
    try {
        writeImages(argv[1]);
        writeScalable(argv[1]);
    } catch (const std::exception& e) {
        std::cerr << "velmora-icon: " << e.what() << '\n';
        return 1;
    }
    return 0;
}
