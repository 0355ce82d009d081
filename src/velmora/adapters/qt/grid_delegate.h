#pragma once
// Draws a grid's cell: its text, or a small flat button with that text.

#include <QStyledItemDelegate>

namespace velmora::qt {

class GridModel;

class GridDelegate : public QStyledItemDelegate {
  public:
    GridDelegate(const GridModel& model, QObject* parent) : QStyledItemDelegate(parent), model_(model) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// Shows the whole text of a truncated cell as a tool tip.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  private:
    void paintButton(QPainter& painter, const QStyleOptionViewItem& option, const QString& text) const;
    const GridModel& model_;
};

}  // namespace velmora::qt
