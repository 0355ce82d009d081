#pragma once
// Places of windows and widths of columns, kept for the user from one run to the next.

#include <QList>
#include <QRect>
#include <QSettings>
#include <optional>

namespace velmora::qt {

class WindowMemory {
  public:
    struct Place {
        QRect area;  ///< position with the frame, size without it; when maximized, what it was before
        bool maximized = false;
    };

    /// The file need not exist. Nothing is kept when it cannot be written.
    explicit WindowMemory(const QString& file);

    std::optional<Place> placeOf(const QString& window) const;
    void keepPlace(const QString& window, const Place& place);
    std::optional<int> widthOf(const QString& table, const QString& column) const;
    void keepWidth(const QString& table, const QString& column, int pixels);

  private:
    QSettings settings_;
};

/// The window moved, and made smaller where it has to be, so that it and its title bar lie on one of the screens: the
/// one that shows most of it. nullopt when none shows a part of its title bar that can be taken hold of.
std::optional<QRect> whollyShown(const QRect& window, const QList<QRect>& screens);

/// The same on the given screen.
QRect within(const QRect& window, const QRect& screen);

}  // namespace velmora::qt
