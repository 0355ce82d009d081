#include "velmora/apps/desktop/title_note.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <utility>

namespace velmora::desktop {

TitleNote::TitleNote(QString note) : note_(std::move(note)) {
    qApp->installEventFilter(this);
}

TitleNote::~TitleNote() {
    qApp->removeEventFilter(this);
}

bool TitleNote::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowTitleChange) {
        auto* window = qobject_cast<QWidget*>(watched);
        if (window != nullptr && window->isWindow() && !window->windowTitle().endsWith(note_)) {
            window->setWindowTitle(window->windowTitle() + note_);
        }
    }
    return false;
}

}  // namespace velmora::desktop
