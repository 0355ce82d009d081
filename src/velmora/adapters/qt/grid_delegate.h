#pragma once
// How a cell of a grid is drawn: its text, or a small flat button with the text on it.

#include <QStyledItemDelegate>

namespace velmora::qt {

class GridModel;

class GridDelegate : public QStyledItemDelegate {
  public:
    GridDelegate(const GridModel& model, QObject* parent) : QStyledItemDelegate(parent), model_(model) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// A text that its column cuts off is told whole.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

  private:
    void paintButton(QPainter& painter, const QStyleOptionViewItem& option, const QString& text) const;
    const GridModel& model_;
};

}  // namespace velmora::qt
