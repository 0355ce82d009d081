#include "velmora/adapters/win32/search_dialog.h"

#include <algorithm>

#include "velmora/adapters/win32/accessible_name.h"
#include "velmora/adapters/win32/captions.h"
#include "velmora/adapters/win32/key_strokes.h"
#include "velmora/adapters/win32/message_loop.h"
#include "velmora/adapters/win32/module.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/adapters/win32/window_places.h"
#include "velmora/platform/toolkit/grid_columns.h"
#include "velmora/platform/toolkit/grid_rows.h"

namespace velmora::win32 {

namespace {

constexpr int searchRowsShown = 16;
constexpr int leastSearchColumn = 90;
constexpr int searchButton = 84;
constexpr int searchPadding = 4;
constexpr wchar_t searchCaption[] = L"&Buscar";

}  // namespace

SearchDialog::SearchDialog(const screen::SearchWindow& window, HWND owner) : theme_(dpiOf(owner)), rows_(window) {
    create(toWide(window.title), WS_OVERLAPPEDWINDOW & ~static_cast<DWORD>(WS_MINIMIZEBOX), 0, owner, {});
    build(window);
    search();
}

SearchDialog::~SearchDialog() = default;

void SearchDialog::build(const screen::SearchWindow& window) {
    box_ = createControl(L"EDIT", {}, ES_AUTOHSCROLL | WS_VISIBLE, handle());
    accept_ = createControl(L"BUTTON", L"&Aceptar", BS_DEFPUSHBUTTON | WS_VISIBLE, handle());
    cancel_ = createControl(L"BUTTON", L"&Cancelar", BS_PUSHBUTTON | WS_VISIBLE, handle());
    for (const HWND control : {box_, accept_, cancel_}) {
        useFont(control, theme_.font());
    }
    nameForAssistance(box_, toWide("Buscar en " + window.secondCaption));
    table_ = std::make_unique<GridTable>(handle(), theme_, [this](int row, int column) {
        return toWide(rows_.text(static_cast<std::size_t>(row), static_cast<std::size_t>(column)));
    });
    ShowWindow(table_->handle(), SW_SHOWNA);
    tableMessages_ = std::make_unique<Interception>(table_->handle(), [this](UINT message, WPARAM word, LPARAM value) {
        return listMessage(message, word, value);
    });
    table_->setColumns({{.caption = toWide(window.firstCaption)}, {.caption = toWide(window.secondCaption)}});
    const auto width = [&](int twips) {
        return theme_.scaled(std::max(twips / toolkit::twipsPerPixel, leastSearchColumn));
    };
    const int first = width(window.firstWidth);
    const int second = width(window.secondWidth);
    table_->setWidths({.pixels = {first, second}, .stretching = 1});
    SendMessageW(handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
    const int edge = theme_.scaled(style::group);
    placeOverOwner(
        handle(), std::clamp(first + second + 2 * edge + theme_.scaled(40), theme_.scaled(360), theme_.scaled(1100)),
        theme_.scaled(style::gridRow) * (searchRowsShown + 1) + 4 * edge + 2 * theme_.fieldHeight(theme_.font()));
    arrange();
}

void SearchDialog::arrange() {
    if (table_ == nullptr) {
        return;
    }
    const Box room = clientBox(handle());
    const int edge = theme_.scaled(style::group);
    const int gap = theme_.scaled(style::unit);
    const int field = theme_.fieldHeight(theme_.font());
    const int caption = theme_.textWidth(theme_.font(), withoutMarks(searchCaption));
    captionBox_ = {.left = edge, .top = edge, .width = caption, .height = field};
    boxFrame_ = {.left = captionBox_.right() + gap,
                 .top = edge,
                 .width = std::max(room.width - captionBox_.right() - gap - edge, 0),
                 .height = field};
    const int line = theme_.lineHeight(theme_.font());
    const int side = theme_.scaled(searchPadding);
    moveTo(box_, {.left = boxFrame_.left + side,
                  .top = boxFrame_.top + (field - line) / 2,
                  .width = std::max(boxFrame_.width - 2 * side, 0),
                  .height = line});
    const int buttonHeight = field + theme_.scaled(3);
    const int buttonWidth = theme_.scaled(searchButton);
    const int buttonTop = room.height - edge - buttonHeight;
    moveTo(cancel_,
           {.left = room.width - edge - buttonWidth, .top = buttonTop, .width = buttonWidth, .height = buttonHeight});
    moveTo(accept_, {.left = room.width - edge - gap - 2 * buttonWidth,
                     .top = buttonTop,
                     .width = buttonWidth,
                     .height = buttonHeight});
    countBox_ = {.left = edge,
                 .top = buttonTop,
                 .width = std::max(room.width - 2 * edge - 2 * buttonWidth, 0),
                 .height = buttonHeight};
    tableFrame_ = {.left = edge,
                   .top = boxFrame_.bottom() + gap,
                   .width = std::max(room.width - 2 * edge, 0),
                   .height = std::max(buttonTop - boxFrame_.bottom() - 2 * gap, 0)};
    moveTo(table_->handle(), {.left = tableFrame_.left + 1,
                              .top = tableFrame_.top + 1,
                              .width = std::max(tableFrame_.width - 2, 0),
                              .height = std::max(tableFrame_.height - 2, 0)});
    table_->resized();
    scrolled();
    InvalidateRect(handle(), nullptr, FALSE);
}

std::optional<std::size_t> SearchDialog::choose() {
    const Modality modality(handle());
    ShowWindow(handle(), SW_SHOW);
    SetForegroundWindow(handle());
    SetFocus(box_);
    runUntil([this] { return closed_; }, [this](const MSG& message) { return filterMessage(message); });
    return chosen_;
}

void SearchDialog::search() {
    rows_.restart(fromWide(textOf(box_)));
    table_->setRowCount(0);
    readOn();
    table_->setCurrent(rows_.count() > 0 ? 0 : -1);
    if (rows_.failure()) {
        close();
    }
}

void SearchDialog::readOn() {
    rows_.take(rows_.readOn());
    table_->setRowCount(static_cast<int>(rows_.count()));
    InvalidateRect(handle(), nullptr, FALSE);
}

void SearchDialog::scrolled() {
    if (!rows_.isComplete() && table_->topRow() + table_->rowsPerPage() + 1 >= static_cast<int>(rows_.count())) {
        readOn();
    }
}

void SearchDialog::take() {
    if (table_->current() >= 0) {
        chosen_ = rows_.sourceRow(static_cast<std::size_t>(table_->current()));
        close();
    }
}

void SearchDialog::step(int by) {
    if (rows_.count() == 0) {
        return;
    }
    const int wanted = std::max(table_->current() + by, 0);
    while (wanted >= static_cast<int>(rows_.count()) && !rows_.isComplete()) {
        readOn();
    }
    table_->setCurrent(std::min(wanted, static_cast<int>(rows_.count()) - 1));
}

bool SearchDialog::filterMessage(const MSG& message) {
    if (message.hwnd != handle() && !IsChild(handle(), message.hwnd)) {
        return false;
    }
    if (message.message == WM_SYSCHAR) {
        switch (message.wParam) {
            case L'a':
                take();
                return true;
            case L'c':
                close();
                return true;
            case L'b':
                SetFocus(box_);
                return true;
            default:
                return false;
        }
    }
    if (message.message == WM_CHAR) {
        return message.wParam == VK_RETURN || message.wParam == VK_ESCAPE || message.wParam == VK_TAB;
    }
    if (message.message != WM_KEYDOWN) {
        return false;
    }
    switch (message.wParam) {
        case VK_RETURN:
            GetFocus() == cancel_ ? close() : take();
            return true;
        case VK_ESCAPE:
            close();
            return true;
        case VK_UP:
            step(-1);
            return true;
        case VK_DOWN:
            step(1);
            return true;
        case VK_PRIOR:
            step(-table_->rowsPerPage());
            return true;
        case VK_NEXT:
            step(table_->rowsPerPage());
            return true;
        case VK_TAB: {
            const HWND stops[] = {box_, accept_, cancel_};
            const auto* const now = std::ranges::find(stops, GetFocus());
            const auto at = now == std::end(stops) ? 0 : static_cast<int>(now - stops);
            SetFocus(stops[(at + (GetKeyState(VK_SHIFT) < 0 ? 2 : 1)) % 3]);
            return true;
        }
        default:
            return false;
    }
}

std::optional<LRESULT> SearchDialog::listMessage(UINT message, WPARAM word, LPARAM value) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: {
            const GridTable::Cell cell = table_->cellAt(pointOf(value));
            if (cell.row >= 0) {
                table_->setCurrent(cell.row);
                if (message == WM_LBUTTONDBLCLK) {
                    take();
                }
            }
            return 0;
        }
        case WM_VSCROLL:
        case WM_MOUSEWHEEL: {
            const LRESULT result = tableMessages_->passOn(message, word, value);
            scrolled();
            return result;
        }
        default:
            return std::nullopt;
    }
}

void SearchDialog::paint() {
    PAINTSTRUCT job;
    HDC target = BeginPaint(handle(), &job);
    {
        const Box area = clientBox(handle());
        Canvas canvas(target, area);
        canvas.fill(area, style::window);
        canvas.text(captionBox_, searchCaption, theme_.font(), style::caption, DT_SINGLELINE | DT_VCENTER);
        canvas.frame(boxFrame_, style::focusBorder, 2 * theme_.scale(), style::focus, 3 * theme_.scale());
        canvas.frame(tableFrame_, style::border, theme_.scale(), style::entered, 1);
        const std::string count =
            toolkit::countText(std::nullopt, {.rows = rows_.count(), .complete = rows_.isComplete()});
        canvas.text(countBox_, toWide(count), theme_.font(), style::caption, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
    EndPaint(handle(), &job);
}

LRESULT SearchDialog::receive(UINT message, WPARAM word, LPARAM value) {
    switch (message) {
        case WM_PAINT:
            paint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_SIZE:
            arrange();
            return 0;
        case WM_MEASUREITEM:
            reinterpret_cast<MEASUREITEMSTRUCT*>(value)->itemHeight = static_cast<UINT>(theme_.scaled(style::gridRow));
            return TRUE;
        case WM_DRAWITEM:
            if (table_ != nullptr) {
                table_->drawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(value));
            }
            return TRUE;
        case WM_NOTIFY:
            if (table_ != nullptr && reinterpret_cast<const NMHDR*>(value)->code == LVN_GETDISPINFOW) {
                table_->tell(*reinterpret_cast<NMLVDISPINFOW*>(value));
            }
            return 0;
        case WM_CTLCOLOREDIT: {
            HDC dc = reinterpret_cast<HDC>(word);
            SetTextColor(dc, colorOf(style::text));
            SetBkColor(dc, colorOf(style::focus));
            return reinterpret_cast<LRESULT>(theme_.brush(style::focus));
        }
        case WM_CTLCOLORBTN:
            return reinterpret_cast<LRESULT>(theme_.brush(style::window));
        case WM_COMMAND:
            if (reinterpret_cast<HWND>(value) == box_ && HIWORD(word) == EN_CHANGE && table_ != nullptr) {
                search();
            } else if (reinterpret_cast<HWND>(value) == accept_ && HIWORD(word) == BN_CLICKED) {
                take();
            } else if (reinterpret_cast<HWND>(value) == cancel_ && HIWORD(word) == BN_CLICKED) {
                close();
            }
            return 0;
        case WM_CLOSE:
            close();
            return 0;
        default:
            return NativeWindow::receive(message, word, value);
    }
}

}  // namespace velmora::win32
