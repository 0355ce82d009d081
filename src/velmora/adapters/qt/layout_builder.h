#pragma once
// Makes the widgets of a form from its Layout tree.

#include <memory>
#include <vector>

#include "velmora/adapters/qt/control_view.h"
#include "velmora/platform/screen/layout.h"

class QBoxLayout;
class QGridLayout;
class QLayout;
class QStackedLayout;

namespace velmora::qt {

class LabelView;

/// Groups that share one place. The page after the last is empty, for when none of them is to be seen.
struct Turn {
    QStackedLayout* stack;
    const screen::Layout* node;

    /// Brings the first visible child to the front.
    void update() const;
};

class LayoutBuilder {
  public:
    LayoutBuilder(ViewHost& host, QWidget& root) : host_(host), root_(root) {}

    /// The layout of the whole tree, to be set on a widget.
    QLayout* build(const screen::Layout& tree);

    std::vector<std::unique_ptr<ControlView>> takeViews() { return std::move(views_); }
    std::vector<Turn> takeTurns() { return std::move(turns_); }

  private:
    /// A node's result: a widget or a layout.
    struct Piece {
        QWidget* widget = nullptr;
        QLayout* layout = nullptr;
    };
    /// The parts of a field.
    struct FieldParts {
        ControlView* view = nullptr;
        LabelView* captionView = nullptr;
        QWidget* caption = nullptr;
        QWidget* unit = nullptr;
    };

    Piece make(const screen::Layout& node);
    Piece makeBox(const screen::Layout& node, bool horizontal);
    Piece makeGrid(const screen::Layout& node, int columns);
    Piece makeGroup(const screen::Layout& node);
    Piece makeTurns(const screen::Layout& node);
    Piece makeField(const screen::Layout& node);

    void addToBox(QBoxLayout& box, const screen::Layout& node, bool horizontal, bool alignTop);
    void addToGrid(QGridLayout& grid, const screen::Layout& node, int row, int column, int span);
    void addFieldToGrid(QGridLayout& grid, const screen::Layout& node, int row, int column, int span);
    void addRowToGrid(QGridLayout& grid, const screen::Layout& node, int row, int column, int span);
    void addTurnsToGrid(QGridLayout& grid, const screen::Layout& node, int row, int column);
    void addToStack(QStackedLayout& stack, const Piece& piece);
    void finishStack(QStackedLayout& stack, const screen::Layout& node);

    FieldParts makeParts(const screen::Layout& node);
    ControlView& addView(std::unique_ptr<ControlView> view);

    ViewHost& host_;
    QWidget& root_;
    std::vector<std::unique_ptr<ControlView>> views_;
    std::vector<Turn> turns_;
    std::vector<const screen::Frame*> enclosing_;
};

}  // namespace velmora::qt
