#include "velmora/apps/desktop/window_pictures.h"

#include <QDir>
#include <stdexcept>

#include "velmora/adapters/qt/picture.h"
#include "velmora/adapters/qt/qt_screen.h"
#include "velmora/adapters/qt/text.h"

namespace velmora::desktop {

std::vector<std::string> writePictures(qt::QtScreen& screen, const std::vector<WindowPicture>& pictures,
                                       const std::string& folder) {
    const QDir directory(qt::toQt(folder));
    if (!directory.mkpath(QStringLiteral("."))) {
        throw std::runtime_error("No se puede crear la carpeta " + folder);
    }
    std::vector<std::string> paths;
    for (const WindowPicture& picture : pictures) {
        const std::string path = qt::fromQt(directory.filePath(qt::toQt(picture.name + ".png")));
        const std::unique_ptr<screen::Form> form = picture.make();
        if (!qt::picture(screen, *form, path)) {
            throw std::runtime_error("No se puede escribir " + path);
        }
        paths.push_back(path);
    }
    return paths;
}

}  // namespace velmora::desktop
