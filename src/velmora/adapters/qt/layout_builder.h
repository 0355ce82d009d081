#pragma once
// Makes the widgets of a form from the plan of its layout.

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
    /// What a part of the plan has become: a widget or a layout, or neither.
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
    /// A page of turns as a widget of its own.
    QWidget* pageOf(const Piece& piece);

    /// Made with the first of them that the plan asks for.
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
