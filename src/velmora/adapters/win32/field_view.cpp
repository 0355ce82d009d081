#include "velmora/adapters/win32/field_view.h"

#include <algorithm>

#include "velmora/adapters/win32/text.h"
#include "velmora/platform/toolkit/painted_number.h"
#include "velmora/platform/toolkit/raised_flag.h"

namespace velmora::win32 {

namespace {

constexpr double fieldRadius = 3;
constexpr int fieldPadding = 4;
constexpr int naturalDigits = 24;  ///< of a field without a width of its own
constexpr int leastDigits = 8;
constexpr int naturalDigitsOfMemo = 30;
constexpr int leastDigitsOfMemo = 12;

std::string clipboardText(HWND window) {
    std::string text;
    if (OpenClipboard(window) == 0) {
        return text;
    }
    if (HANDLE held = GetClipboardData(CF_UNICODETEXT); held != nullptr) {
        if (const auto* letters = static_cast<const wchar_t*>(GlobalLock(held)); letters != nullptr) {
            text = fromWide(letters);
            GlobalUnlock(held);
        }
    }
    CloseClipboard();
    return text;
}

}  // namespace

style::Rgb groundColor(const screen::Control& control, screen::Role role, style::Rgb behind) {
    switch (toolkit::groundOf(control, role)) {
        case toolkit::Ground::entered:
            return style::entered;
        case toolkit::Ground::calculated:
            return style::calculated;
        case toolkit::Ground::focus:
            return style::focus;
        case toolkit::Ground::own:
            return rgbOf(control.backColor());
        case toolkit::Ground::none:
            break;
    }
    return behind;
}

FieldBorder borderOf(const screen::Control& control, bool focused) {
    if (toolkit::looksWarned(control)) {
        return {.color = style::warningBorder, .width = 2};
    }
    return focused ? FieldBorder{.color = style::focusBorder, .width = 2}
                   : FieldBorder{.color = style::border, .width = 1};
}

FieldView::FieldView(ViewHost& host, screen::TextBox& box, const screen::Layout& layout)
    : ControlView(host, box),
      box_(box),
      role_(layout.role),
      digits_(layout.width),
      lines_(std::max(layout.lines, 1)),
      stretched_(box.multiLine() && layout.stretch > 0),
      severalLines_(box.multiLine()),
      right_(layout.right),
      decimals_(layout.decimals) {
    const DWORD kind = severalLines_ ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN : ES_AUTOHSCROLL;
    edit_ = createControl(L"EDIT", {}, kind | (right_ ? ES_RIGHT : ES_LEFT), host.page());
    SendMessageW(edit_, EM_LIMITTEXT, 0, 0);
    watch(edit_);
    useTheme();
}

HFONT FieldView::font() const {
    return role_ == screen::Role::total ? theme().totalFont() : theme().font();
}

screen::Role FieldView::role() const {
    return box_.locked() ? screen::Role::calculated : role_;
}

void FieldView::useTheme() {
    useFont(edit_, font());
    SendMessageW(edit_, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
}

toolkit::Needs FieldView::needs() const {
    const int digit = theme().textWidth(font(), L"0");
    const auto widthOf = [&](int digits) { return digit * digits + theme().scaled(severalLines_ ? 16 : 12); };
    const int height =
        severalLines_ ? theme().lineHeight(font()) * lines_ + theme().scaled(10) : theme().fieldHeight(font());
    if (digits_ > 0) {
        return {.width = {widthOf(digits_), widthOf(digits_)}, .height = {height, height}};
    }
    return {.width = {widthOf(severalLines_ ? leastDigitsOfMemo : leastDigits),
                      widthOf(severalLines_ ? naturalDigitsOfMemo : naturalDigits)},
            .height = {height, height}};
}

Box FieldView::inner() const {
    const int side = theme().scaled(fieldPadding);
    const int line = theme().lineHeight(font());
    const int edge = severalLines_ ? theme().scaled(3) : std::max((box().height - line) / 2, 1);
    return {.left = box().left + side,
            .top = box().top + edge,
            .width = std::max(box().width - 2 * side, 0),
            .height = severalLines_ ? std::max(box().height - 2 * edge, 0) : line};
}

void FieldView::placed() {
    moveTo(edit_, inner());
    ShowWindow(edit_, isShown() ? SW_SHOWNA : SW_HIDE);
    showScrollBar();
}

void FieldView::draw(Canvas& canvas) {
    const FieldBorder border = borderOf(box_, host().hasFocus(box_) && looksEnabled());
    canvas.frame(box(), border.color, border.width * theme().scale(), groundColor(box_, role(), surroundings()),
                 fieldRadius * theme().scale());
}

HBRUSH FieldView::colors(HDC dc) {
    const style::Rgb ground = groundColor(box_, role(), surroundings());
    SetTextColor(dc, colorOf(rgbOf(box_.foreColor())));
    SetBkColor(dc, colorOf(ground));
    return theme().brush(ground);
}

void FieldView::updateColors() {
    InvalidateRect(edit_, nullptr, TRUE);
    repaint();
}

void FieldView::update(screen::Property property) {
    switch (property) {
        case screen::Property::text:
            bringText();
            break;
        case screen::Property::locked:
            SendMessageW(edit_, EM_SETREADONLY, box_.locked(), 0);
            updateColors();
            break;
        default:
            ControlView::update(property);
    }
}

void FieldView::updateAll() {
    ControlView::updateAll();
    update(screen::Property::locked);
    bringText();
}

void FieldView::bringText() {
    fromModel_ = true;
    const std::wstring wanted = severalLines_ ? withLineEnds(toWide(box_.text())) : toWide(box_.text());
    if (textOf(edit_) != wanted) {
        DWORD caret = 0;
        SendMessageW(edit_, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
        SetWindowTextW(edit_, wanted.c_str());
        if (GetFocus() == edit_) {
            const auto at = std::min(static_cast<std::size_t>(caret), wanted.size());
            SendMessageW(edit_, EM_SETSEL, at, static_cast<LPARAM>(at));
        }
        showScrollBar();
        if (!IsWindowEnabled(edit_)) {
            InvalidateRect(edit_, nullptr, TRUE);
        }
    }
    if (box_.allSelected()) {
        SendMessageW(edit_, EM_SETSEL, 0, -1);
    }
    fromModel_ = false;
}

void FieldView::edited() {
    if (fromModel_) {
        return;
    }
    const std::string text = fromWide(textOf(edit_));
    host().feed([&] {
        const auto taken = filtered_ || toolkit::isRemoval(box_.text(), text)
                               ? std::optional(text)
                               : toolkit::filterInsertion(box_, {.before = "", .text = text, .after = ""});
        if (taken) {
            box_.setText(*taken);
        }
    });
    bringText();
    showScrollBar();
}

void FieldView::showScrollBar() const {
    if (!severalLines_) {
        return;
    }
    const int shown = std::max(clientBox(edit_).height / std::max(theme().lineHeight(font()), 1), 1);
    const bool wanted = SendMessageW(edit_, EM_GETLINECOUNT, 0, 0) > shown;
    const bool has = (GetWindowLongW(edit_, GWL_STYLE) & WS_VSCROLL) != 0;
    if (wanted != has) {
        ShowScrollBar(edit_, SB_VERT, wanted);
    }
}

bool FieldView::key(const KeyStroke& stroke) {
    const toolkit::RaisedFlag filtered(filtered_);
    toolkit::typeInto(box_, stroke.character, *this);
    return true;
}

void FieldView::insertFiltered(const std::string& text) {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    const std::wstring present = textOf(edit_);
    const std::string before = fromWide(present.substr(0, start));
    const std::string after = fromWide(present.substr(end));
    host().feed([&] {
        const auto taken = toolkit::filterInsertion(box_, {.before = before, .text = text, .after = after});
        if (taken) {
            box_.clearSelection();
            const toolkit::RaisedFlag filtered(filtered_);
            SendMessageW(edit_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(toWide(*taken).c_str()));
        }
    });
}

void FieldView::insert(char32_t character) {
    SendMessageW(edit_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(toWide(character).c_str()));
}

void FieldView::erase() {
    passOn(edit_, WM_CHAR, toolkit::backspace, 1);
}

void FieldView::breakLine() {
    SendMessageW(edit_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"\r\n"));
}

// A mouse press that moves the focus here keeps a selection of the whole text, so that typing replaces the value.
bool FieldView::pressed() {
    return box_.allSelected();
}

std::optional<LRESULT> FieldView::message(HWND, UINT message, WPARAM word, LPARAM) {
    switch (message) {
        case WM_LBUTTONDOWN:
            box_.clearSelection();
            break;
        case WM_LBUTTONDBLCLK:
            box_.clearSelection();
            if (!box_.locked()) {
                host().feed([this] { box_.onDblClick(); });
            }
            break;
        case WM_CHAR:
            if (word == 1) {  // Control and A
                SendMessageW(edit_, EM_SETSEL, 0, -1);
                return 0;
            }
            break;
        case WM_PASTE:
            if (toolkit::takesNumbersOnly(box_) && !box_.locked()) {
                insertFiltered(clipboardText(edit_));
                return 0;
            }
            break;
        case WM_PAINT:
            if (!IsWindowEnabled(edit_) || (GetFocus() != edit_ && paintedText() != textOf(edit_))) {
                paint();
                return 0;
            }
            break;
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS;
        default:
            break;
    }
    return std::nullopt;
}

std::wstring FieldView::paintedText() const {
    const std::wstring present = textOf(edit_);
    if (!right_ || severalLines_ || toolkit::decimalsOf(fromWide(present)) < 0) {
        return present;
    }
    const auto advance = [this](const std::string& part) { return theme().textWidth(font(), toWide(part)); };
    return toWide(toolkit::paintedInField(fromWide(present), decimals_, clientBox(edit_).width, advance));
}

std::wstring FieldView::toolTip() const {
    const std::wstring painted = paintedText();
    return painted.starts_with(L'#') ? textOf(edit_) : ControlView::toolTip();
}

// The system draws disabled fields in a grey of its own, which is hard to read and hides the meaning of the ground, and
// knows neither the decimals of a number nor what becomes of one that has no room.
void FieldView::paint() const {
    PAINTSTRUCT job;
    HDC target = BeginPaint(edit_, &job);
    {
        const Box area = clientBox(edit_);
        Canvas canvas(target, area);
        canvas.fill(area, groundColor(box_, role(), surroundings()));
        const UINT lines = severalLines_ ? DT_WORDBREAK | DT_EDITCONTROL : DT_SINGLELINE | DT_VCENTER;
        canvas.text(area, paintedText(), font(), rgbOf(box_.foreColor()),
                    lines | DT_NOPREFIX | (right_ ? DT_RIGHT : DT_LEFT));
    }
    EndPaint(edit_, &job);
}

void FieldView::command(UINT code) {
    if (code == EN_CHANGE) {
        edited();
    }
}

void FieldView::focusGained() {
    updateColors();
}

void FieldView::focusLeft() {
    box_.clearSelection();
    fromModel_ = true;
    SendMessageW(edit_, EM_SETSEL, 0, 0);
    SendMessageW(edit_, EM_SCROLLCARET, 0, 0);
    fromModel_ = false;
    updateColors();
}

}  // namespace velmora::win32
