#include "velmora/adapters/qt/toolbar_view.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <algorithm>

#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"
#include "velmora/platform/toolkit/mnemonics.h"

namespace velmora::qt {

namespace {

/// A bar of menus alone is shown as the menu of a window.
bool isMenu(const screen::Toolbar& bar) {
    return !bar.items().empty() && std::ranges::all_of(bar.items(), [](const screen::Toolbar::Item& item) {
        return !item.caption.empty() && !item.menu.empty();
    });
}

}  // namespace

ToolbarView::ToolbarView(ViewHost& host, screen::Toolbar& bar, QWidget* parent)
    : ControlView(host, bar), bar_(bar), strip_(new QWidget(parent)), row_(new QHBoxLayout(strip_)) {
    strip_->setFocusPolicy(Qt::TabFocus);
    row_->setContentsMargins(0, 0, 0, 0);
    row_->setSpacing(theme::unit);
}

void ToolbarView::update(screen::Property property) {
    if (property == screen::Property::items) {
        build();
    } else {
        ControlView::update(property);
    }
}

void ToolbarView::updateAll() {
    ControlView::updateAll();
    build();
}

// The bar itself handles no keys. A key left to its widget would propagate to the window and reach the form a second
// time.
bool ToolbarView::key(const KeyStroke&) {
    return true;
}

void ToolbarView::build() {
    while (QLayoutItem* item = row_->takeAt(0)) {
        if (item->widget() != nullptr) {
            item->widget()->deleteLater();
        }
        delete item;
    }
    int number = 0;
    for (const std::string& caption : toolkit::captionsOf(bar_)) {
        ++number;
        if (!caption.empty()) {
            addButton(number, toQt(caption));
            continue;
        }
        auto* line = new QFrame(strip_);
        line->setFrameShape(QFrame::VLine);
        line->setForegroundRole(QPalette::Mid);
        row_->addWidget(line);
    }
    row_->setSpacing(isMenu(bar_) ? 0 : theme::unit);
    row_->addStretch(1);
}

void ToolbarView::addButton(int number, const QString& caption) {
    const screen::Toolbar::Item& item = bar_.items()[static_cast<std::size_t>(number - 1)];
    auto* button = new QPushButton(caption, strip_);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAutoDefault(false);
    button->setFlat(isMenu(bar_));
    row_->addWidget(button);
    if (item.menu.empty()) {
        connect(button, &QPushButton::clicked, this, [this, number] {
            host().feed([&] {
                if (host().bringFocus(bar_)) {
                    bar_.onButtonClick(number);
                }
            });
        });
        return;
    }
    // Chosen C-243: a button with a menu opens it wherever it is pressed and raises no click of its own.
    auto* menu = new QMenu(button);
    for (const screen::Toolbar::MenuItem& choice : item.menu) {
        connect(menu->addAction(toQt(choice.caption)), &QAction::triggered, this, [this, key = choice.key] {
            host().feed([&] {
                if (host().bringFocus(bar_)) {
                    bar_.onMenuClick(key);
                }
            });
        });
    }
    button->setMenu(menu);
}

}  // namespace velmora::qt
