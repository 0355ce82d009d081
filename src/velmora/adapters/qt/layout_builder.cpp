#include "velmora/adapters/qt/layout_builder.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "velmora/adapters/qt/label_view.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"
#include "velmora/adapters/qt/view_factory.h"
#include "velmora/platform/toolkit/effective_state.h"
#include "velmora/platform/toolkit/layout_nature.h"

namespace velmora::qt {

namespace {

using screen::Layout;
using Kind = Layout::Kind;
using toolkit::growsDownward;
using toolkit::growsSideways;
using toolkit::isTall;
using toolkit::speaksForItself;

// A logical column of a grid is three of the toolkit's: caption, control, unit.
constexpr int parts = 3;

bool isCaptionedField(const Layout& node) {
    return node.kind == Kind::field && !node.captionAbove && (node.captionLabel != nullptr || !node.caption.empty());
}

bool isTurnOfFields(const Layout& node) {
    return node.kind == Kind::takeTurns && std::ranges::all_of(node.children, isCaptionedField);
}

QLabel* makeText(const std::string& text, QWidget& parent) {
    auto* label = new QLabel(toQt(text), &parent);
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    return label;
}

Qt::Alignment controlAlignment(const Layout& node) {
    if (growsSideways(node) || growsDownward(node)) {
        return {};
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

Qt::Alignment captionAlignment(const Layout& node) {
    const auto* box = dynamic_cast<const screen::TextBox*>(node.control);
    const bool severalLines = box != nullptr && box->multiLine();
    return Qt::AlignLeft | (severalLines ? Qt::AlignTop : Qt::AlignVCenter);
}

std::string captionText(const Layout& node) {
    return node.captionLabel != nullptr ? node.captionLabel->caption() : node.caption;
}

QString accessibleName(const Layout& node) {
    if (!node.control->accessibleName().empty()) {
        return toQt(node.control->accessibleName());
    }
    const std::string caption = captionText(node);
    if (caption.empty()) {
        return toQt(node.control->toolTip().empty() ? node.control->fullName() : node.control->toolTip());
    }
    return toQt(node.unit.empty() ? caption : caption + " (" + node.unit + ")");
}

}  // namespace

void Turn::update() const {
    const int page = static_cast<int>(toolkit::shownTurn(*node));
    if (stack->currentIndex() != page) {
        stack->setCurrentIndex(page);
    }
}

QLayout* LayoutBuilder::build(const Layout& tree) {
    const Piece piece = make(tree);
    if (piece.layout != nullptr) {
        return piece.layout;
    }
    auto* box = new QVBoxLayout;
    if (piece.widget != nullptr) {
        box->addWidget(piece.widget);
    }
    return box;
}

ControlView& LayoutBuilder::addView(std::unique_ptr<ControlView> view) {
    view->setEnclosingFrames(enclosing_);
    views_.push_back(std::move(view));
    return *views_.back();
}

LayoutBuilder::Piece LayoutBuilder::make(const Layout& node) {
    switch (node.kind) {
        case Kind::column:
            return std::ranges::any_of(node.children, isCaptionedField) ? makeGrid(node, 1) : makeBox(node, false);
        case Kind::row:
            return makeBox(node, true);
        case Kind::grid:
            return makeGrid(node, std::max(node.columns, 1));
        case Kind::group:
            return makeGroup(node);
        case Kind::takeTurns:
            return makeTurns(node);
        case Kind::field:
            return makeField(node);
        default:
            return {};
    }
}

LayoutBuilder::Piece LayoutBuilder::makeBox(const Layout& node, bool horizontal) {
    QBoxLayout* box = new QBoxLayout(horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    const bool tall = std::ranges::any_of(node.children, isTall);
    box->setSpacing(tall ? theme::group : (horizontal ? theme::unit : theme::rowGap));
    for (const Layout& child : node.children) {
        addToBox(*box, child, horizontal, tall);
    }
    const auto grows = [&](const Layout& child) {
        return child.kind == Kind::space || child.stretch > 0 ||
               (horizontal ? growsSideways(child) : growsDownward(child));
    };
    if (std::ranges::none_of(node.children, grows)) {
        box->addStretch(1);
    }
    return {.layout = box};
}

void LayoutBuilder::addToBox(QBoxLayout& box, const Layout& node, bool horizontal, bool alignTop) {
    if (node.kind == Kind::space) {
        box.addStretch(std::max(node.stretch, 1));
        return;
    }
    const bool grows = horizontal ? growsSideways(node) : growsDownward(node);
    const int stretch = node.stretch > 0 ? node.stretch : (grows ? 1 : 0);
    const Piece piece = make(node);
    if (piece.widget != nullptr) {
        const bool top = horizontal && alignTop && !isTall(node);
        box.addWidget(piece.widget, stretch, top ? Qt::AlignTop : Qt::Alignment());
    } else if (piece.layout != nullptr) {
        box.addLayout(piece.layout, stretch);
    }
}

LayoutBuilder::Piece LayoutBuilder::makeGrid(const Layout& node, int columns) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(theme::unit);
    grid->setVerticalSpacing(std::ranges::any_of(node.children, isTall) ? theme::group : theme::rowGap);
    std::vector<bool> grows(static_cast<std::size_t>(columns), false);
    bool anyRowGrows = false;
    int index = 0;
    for (const Layout& child : node.children) {
        const int row = index / columns;
        const int column = index % columns;
        ++index;
        if (child.kind == Kind::space) {
            grid->setRowStretch(row, std::max(child.stretch, 1));
            anyRowGrows = true;
            continue;
        }
        const bool alone = columns == 1;
        addToGrid(*grid, child, row, column * parts, alone ? parts + 1 : parts);
        if (growsSideways(child)) {
            grows[static_cast<std::size_t>(column)] = true;
        }
        if (growsDownward(child)) {
            grid->setRowStretch(row, std::max(child.stretch, 1));
            anyRowGrows = true;
        }
    }
    for (int column = 0; column < columns; ++column) {
        grid->setColumnStretch(column * parts + 1, grows[static_cast<std::size_t>(column)] ? 1 : 0);
    }
    if (std::ranges::find(grows, true) == grows.end()) {
        grid->setColumnStretch(columns * parts, 1);
    }
    if (!anyRowGrows) {
        grid->setRowStretch((index + columns - 1) / columns, 1);
    }
    return {.layout = grid};
}

void LayoutBuilder::addToGrid(QGridLayout& grid, const Layout& node, int row, int column, int span) {
    if (isTurnOfFields(node)) {
        addTurnsToGrid(grid, node, row, column);
        return;
    }
    if (node.kind == Kind::field && !node.captionAbove) {
        addFieldToGrid(grid, node, row, column, span);
        return;
    }
    if (node.kind == Kind::row && !node.children.empty() && isCaptionedField(node.children.front())) {
        addRowToGrid(grid, node, row, column, span);
        return;
    }
    const Piece piece = make(node);
    if (piece.widget != nullptr) {
        grid.addWidget(piece.widget, row, column, 1, span);
    } else if (piece.layout != nullptr) {
        grid.addLayout(piece.layout, row, column, 1, span);
    }
}

LayoutBuilder::FieldParts LayoutBuilder::makeParts(const Layout& node) {
    FieldParts made;
    made.view = &addView(makeView(host_, node, &root_));
    if (node.captionLabel != nullptr) {
        auto label = std::make_unique<LabelView>(host_, *node.captionLabel, &root_);
        made.captionView = label.get();
        made.captionView->setField(*made.view);
        made.caption = &made.captionView->widget();
        addView(std::move(label));
    } else if (!node.caption.empty()) {
        made.caption = makeText(node.caption, root_);
        made.view->addCompanion(*made.caption);
    }
    if (!node.unit.empty()) {
        made.unit = makeText(node.unit, root_);
        made.view->addCompanion(*made.unit);
    }
    if (made.caption != nullptr && node.role == screen::Role::total) {
        made.caption->setFont(theme::titleFont());
    }
    made.view->setAccessibleName(accessibleName(node));
    return made;
}

void LayoutBuilder::addFieldToGrid(QGridLayout& grid, const Layout& node, int row, int column, int span) {
    const FieldParts made = makeParts(node);
    QWidget& control = made.view->widget();
    if (made.caption == nullptr && (speaksForItself(node) || growsDownward(node))) {
        grid.addWidget(&control, row, column, 1, span, controlAlignment(node));
        return;
    }
    if (made.caption != nullptr) {
        made.caption->setContentsMargins(column > 0 ? theme::unit : 0, 0, 0, 0);
        grid.addWidget(made.caption, row, column, captionAlignment(node));
    }
    // A field that grows takes the cells behind it too, so that its edge meets the edge of the group.
    const int reach = made.unit == nullptr && growsSideways(node) ? span - 1 : 1;
    grid.addWidget(&control, row, column + 1, 1, reach, controlAlignment(node));
    if (made.unit != nullptr) {
        grid.addWidget(made.unit, row, column + 2, Qt::AlignLeft | Qt::AlignVCenter);
    }
}

// A row that begins with a captioned field lines its caption up with those above and below.
void LayoutBuilder::addRowToGrid(QGridLayout& grid, const Layout& node, int row, int column, int span) {
    const Layout& first = node.children.front();
    const FieldParts made = makeParts(first);
    made.caption->setContentsMargins(column > 0 ? theme::unit : 0, 0, 0, 0);
    grid.addWidget(made.caption, row, column, captionAlignment(first));
    auto* rest = new QHBoxLayout;
    rest->setSpacing(theme::unit);
    rest->addWidget(&made.view->widget(), growsSideways(first) ? 1 : first.stretch, controlAlignment(first));
    if (made.unit != nullptr) {
        rest->addWidget(made.unit);
    }
    for (std::size_t i = 1; i < node.children.size(); ++i) {
        addToBox(*rest, node.children[i], true, false);
    }
    if (!growsSideways(node)) {
        rest->addStretch(1);
    }
    grid.addLayout(rest, row, column + 1, 1, span - 1);
}

// Fields that take turns keep the lines of their grid: captions share one cell, controls the next.
void LayoutBuilder::addTurnsToGrid(QGridLayout& grid, const Layout& node, int row, int column) {
    std::array<QWidget*, parts> holders{};
    std::array<QStackedLayout*, parts> stacks{};
    for (int i = 0; i < parts; ++i) {
        const auto at = static_cast<std::size_t>(i);
        holders[at] = new QWidget(&root_);
        stacks[at] = new QStackedLayout(holders[at]);
        grid.addWidget(holders[at], row, column + i);
    }
    for (const Layout& child : node.children) {
        const FieldParts made = makeParts(child);
        if (made.captionView != nullptr) {
            made.captionView->setShownByOther();
        }
        made.caption->setContentsMargins(column > 0 ? theme::unit : 0, 0, 0, 0);
        stacks[0]->addWidget(made.caption);
        auto* aligned = new QHBoxLayout;
        aligned->setContentsMargins(0, 0, 0, 0);
        aligned->addWidget(&made.view->widget(), 0, controlAlignment(child));
        addToStack(*stacks[1], {.layout = aligned});
        stacks[2]->addWidget(made.unit != nullptr ? made.unit : new QWidget(&root_));
    }
    for (QStackedLayout* stack : stacks) {
        finishStack(*stack, node);
    }
}

void LayoutBuilder::addToStack(QStackedLayout& stack, const Piece& piece) {
    QWidget* page = piece.widget;
    if (page == nullptr) {
        page = new QWidget(&root_);
        if (piece.layout != nullptr) {
            piece.layout->setContentsMargins(0, 0, 0, 0);
            page->setLayout(piece.layout);
        }
    }
    stack.addWidget(page);
}

void LayoutBuilder::finishStack(QStackedLayout& stack, const Layout& node) {
    stack.addWidget(new QWidget(&root_));
    turns_.push_back({&stack, &node});
}

LayoutBuilder::Piece LayoutBuilder::makeTurns(const Layout& node) {
    auto* holder = new QWidget(&root_);
    auto* stack = new QStackedLayout(holder);
    for (const Layout& child : node.children) {
        const std::size_t before = views_.size();
        const Piece piece = make(child);
        if (child.kind == Kind::group && views_.size() > before) {
            views_[before]->setShownByOther();
        }
        addToStack(*stack, piece);
    }
    finishStack(*stack, node);
    return {.widget = holder};
}

LayoutBuilder::Piece LayoutBuilder::makeGroup(const Layout& node) {
    ControlView& view = addView(makeView(host_, node, &root_));
    auto* frame = static_cast<const screen::Frame*>(node.control);
    enclosing_.push_back(frame);
    if (!node.children.empty()) {
        const Piece piece = make(node.children.front());
        QLayout* inner = piece.layout;
        if (inner == nullptr && piece.widget != nullptr) {
            auto* box = new QVBoxLayout;
            box->addWidget(piece.widget);
            inner = box;
        }
        if (inner != nullptr) {
            inner->setContentsMargins(theme::unit, theme::unit, theme::unit, theme::unit);
            view.widget().setLayout(inner);
        }
    }
    enclosing_.pop_back();
    return {.widget = &view.widget()};
}

LayoutBuilder::Piece LayoutBuilder::makeField(const Layout& node) {
    if (node.control == nullptr) {
        return {};
    }
    const FieldParts made = makeParts(node);
    if (made.caption == nullptr && made.unit == nullptr) {
        return {.widget = &made.view->widget()};
    }
    QBoxLayout* box = new QBoxLayout(node.captionAbove ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    box->setSpacing(node.captionAbove ? 2 : theme::unit);
    if (made.caption != nullptr) {
        box->addWidget(made.caption, 0, captionAlignment(node));
    }
    if (made.unit == nullptr || !node.captionAbove) {
        box->addWidget(&made.view->widget(), 1, controlAlignment(node));
    }
    if (made.unit != nullptr && !node.captionAbove) {
        box->addWidget(made.unit, 0, Qt::AlignVCenter);
    } else if (made.unit != nullptr) {
        auto* line = new QHBoxLayout;
        line->setSpacing(theme::unit);
        line->addWidget(&made.view->widget(), 1);
        line->addWidget(made.unit);
        box->addLayout(line);
    }
    return {.layout = box};
}

}  // namespace velmora::qt
