#include "velmora/adapters/qt/picture.h"

#include <QApplication>
#include <QPixmap>

#include "velmora/adapters/qt/form_window.h"
#include "velmora/adapters/qt/qt_screen.h"
#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

bool picture(QtScreen& screen, screen::Form& form, const std::string& path, QSize size) {
    FormWindow window(screen, form, nullptr);
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.resize(size);
    window.show();
    // Filling lists and stretching columns is done in the event loop.
    QApplication::processEvents();
    return window.grab().save(toQt(path), "PNG");
}

}  // namespace velmora::qt
