#include "velmora/adapters/qt/layout_builder.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QStackedLayout>
#include <QVBoxLayout>

#include "velmora/adapters/qt/frame_view.h"
#include "velmora/adapters/qt/label_view.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"
#include "velmora/adapters/qt/view_factory.h"
#include "velmora/platform/toolkit/effective_state.h"
#include "velmora/platform/toolkit/layout_captions.h"

namespace velmora::qt {

namespace {

using screen::Layout;
using toolkit::LayoutPlan;
using toolkit::PlanCell;

using toolkit::window_style::pixels;

Qt::Alignment alignmentOf(toolkit::Alignment alignment) {
    switch (alignment) {
        case toolkit::Alignment::top:
            return Qt::AlignTop;
        case toolkit::Alignment::centre:
            return Qt::AlignVCenter;
        case toolkit::Alignment::leftTop:
            return Qt::AlignLeft | Qt::AlignTop;
        case toolkit::Alignment::leftCentre:
            return Qt::AlignLeft | Qt::AlignVCenter;
        case toolkit::Alignment::fill:
            break;
    }
    return {};
}

QLabel* makeText(const std::string& text, QWidget& parent) {
    auto* label = new QLabel(toQt(text), &parent);
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    return label;
}

bool hasParts(const QGridLayout& grid, int row) {
    for (int column = 0; column < grid.columnCount(); ++column) {
        const QLayoutItem* item = grid.itemAtPosition(row, column);
        if (item != nullptr && !item->isEmpty()) {
            return true;
        }
    }
    return false;
}

}  // namespace

void Turn::update() const {
    const int page = static_cast<int>(toolkit::shownTurn(*node));
    if (stack->currentIndex() != page) {
        stack->setCurrentIndex(page);
    }
    if (node->collapses) {
        // The last page stands for none of them.
        stack->parentWidget()->setVisible(page < stack->count() - 1);
        if (grid != nullptr) {
            grid->setRowStretch(row, hasParts(*grid, row) ? 1 : 0);
        }
    }
}

QLayout* LayoutBuilder::build(const Layout& tree) {
    const Piece piece = make(toolkit::planOf(tree));
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

LayoutBuilder::Piece LayoutBuilder::make(const LayoutPlan& plan) {
    switch (plan.kind) {
        case LayoutPlan::Kind::control:
            return {.widget = &partsOf(*plan.node).view->widget()};
        case LayoutPlan::Kind::caption:
            return makeCaption(plan);
        case LayoutPlan::Kind::unit:
            return {.widget = partsOf(*plan.node).unit};
        case LayoutPlan::Kind::box:
            return makeBox(plan);
        case LayoutPlan::Kind::grid:
            return makeGrid(plan);
        case LayoutPlan::Kind::turns:
            return makeTurns(plan);
        case LayoutPlan::Kind::group:
            return makeGroup(plan);
        case LayoutPlan::Kind::nothing:
        case LayoutPlan::Kind::space:
            break;
    }
    return {};
}

LayoutBuilder::Piece LayoutBuilder::makeCaption(const LayoutPlan& plan) {
    const FieldParts& parts = partsOf(*plan.node);
    if (plan.shownByTurn && parts.captionView != nullptr) {
        parts.captionView->setShownByOther();
    }
    return {.widget = parts.caption};
}

LayoutBuilder::Piece LayoutBuilder::makeBox(const LayoutPlan& plan) {
    auto* box = new QBoxLayout(plan.horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    box->setSpacing(pixels(plan.spacing));
    for (const PlanCell& cell : plan.cells) {
        if (cell.part.kind == LayoutPlan::Kind::space) {
            box->addStretch(cell.stretch);
            continue;
        }
        const Piece piece = make(cell.part);
        if (piece.widget != nullptr) {
            box->addWidget(piece.widget, cell.stretch, alignmentOf(cell.alignment));
        } else if (piece.layout != nullptr) {
            box->addLayout(piece.layout, cell.stretch);
        }
    }
    return {.layout = box};
}

LayoutBuilder::Piece LayoutBuilder::makeGrid(const LayoutPlan& plan) {
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(theme::unit);
    grid->setVerticalSpacing(pixels(plan.spacing));
    for (const PlanCell& cell : plan.cells) {
        const Piece piece = make(cell.part);
        if (cell.part.kind == LayoutPlan::Kind::turns && plan.rowStretch[static_cast<std::size_t>(cell.row)] > 0) {
            turns_.back().grid = grid;
            turns_.back().row = cell.row;
        }
        if (piece.widget != nullptr && cell.part.kind == LayoutPlan::Kind::caption) {
            piece.widget->setContentsMargins(cell.indented ? theme::unit : 0, 0, 0, 0);
        }
        if (piece.widget != nullptr) {
            grid->addWidget(piece.widget, cell.row, cell.column, 1, cell.columnSpan, alignmentOf(cell.alignment));
        } else if (piece.layout != nullptr) {
            grid->addLayout(piece.layout, cell.row, cell.column, 1, cell.columnSpan);
        }
    }
    for (int column = 0; column < static_cast<int>(plan.columnStretch.size()); ++column) {
        grid->setColumnStretch(column, plan.columnStretch[static_cast<std::size_t>(column)]);
    }
    for (int row = 0; row < static_cast<int>(plan.rowStretch.size()); ++row) {
        grid->setRowStretch(row, plan.rowStretch[static_cast<std::size_t>(row)]);
    }
    return {.layout = grid};
}

LayoutBuilder::Piece LayoutBuilder::makeTurns(const LayoutPlan& plan) {
    auto* holder = new QWidget(&root_);
    auto* stack = new QStackedLayout(holder);
    for (const PlanCell& page : plan.cells) {
        const Piece piece = make(page.part);
        if (piece.widget != nullptr && page.part.kind == LayoutPlan::Kind::caption) {
            piece.widget->setContentsMargins(page.indented ? theme::unit : 0, 0, 0, 0);
        }
        stack->addWidget(pageOf(piece));
    }
    stack->addWidget(new QWidget(&root_));
    turns_.push_back({stack, plan.node});
    return {.widget = holder};
}

QWidget* LayoutBuilder::pageOf(const Piece& piece) {
    if (piece.widget != nullptr) {
        return piece.widget;
    }
    auto* page = new QWidget(&root_);
    if (piece.layout != nullptr) {
        piece.layout->setContentsMargins(0, 0, 0, 0);
        page->setLayout(piece.layout);
    }
    return page;
}

LayoutBuilder::Piece LayoutBuilder::makeGroup(const LayoutPlan& plan) {
    ControlView& view = addView(makeView(host_, *plan.node, &root_));
    if (plan.shownByTurn) {
        view.setShownByOther();
    }
    enclosing_.push_back(static_cast<const screen::Frame*>(plan.node->control));
    for (const PlanCell& cell : plan.cells) {
        const Piece piece = make(cell.part);
        if (&cell != &plan.cells.front()) {
            dynamic_cast<FrameView&>(view).setTitlePart(*pageOf(piece));
            continue;
        }
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

LayoutBuilder::FieldParts& LayoutBuilder::partsOf(const Layout& field) {
    const auto [found, isNew] = parts_.try_emplace(&field);
    FieldParts& parts = found->second;
    if (isNew) {
        parts.view = &addView(makeView(host_, field, &root_));
        makeCaptionOf(field, parts);
        if (!field.unit.empty()) {
            parts.unit = makeText(field.unit, root_);
            parts.view->addCompanion(*parts.unit);
        }
        parts.view->setAccessibleName(toQt(toolkit::accessibleNameOf(field)));
    }
    return parts;
}

void LayoutBuilder::makeCaptionOf(const Layout& field, FieldParts& parts) {
    if (field.captionLabel != nullptr) {
        auto label = std::make_unique<LabelView>(host_, *field.captionLabel, &root_);
        parts.captionView = label.get();
        parts.captionView->setField(*parts.view);
        parts.caption = &parts.captionView->widget();
        addView(std::move(label));
    } else if (!field.caption.empty()) {
        parts.caption = makeText(field.caption, root_);
        parts.view->addCompanion(*parts.caption);
    }
    if (parts.caption != nullptr && field.role == screen::Role::total) {
        parts.caption->setFont(theme::titleFont());
    }
}

}  // namespace velmora::qt
