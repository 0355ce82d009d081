#pragma once
// The window to look for a row: a filter box over two columns.

#include <QDialog>
#include <exception>
#include <optional>

#include "velmora/platform/screen/screen.h"

class QLabel;
class QLineEdit;

namespace velmora::qt {

class GridTable;
class SearchModel;

/// Filters as the user types; the arrow keys move in the list while the box keeps the keyboard; Enter or a double
/// click takes the row; Esc leaves.
class SearchDialog : public QDialog {
  public:
    SearchDialog(const screen::SearchWindow& window, QWidget* parent);

    std::optional<std::size_t> choose();
    /// An error that ended the reading of the rows.
    std::exception_ptr failure() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void filter(const QString& text);
    void take();
    void showCount();

    SearchModel* model_;
    QLineEdit* box_;
    GridTable* table_;
    QLabel* count_;
    std::optional<std::size_t> chosen_;
};

}  // namespace velmora::qt
