#include "velmora/adapters/win32/grid_view.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "velmora/adapters/win32/text.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/toolkit/grid_columns.h"
#include "velmora/platform/toolkit/grid_keys.h"

namespace velmora::win32 {

namespace {

constexpr int tableFrame = 2;
constexpr double tableRadius = 3;
constexpr int besideCell = 2 * style::unit + 4;
constexpr int usualRows = 8;
constexpr int rowsAhead = 40;  ///< read when fewer than this are known below the last shown one

}  // namespace

GridView::GridView(ViewHost& host, screen::DataGrid& grid, const screen::Layout& layout)
    : ControlView(host, grid),
      grid_(grid),
      lines_(layout.lines),
      rows_(grid, [this](const std::exception_ptr& error) { this->host().reportLater(error); }),
      table_(
          host.page(), host.theme(),
          [this](int row, int column) {
              return toWide(rows_.painted(static_cast<std::size_t>(row), static_cast<std::size_t>(column)));
          },
          [this](int row, int column) {
              return rows_.hasButton(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
          }) {
    watch(table_.handle());
    // Asked for when the list was created, before its messages came here.
    useTheme();
}

void GridView::useTheme() {
    table_.useTheme(theme());
    setWidths();
}

int GridView::countHeight() const {
    return theme().lineHeight(theme().font()) + theme().scaled(2);
}

toolkit::Needs GridView::needs() const {
    const int columns = std::accumulate(widths_.begin(), widths_.end(), 0);
    const int row = theme().scaled(style::gridRow);
    const int edges = 2 * theme().scaled(tableFrame) + countHeight();
    return {.width = {theme().scaled(160),
                      std::clamp(columns + theme().scaled(24), theme().scaled(240), theme().scaled(1100))},
            .height = {row * 4 + edges, row * ((lines_ > 1 ? lines_ : usualRows) + 1) + edges}};
}

void GridView::placed() {
    const int edge = theme().scaled(tableFrame);
    moveTo(table_.handle(), {.left = box().left + edge,
                             .top = box().top + edge,
                             .width = std::max(box().width - 2 * edge, 0),
                             .height = std::max(box().height - 2 * edge - countHeight(), 0)});
    ShowWindow(table_.handle(), isShown() ? SW_SHOWNA : SW_HIDE);
    table_.resized();
    scrolled();
}

void GridView::draw(Canvas& canvas) {
    const bool focused = host().hasFocus(grid_) && looksEnabled();
    Box frame = box();
    frame.height -= countHeight();
    canvas.frame(frame, focused ? style::focusBorder : style::border, (focused ? 2 : 1) * theme().scale(),
                 style::entered, tableRadius * theme().scale());
    canvas.text({.left = box().left, .top = frame.bottom(), .width = box().width, .height = countHeight()}, countText(),
                theme().font(), style::caption, DT_SINGLELINE | DT_BOTTOM | DT_RIGHT | DT_NOPREFIX);
}

std::wstring GridView::countText() const {
    const int current = table_.current();
    const auto row = current < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(current));
    return toWide(toolkit::countText(row, rows_.known()));
}

void GridView::update(screen::Property property) {
    switch (property) {
        case screen::Property::columns:
        case screen::Property::rows:
            reload();
            break;
        case screen::Property::currentRow:
            bringRow();
            break;
        default:
            ControlView::update(property);
    }
}

void GridView::updateAll() {
    ControlView::updateAll();
    reload();
}

void GridView::reload() {
    const int top = table_.topRow();
    rows_.restart();
    table_.setRowCount(0);
    std::vector<GridTable::Column> columns;
    for (std::size_t i = 0; i < rows_.columnCount(); ++i) {
        const screen::GridColumn& shape = rows_.shape(i);
        columns.push_back({.caption = toWide(shape.caption), .right = shape.right});
    }
    table_.setColumns(std::move(columns));
    column_ = std::clamp(column_, 0, std::max(static_cast<int>(rows_.columnCount()) - 1, 0));
    grow(toolkit::GridRows::chunk);
    setWidths();
    if (top > 0) {
        ensureRow(static_cast<std::size_t>(top + rowsAhead));
        table_.scrollTo(std::min(top, table_.rowCount() - 1));
    }
    bringRow();
    host().arrangeLater();
}

void GridView::setWidths() {
    const auto advance = [&](const std::string& text) { return theme().textWidth(theme().font(), toWide(text)); };
    toolkit::ColumnWidths widths = toolkit::columnWidths(rows_, advance, theme().scaled(besideCell));
    for (std::size_t i = 0; i < widths.pixels.size(); ++i) {
        widths.pixels[i] = std::max(widths.pixels[i], theme().scaled(rows_.shape(i).width / toolkit::twipsPerPixel));
    }
    widths_ = widths.pixels;
    table_.setWidths(std::move(widths));
}

void GridView::grow(std::size_t rows) {
    const toolkit::GridRows::Known wanted = rows_.reach(rows);
    const bool more = wanted.rows != rows_.known().rows;
    rows_.take(wanted);
    if (more) {
        table_.setRowCount(static_cast<int>(wanted.rows));
    }
    repaint();
}

void GridView::ensureRow(std::size_t row) {
    if (row >= rows_.known().rows) {
        grow((row / toolkit::GridRows::chunk + 1) * toolkit::GridRows::chunk);
    }
}

void GridView::scrolled() {
    const int wanted = table_.topRow() + table_.rowsPerPage() + 1;
    if (!rows_.known().complete && wanted >= static_cast<int>(rows_.known().rows)) {
        grow(rows_.known().rows + toolkit::GridRows::chunk);
    }
}

void GridView::bringRow() {
    const auto position = grid_.recordset().isOpen() ? grid_.recordset().position() : std::nullopt;
    if (position) {
        ensureRow(*position);
    }
    const bool known = position && *position < rows_.known().rows;
    table_.setCurrent(known ? static_cast<int>(*position) : -1);
    repaint();
}

// Identifies the row under the mouse by all its shown values.
std::wstring GridView::aimOf(POINT point) const {
    const int row = table_.cellAt(point).row;
    std::wstring cells;
    for (std::size_t column = 0; row >= 0 && column < rows_.columnCount(); ++column) {
        cells += toWide(rows_.text(static_cast<std::size_t>(row), column)) + L'\t';
    }
    return cells;
}

std::optional<LRESULT> GridView::message(HWND, UINT message, WPARAM word, LPARAM value) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            press(pointOf(value));
            if (message == WM_LBUTTONDBLCLK) {
                pressTwice();
            } else {
                buttonDone_ = false;
            }
            return 0;
        case WM_RBUTTONDOWN:
        case WM_RBUTTONUP:
            return 0;
        case WM_LBUTTONUP:
            release(pointOf(value));
            return 0;
        case WM_MOUSEMOVE:
            hover(pointOf(value));
            return std::nullopt;
        case WM_VSCROLL:
        case WM_MOUSEWHEEL: {
            const LRESULT result = passOn(table_.handle(), message, word, value);
            scrolled();
            return result;
        }
        case WM_NOTIFY: {
            const auto& what = *reinterpret_cast<const NMHDR*>(value);
            if ((what.code == HDN_ITEMCHANGEDW || what.code == HDN_ITEMCHANGEDA) && !table_.isDistributing()) {
                table_.keepWidths();
            }
            return std::nullopt;
        }
        default:
            return std::nullopt;
    }
}

LRESULT GridView::notified(const NMHDR& what) {
    if (what.code == LVN_GETDISPINFOW) {
        // The system hands out the head of a larger structure.
        table_.tell(*reinterpret_cast<NMLVDISPINFOW*>(const_cast<NMHDR*>(&what)));
    }
    return 0;
}

void GridView::press(POINT point) {
    pressed_ = table_.cellAt(point);
    if (pressed_.row < 0) {
        return;
    }
    column_ = pressed_.column;
    if (table_.current() != pressed_.row) {
        host().feed([&] { grid_.moveToRow(static_cast<std::size_t>(pressed_.row)); });
    }
    bringRow();
    table_.setMarkedColumn(column_);
}

// Where it meets a button, the first press has already done what the button does, unless another row stood there then:
// in that case the release of the second one does it.
void GridView::pressTwice() {
    const bool meetsButton = pressed_.row >= 0 && rows_.hasButton(static_cast<std::size_t>(pressed_.row),
                                                                  static_cast<std::size_t>(pressed_.column));
    if (meetsButton && !buttonDone_) {
        return;
    }
    const GridTable::Cell cell = std::exchange(pressed_, {});
    if (cell.row < 0 || !host().acceptsInput() || meetsButton) {
        return;
    }
    host().feed([&] {
        if (grid_.form().activeControl() == &grid_) {
            toolkit::pressRow(grid_);
        }
    });
}

void GridView::release(POINT point) {
    const GridTable::Cell cell = table_.cellAt(point);
    const bool same = cell == pressed_ && cell.row >= 0 && cell.row == table_.current();
    pressed_ = {};
    if (!same || !host().acceptsInput() ||
        !rows_.hasButton(static_cast<std::size_t>(cell.row), static_cast<std::size_t>(cell.column))) {
        return;
    }
    buttonDone_ = true;
    host().feed([&] {
        if (grid_.form().activeControl() == &grid_) {
            toolkit::pressCell(grid_, rows_.gridColumn(static_cast<std::size_t>(cell.column)));
        }
    });
}

// A text that its column cuts off is told whole beside the mouse.
void GridView::hover(POINT point) {
    const GridTable::Cell cell = table_.cellAt(point);
    if (cell == hovered_) {
        return;
    }
    hovered_ = cell;
    host().forgetToolTip();
}

std::wstring GridView::toolTip() const {
    return table_.isCut(hovered_) ? table_.cellText(hovered_) : ControlView::toolTip();
}

bool GridView::key(const KeyStroke& stroke) {
    const bool hasCell = table_.current() >= 0 && column_ < static_cast<int>(rows_.columnCount());
    toolkit::keyInGrid(grid_, stroke,
                       hasCell ? std::optional(rows_.gridColumn(static_cast<std::size_t>(column_))) : std::nullopt);
    return true;
}

bool GridView::nativeKey(WPARAM virtualKey) {
    if (const auto move = rowMoveOf(virtualKey)) {
        host().feed([&] { toolkit::moveRow(grid_, *move, page(*move)); });
        return true;
    }
    return (virtualKey == VK_LEFT && stepColumn(-1)) || (virtualKey == VK_RIGHT && stepColumn(1));
}

bool GridView::stepColumn(int by) {
    column_ = std::clamp(column_ + by, 0, std::max(static_cast<int>(rows_.columnCount()) - 1, 0));
    table_.setMarkedColumn(column_);
    return true;
}

// Downward a page ends with the row cut by the lower edge.
std::size_t GridView::page(toolkit::RowMove move) const {
    const int cut = move == toolkit::RowMove::pageDown ? table_.rowHeight() - 1 : 0;
    return static_cast<std::size_t>(std::max((table_.roomHeight() + cut) / table_.rowHeight(), 1));
}

void GridView::focusGained() {
    table_.setMarkedColumn(column_);
    repaint();
}

void GridView::focusLeft() {
    table_.setMarkedColumn(-1);
    repaint();
}

}  // namespace velmora::win32
