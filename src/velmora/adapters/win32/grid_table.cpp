#include "velmora/adapters/win32/grid_table.h"

#include <algorithm>

#include "velmora/adapters/win32/text.h"
#include "velmora/platform/toolkit/painted_number.h"

namespace velmora::win32 {

namespace {

constexpr int markWidth = 3;
constexpr double cellButtonRadius = 2;

Box boxOf(const RECT& rect) {
    return {.left = rect.left, .top = rect.top, .width = rect.right - rect.left, .height = rect.bottom - rect.top};
}

}  // namespace

GridTable::GridTable(HWND parent, const Theme& theme, CellText text, CellButton button)
    : theme_(&theme),
      text_(std::move(text)),
      button_(std::move(button)),
      list_(createControl(
          WC_LISTVIEWW, {},
          LVS_REPORT | LVS_OWNERDATA | LVS_OWNERDRAWFIXED | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
          parent)) {
    SendMessageW(list_, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_DOUBLEBUFFER, LVS_EX_DOUBLEBUFFER);
    headerMessages_ = std::make_unique<Interception>(
        header(), [this](UINT message, WPARAM word, LPARAM value) { return headerMessage(message, word, value); });
    SendMessageW(list_, LVM_SETBKCOLOR, 0, static_cast<LPARAM>(colorOf(style::entered)));
    useTheme(theme);
}

// The header is as high as a row.
std::optional<LRESULT> GridTable::headerMessage(UINT message, WPARAM word, LPARAM value) const {
    if (message != HDM_LAYOUT) {
        return std::nullopt;
    }
    const LRESULT result = headerMessages_->passOn(message, word, value);
    const auto& layout = *reinterpret_cast<const HDLAYOUT*>(value);
    layout.prc->top += rowHeight() - layout.pwpos->cy;
    layout.pwpos->cy = rowHeight();
    return result;
}

HWND GridTable::header() const {
    return reinterpret_cast<HWND>(SendMessageW(list_, LVM_GETHEADER, 0, 0));
}

void GridTable::useTheme(const Theme& theme) {
    theme_ = &theme;
    // The height of the rows is asked for again when the font is set.
    useFont(list_, theme.font());
    useFont(header(), theme.font());
}

void GridTable::setColumns(std::vector<Column> columns) {
    distributing_ = true;
    while (SendMessageW(list_, LVM_DELETECOLUMN, 0, 0)) {
    }
    columns_ = std::move(columns);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        LVCOLUMNW shape{};
        shape.mask = LVCF_FMT | LVCF_TEXT | LVCF_WIDTH;
        shape.fmt = columns_[i].right ? LVCFMT_RIGHT : LVCFMT_LEFT;
        shape.cx = 10;
        shape.pszText = columns_[i].caption.data();
        SendMessageW(list_, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&shape));
        // A list aligns its first column to the left, whatever it is told; its header does not.
        HDITEMW title{};
        title.mask = HDI_FORMAT;
        title.fmt = HDF_STRING | (columns_[i].right ? HDF_RIGHT : HDF_LEFT);
        SendMessageW(header(), HDM_SETITEMW, i, reinterpret_cast<LPARAM>(&title));
    }
    distributing_ = false;
}

void GridTable::setWidths(toolkit::ColumnWidths widths) {
    widths_ = std::move(widths);
    resizedByUser_ = false;
    distribute();
}

void GridTable::resized() {
    if (!resizedByUser_) {
        distribute();
    }
}

void GridTable::distribute() {
    distributing_ = true;
    RECT outer{};
    GetWindowRect(list_, &outer);
    const bool scrolls = rowCount() > rowsPerPage();
    const int bar = scrolls ? GetSystemMetrics(SM_CXVSCROLL) : 0;
    const std::vector<int> sizes = toolkit::fitted(widths_, static_cast<int>(outer.right - outer.left) - bar);
    for (int i = 0; i < static_cast<int>(sizes.size()); ++i) {
        const int width = sizes[static_cast<std::size_t>(i)];
        if (columnWidth(i) != width) {
            SendMessageW(list_, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(i), width);
        }
    }
    distributing_ = false;
}

int GridTable::columnWidth(int column) const {
    return static_cast<int>(SendMessageW(list_, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
}

void GridTable::setRowCount(int rows) {
    const bool same = rows == rowCount();
    SendMessageW(list_, LVM_SETITEMCOUNT, static_cast<WPARAM>(rows), LVSICF_NOSCROLL);
    if (!same && !resizedByUser_) {
        distribute();
    }
    InvalidateRect(list_, nullptr, TRUE);
}

int GridTable::rowCount() const {
    return static_cast<int>(SendMessageW(list_, LVM_GETITEMCOUNT, 0, 0));
}

void GridTable::setCurrent(int row) {
    current_ = row;
    LVITEMW state{};
    state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&state));
    if (row >= 0) {
        state.state = LVIS_SELECTED | LVIS_FOCUSED;
        SendMessageW(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&state));
        SendMessageW(list_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    }
    InvalidateRect(list_, nullptr, FALSE);
}

void GridTable::setMarkedColumn(int column) {
    if (marked_ != column) {
        marked_ = column;
        InvalidateRect(list_, nullptr, FALSE);
    }
}

GridTable::Cell GridTable::cellAt(POINT point) const {
    LVHITTESTINFO hit{};
    hit.pt = point;
    if (SendMessageW(list_, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)) < 0) {
        return {};
    }
    return {.row = hit.iItem, .column = hit.iSubItem};
}

Box GridTable::placeOf(const Cell& cell) {
    SendMessageW(list_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(cell.row), FALSE);
    RECT place{};
    place.left = LVIR_BOUNDS;
    SendMessageW(list_, LVM_GETITEMRECT, static_cast<WPARAM>(cell.row), reinterpret_cast<LPARAM>(&place));
    Box box = boxOf(place);
    for (int i = 0; i < cell.column; ++i) {
        box.left += columnWidth(i);
    }
    box.width = columnWidth(cell.column);
    return box;
}

int GridTable::topRow() const {
    return static_cast<int>(SendMessageW(list_, LVM_GETTOPINDEX, 0, 0));
}

void GridTable::scrollTo(int row) {
    SendMessageW(list_, LVM_SCROLL, 0, static_cast<LPARAM>((row - topRow()) * rowHeight()));
}

int GridTable::roomHeight() const {
    RECT title{};
    GetWindowRect(header(), &title);
    return std::max(clientBox(list_).height - static_cast<int>(title.bottom - title.top), 0);
}

int GridTable::rowsPerPage() const {
    return std::max(roomHeight() / std::max(rowHeight(), 1), 1);
}

bool GridTable::isCut(const Cell& cell) const {
    return cell.row >= 0 && cell.column >= 0 &&
           theme_->textWidth(theme_->font(), text_(cell.row, cell.column)) >
               columnWidth(cell.column) - 2 * theme_->scaled(style::unit);
}

void GridTable::drawItem(const DRAWITEMSTRUCT& item) const {
    const Box row = boxOf(item.rcItem);
    const int number = static_cast<int>(item.itemID);
    const bool isCurrent = number == current_;
    Canvas canvas(item.hDC, row);
    canvas.fill(row, isCurrent ? style::currentRow : style::entered);
    canvas.fill({.left = row.left, .top = row.bottom() - 1, .width = row.width, .height = 1}, style::rule);
    Box cell = row;
    for (int i = 0; i < static_cast<int>(columns_.size()); ++i) {
        cell.width = columnWidth(i);
        if (isCurrent && i == 0) {
            canvas.fill({.left = cell.left, .top = cell.top, .width = theme_->scaled(markWidth), .height = cell.height},
                        style::accent);
        }
        drawCell(canvas, cell, {.row = number, .column = i});
        if (isCurrent && i == marked_) {
            Box mark = cell;
            mark.height -= 1;
            canvas.frame(mark, style::focusBorder, theme_->scale(), std::nullopt, 1);
        }
        cell.left += cell.width;
    }
}

void GridTable::drawCell(Canvas& canvas, const Box& box, const Cell& cell) const {
    const Column& shape = columns_[static_cast<std::size_t>(cell.column)];
    const std::wstring text = text_(cell.row, cell.column);
    if (button_ && button_(cell.row, cell.column)) {
        const int side = theme_->scaled(3);
        const Box face{.left = box.left + side,
                       .top = box.top + side - 1,
                       .width = std::max(box.width - 2 * side, 1),
                       .height = std::max(box.height - 2 * side + 1, 1)};
        canvas.frame(face, style::border, theme_->scale(), style::window, cellButtonRadius * theme_->scale());
        canvas.text(face, text, theme_->font(), style::text,
                    DT_SINGLELINE | DT_VCENTER | DT_CENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
        return;
    }
    const int side = theme_->scaled(style::unit);
    const Box room{
        .left = box.left + side, .top = box.top, .width = std::max(box.width - 2 * side, 0), .height = box.height};
    canvas.text(room, fitted(text, room.width), theme_->font(), style::text,
                DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | (shape.right ? DT_RIGHT : DT_LEFT));
}

/// A number that has no room is not cut.
std::wstring GridTable::fitted(const std::wstring& text, int room) const {
    const std::string plain = fromWide(text);
    if (toolkit::decimalsOf(plain) < 0) {
        return text;
    }
    return toWide(toolkit::fittedNumber(
        plain, room, [this](const std::string& part) { return theme_->textWidth(theme_->font(), toWide(part)); }));
}

void GridTable::tell(NMLVDISPINFOW& wanted) const {
    if ((wanted.item.mask & LVIF_TEXT) != 0 && wanted.item.cchTextMax > 0) {
        const std::wstring text = text_(wanted.item.iItem, wanted.item.iSubItem);
        lstrcpynW(wanted.item.pszText, text.c_str(), wanted.item.cchTextMax);
    }
}

}  // namespace velmora::win32
