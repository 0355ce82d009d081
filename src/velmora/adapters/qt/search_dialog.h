#pragma once
// The window to search for a row: a filter box over two columns.

#include <QDialog>
#include <exception>
#include <optional>

#include "velmora/platform/screen/screen.h"

class QLabel;
class QLineEdit;

namespace velmora::qt {

class GridTable;
class SearchModel;
class WindowMemory;

/// Filters while the user types; the arrow keys move in the list while the box keeps the keyboard focus; Enter or a
/// double click chooses the row; Esc closes the window.
class SearchDialog : public QDialog {
  public:
    /// `memory` keeps size, place and widths; nullptr: none.
    SearchDialog(const screen::SearchWindow& window, QWidget* parent, WindowMemory* memory);

    std::optional<std::size_t> choose();
    /// The error that ended the reading of the rows, if any.
    std::exception_ptr failure() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void filter(const QString& text);
    void take();
    void showCount();
    void settlePlace();

    SearchModel* model_;
    QLineEdit* box_;
    GridTable* table_;
    QLabel* count_;
    std::optional<std::size_t> chosen_;
    WindowMemory* memory_;
};

}  // namespace velmora::qt
