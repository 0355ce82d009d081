#include "velmora/adapters/win32/combo_box_view.h"

#include <algorithm>

#include "velmora/adapters/win32/field_view.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/platform/screen/form.h"

namespace velmora::win32 {

namespace {

constexpr double listRadius = 3;
constexpr int chevronRoom = 20;
constexpr int textInset = 5;
constexpr int visibleEntries = 20;
constexpr int naturalListDigits = 24;
constexpr int leastListDigits = 10;
constexpr int besideEntries = 28;

}  // namespace

ComboBoxView::ComboBoxView(ViewHost& host, screen::ComboBox& box, const screen::Layout& layout)
    : ControlView(host, box), box_(box), digits_(layout.width) {
    const bool editable = box.style() == screen::ComboBox::Style::editable;
    list_ = createControl(L"COMBOBOX", {},
                          WS_VSCROLL | CBS_HASSTRINGS | CBS_OWNERDRAWFIXED |
                              (editable ? CBS_DROPDOWN | CBS_AUTOHSCROLL : CBS_DROPDOWNLIST),
                          host.page());
    watch(list_);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    if (editable && GetComboBoxInfo(list_, &parts)) {
        edit_ = parts.hwndItem;
        watch(edit_);
    }
    useTheme();
}

void ComboBoxView::useTheme() {
    useFont(list_, theme().font());
    const int wanted = theme().fieldHeight(theme().font());
    SendMessageW(list_, CB_SETITEMHEIGHT, 0, theme().lineHeight(theme().font()) + theme().scaled(4));
    SendMessageW(list_, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), wanted - 6);
    // The frame that the system adds depends on its version.
    RECT actual{};
    GetWindowRect(list_, &actual);
    const int added = actual.bottom - actual.top - (wanted - 6);
    SendMessageW(list_, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), std::max(wanted - added, 1));
}

toolkit::Needs ComboBoxView::needs() const {
    const int digit = theme().textWidth(theme().font(), L"0");
    const auto widthOf = [&](int digits) { return digit * digits + theme().scaled(30); };
    const int height = theme().fieldHeight(theme().font());
    const toolkit::Need width =
        digits_ > 0 ? toolkit::Need{.least = widthOf(digits_), .natural = widthOf(digits_)}
                    : toolkit::Need{.least = widthOf(leastListDigits), .natural = widthOf(naturalListDigits)};
    return {.width = width, .height = {height, height}};
}

// The height that a list is given is that of its open part.
void ComboBoxView::placed() {
    const int entry = static_cast<int>(SendMessageW(list_, CB_GETITEMHEIGHT, 0, 0));
    const int entries = std::clamp(box_.listCount(), 1, visibleEntries);
    moveTo(list_, {.left = box().left,
                   .top = box().top,
                   .width = box().width,
                   .height = box().height + entries * entry + theme().scaled(4)});
    ShowWindow(list_, isShown() ? SW_SHOWNA : SW_HIDE);
    if (edit_ != nullptr) {
        const int line = theme().lineHeight(theme().font());
        const int side = theme().scaled(textInset);
        moveTo(edit_, {.left = side,
                       .top = std::max((box().height - line) / 2, 1),
                       .width = std::max(box().width - side - theme().scaled(chevronRoom), 1),
                       .height = line});
    }
}

// While a list is being filled, each entry sends a notification; the window is updated once, when filling is done.
void ComboBoxView::update(screen::Property property) {
    switch (property) {
        case screen::Property::items:
            if (!itemsPending_) {
                itemsPending_ = true;
                host().later([this] {
                    if (itemsPending_) {
                        bringItems();
                    }
                });
            }
            break;
        case screen::Property::listIndex:
        case screen::Property::text:
            if (!itemsPending_) {
                bringChoice();
            }
            break;
        case screen::Property::warning:
            ControlView::update(property);
            InvalidateRect(list_, nullptr, TRUE);
            break;
        case screen::Property::enabled:
            ControlView::update(property);
            if (edit_ != nullptr) {
                ShowWindow(edit_, looksEnabled() ? SW_SHOWNA : SW_HIDE);
            }
            break;
        default:
            ControlView::update(property);
    }
}

void ComboBoxView::updateAll() {
    ControlView::updateAll();
    bringItems();
}

void ComboBoxView::bringItems() {
    itemsPending_ = false;
    fromModel_ = true;
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list_, CB_RESETCONTENT, 0, 0);
    int widest = 0;
    for (const std::string& item : box_.items()) {
        const std::wstring text = toWide(item);
        widest = std::max(widest, theme().textWidth(theme().font(), text));
        SendMessageW(list_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    SendMessageW(list_, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest + theme().scaled(besideEntries)), 0);
    fromModel_ = false;
    placed();
    bringChoice();
}

void ComboBoxView::bringChoice() {
    fromModel_ = true;
    if (SendMessageW(list_, CB_GETCURSEL, 0, 0) != box_.listIndex()) {
        SendMessageW(list_, CB_SETCURSEL, static_cast<WPARAM>(box_.listIndex()), 0);
    }
    if (edit_ != nullptr && textOf(edit_) != toWide(box_.text())) {
        SetWindowTextW(edit_, toWide(box_.text()).c_str());
    }
    fromModel_ = false;
    InvalidateRect(list_, nullptr, TRUE);
}

// Which messages the system sends for a choice, and in which order, depends on how it was made. The choice is read once
// all of them have arrived and the list is closed.
void ComboBoxView::command(UINT code) {
    switch (code) {
        case CBN_SELENDOK:
        case CBN_SELCHANGE:
            if ((code == CBN_SELENDOK || !isOpen()) && !fromModel_ && !choicePending_) {
                choicePending_ = true;
                host().later([this] { chosen(); });
            }
            break;
        case CBN_CLOSEUP:
            if (!choicePending_) {
                host().later([this] { bringChoice(); });
            }
            InvalidateRect(list_, nullptr, TRUE);
            break;
        case CBN_DROPDOWN:
            if (itemsPending_) {
                bringItems();
            }
            break;
        case CBN_EDITCHANGE:
            edited();
            break;
        default:
            break;
    }
}

void ComboBoxView::chosen() {
    choicePending_ = false;
    const auto index = static_cast<int>(SendMessageW(list_, CB_GETCURSEL, 0, 0));
    if (index >= 0 && host().acceptsInput()) {
        host().feed([&] { box_.choose(index); });
    }
    bringChoice();
}

void ComboBoxView::edited() {
    if (!fromModel_ && edit_ != nullptr) {
        const std::string text = fromWide(textOf(edit_));
        host().feed([&] { box_.setText(text); });
        bringChoice();
    }
}

bool ComboBoxView::isOpen() const {
    return SendMessageW(list_, CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

void ComboBoxView::open() {
    SendMessageW(list_, CB_SHOWDROPDOWN, TRUE, 0);
}

bool ComboBoxView::ownsKeys() const {
    return isOpen();
}

bool ComboBoxView::key(const KeyStroke& stroke) {
    if (!toolkit::editsText(stroke.character)) {
        // F4 opens the list, as is usual.
        if (stroke.key == screen::Key::f4) {
            open();
        }
        return true;
    }
    // A plain list selects entries by typing itself.
    if (edit_ == nullptr) {
        return false;
    }
    if (stroke.character == toolkit::backspace) {
        passOn(edit_, WM_CHAR, toolkit::backspace, 1);
    } else {
        SendMessageW(edit_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(toWide(stroke.character).c_str()));
    }
    return true;
}

std::optional<LRESULT> ComboBoxView::message(HWND window, UINT message, WPARAM word, LPARAM value) {
    if (window != list_) {
        return std::nullopt;
    }
    switch (message) {
        case WM_PAINT:
            paint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<LRESULT>(colors(reinterpret_cast<HDC>(word)));
        case WM_MOUSEWHEEL:
            // Over a list without the focus the wheel scrolls the window and does not change the value.
            if (!isOpen() && !host().hasFocus(box_)) {
                SendMessageW(host().page(), message, word, value);
                return 0;
            }
            break;
        default:
            break;
    }
    return std::nullopt;
}

style::Rgb ComboBoxView::ground() const {
    return groundColor(box_, screen::Role::entered, surroundings());
}

std::wstring ComboBoxView::itemText(int index) const {
    return toWide(box_.list(index));
}

void ComboBoxView::paint() const {
    PAINTSTRUCT job;
    HDC target = BeginPaint(list_, &job);
    if (edit_ != nullptr && IsWindowVisible(edit_)) {
        RECT inner{};
        GetWindowRect(edit_, &inner);
        MapWindowPoints(nullptr, list_, reinterpret_cast<POINT*>(&inner), 2);
        ExcludeClipRect(target, inner.left, inner.top, inner.right, inner.bottom);
    }
    {
        const Box area = clientBox(list_);
        const FieldBorder border = borderOf(box_, host().hasFocus(box_) && looksEnabled());
        Canvas canvas(target, area);
        canvas.fill(area, surroundings());
        canvas.frame(area, border.color, border.width * theme().scale(), ground(), listRadius * theme().scale());
        const int room = theme().scaled(chevronRoom);
        canvas.chevron({.left = area.width - room, .width = room, .height = area.height},
                       looksEnabled() ? style::caption : style::border, theme().scale());
        if (edit_ == nullptr || !IsWindowVisible(edit_)) {
            const int side = theme().scaled(textInset);
            canvas.text({.left = side, .width = std::max(area.width - side - room, 0), .height = area.height},
                        toWide(box_.text()), theme().font(), rgbOf(box_.foreColor()),
                        DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
        }
    }
    EndPaint(list_, &job);
}

// Entries of the open list. The closed part is drawn as a whole.
void ComboBoxView::drawItem(const DRAWITEMSTRUCT& item) {
    if ((item.itemState & ODS_COMBOBOXEDIT) != 0) {
        InvalidateRect(list_, nullptr, FALSE);
        return;
    }
    const Box area{.left = item.rcItem.left,
                   .top = item.rcItem.top,
                   .width = item.rcItem.right - item.rcItem.left,
                   .height = item.rcItem.bottom - item.rcItem.top};
    const bool selected = (item.itemState & ODS_SELECTED) != 0;
    Canvas canvas(item.hDC, area);
    canvas.fill(area, selected ? style::accent : style::entered);
    if (item.itemID != static_cast<UINT>(-1)) {
        const int side = theme().scaled(textInset);
        canvas.text({.left = area.left + side, .top = area.top, .width = area.width - side, .height = area.height},
                    itemText(static_cast<int>(item.itemID)), theme().font(), selected ? style::entered : style::text,
                    DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
}

HBRUSH ComboBoxView::colors(HDC dc) {
    SetTextColor(dc, colorOf(rgbOf(box_.foreColor())));
    SetBkColor(dc, colorOf(ground()));
    return theme().brush(ground());
}

void ComboBoxView::updateColors() {
    InvalidateRect(list_, nullptr, TRUE);
    if (edit_ != nullptr) {
        InvalidateRect(edit_, nullptr, TRUE);
    }
}

void ComboBoxView::focusLeft() {
    if (edit_ != nullptr) {
        SendMessageW(edit_, EM_SETSEL, 0, 0);
    }
    updateColors();
}

}  // namespace velmora::win32
