#pragma once
// Creates the widgets of a form from its layout.

#include <memory>
#include <unordered_map>
#include <vector>

#include "velmora/adapters/qt/control_view.h"
#include "velmora/platform/toolkit/layout_plan.h"

class QBoxLayout;
class QGridLayout;
class QLayout;
class QStackedLayout;

namespace velmora::qt {

class LabelView;

/// Groups that share one place. The page after the last is empty, for when none of them is visible.
struct Turn {
    QStackedLayout* stack;
    const screen::Layout* node;
    /// The grid whose row it stands in, when the rows share the remaining height; a row without parts gets none of it.
    QGridLayout* grid = nullptr;
    int row = 0;

    /// Shows the first visible child.
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
    /// The result for one node of the layout: a widget, a layout, or neither.
    struct Piece {
        QWidget* widget = nullptr;
        QLayout* layout = nullptr;
    };
    /// The widgets of a field.
    struct FieldParts {
        ControlView* view = nullptr;
        LabelView* captionView = nullptr;
        QWidget* caption = nullptr;
        QWidget* unit = nullptr;
    };

    Piece make(const toolkit::LayoutPlan& plan);
    Piece makeCaption(const toolkit::LayoutPlan& plan);
    Piece makeBox(const toolkit::LayoutPlan& plan);
    Piece makeGrid(const toolkit::LayoutPlan& plan);
    Piece makeGroup(const toolkit::LayoutPlan& plan);
    Piece makeTurns(const toolkit::LayoutPlan& plan);
    /// A child of a shared place as a widget of its own.
    QWidget* pageOf(const Piece& piece);

    /// Created when the first of the widgets is needed.
    FieldParts& partsOf(const screen::Layout& field);
    void makeCaptionOf(const screen::Layout& field, FieldParts& parts);
    ControlView& addView(std::unique_ptr<ControlView> view);

    ViewHost& host_;
    QWidget& root_;
    std::vector<std::unique_ptr<ControlView>> views_;
    std::vector<Turn> turns_;
    std::vector<const screen::Frame*> enclosing_;
    std::unordered_map<const screen::Layout*, FieldParts> parts_;
};

}  // namespace velmora::qt
