#include "velmora/adapters/win32/message_dialog.h"

#include <algorithm>

#include "velmora/adapters/win32/message_loop.h"
#include "velmora/adapters/win32/module.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/adapters/win32/window_places.h"
#include "velmora/platform/toolkit/message_choices.h"
#include "velmora/platform/toolkit/mnemonics.h"

namespace velmora::win32 {

namespace {

using screen::Answer;

constexpr int widestText = 460;
constexpr int leastWidth = 240;
constexpr int leastButton = 84;
constexpr int iconSize = 32;

const wchar_t* iconNameOf(screen::Icon icon) {
    switch (icon) {
        case screen::Icon::critical:
            return IDI_ERROR;
        case screen::Icon::question:
            return IDI_QUESTION;
        case screen::Icon::exclamation:
            return IDI_WARNING;
        case screen::Icon::information:
            return IDI_INFORMATION;
        case screen::Icon::none:
            break;
    }
    return nullptr;
}

char32_t upperLetter(WPARAM character) {
    wchar_t letter = static_cast<wchar_t>(character);
    CharUpperBuffW(&letter, 1);
    return letter;
}

}  // namespace

MessageDialog::MessageDialog(const screen::MessageBox& box, HWND owner)
    : theme_(dpiOf(owner)), escape_(toolkit::answerOfEscape(box.buttons)) {
    create(toWide(box.title.empty() ? toolkit::programTitle : box.title), WS_POPUP | WS_CAPTION | WS_SYSMENU,
           WS_EX_DLGMODALFRAME, owner, {});
    if (const wchar_t* name = iconNameOf(box.icon)) {
        icon_ = LoadIconW(nullptr, name);
    }
    text_ = createControl(L"STATIC", withLineEnds(toWide(box.text)), SS_NOPREFIX | WS_VISIBLE, handle());
    useFont(text_, theme_.font());
    int number = 0;
    for (const toolkit::Choice& choice : toolkit::choicesOf(box.buttons)) {
        const HWND button =
            createControl(L"BUTTON", toWide(choice.caption), BS_PUSHBUTTON | BS_NOTIFY | WS_VISIBLE, handle());
        useFont(button, theme_.font());
        buttons_.push_back({button, choice.answer, toolkit::mnemonicOf(choice.caption)});
        if (++number == box.defaultButton) {
            first_ = buttons_.size() - 1;
        }
    }
    SendMessageW(handle(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL | UISF_HIDEFOCUS), 0);
    arrange();
}

void MessageDialog::arrange() {
    const int edge = theme_.scaled(style::group);
    const int gap = theme_.scaled(style::unit);
    const int icon = icon_ != nullptr ? theme_.scaled(iconSize) : 0;
    HDC dc = GetDC(handle());
    const HGDIOBJ before = SelectObject(dc, theme_.font());
    RECT room{0, 0, theme_.scaled(widestText), 0};
    DrawTextW(dc, textOf(text_).c_str(), -1, &room, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(dc, before);
    ReleaseDC(handle(), dc);

    iconBox_ = {.left = edge, .top = edge, .width = icon, .height = icon};
    const int textLeft = edge + (icon > 0 ? icon + edge : 0);
    const int body = std::max<int>(room.bottom, icon);
    const Box text{
        .left = textLeft, .top = edge + (body - room.bottom) / 2, .width = room.right, .height = room.bottom};

    moveTo(text_, text);

    int buttonWidth = theme_.scaled(leastButton);
    for (const Button& button : buttons_) {
        buttonWidth = std::max(buttonWidth, theme_.textWidth(theme_.font(), textOf(button.window)) + 4 * gap);
    }
    const int buttonHeight = theme_.fieldHeight(theme_.font()) + theme_.scaled(3);
    const int count = static_cast<int>(buttons_.size());
    const int row = count * buttonWidth + (count - 1) * gap;
    const int width = std::max({theme_.scaled(leastWidth), textLeft + text.width + edge, row + 2 * edge});
    const int buttonTop = edge + body + edge + gap;
    int left = width - edge - row;
    for (const Button& button : buttons_) {
        moveTo(button.window, {.left = left, .top = buttonTop, .width = buttonWidth, .height = buttonHeight});
        left += buttonWidth + gap;
    }
    placeOverOwner(handle(), width, buttonTop + buttonHeight + edge);
}

Answer MessageDialog::ask() {
    const Modality modality(handle());
    ShowWindow(handle(), SW_SHOW);
    SetForegroundWindow(handle());
    SetFocus(buttons_[first_].window);
    runUntil([this] { return answer_.has_value(); }, [this](const MSG& message) { return filter(message); });
    return answer_.value_or(escape_);
}

bool MessageDialog::filter(const MSG& message) {
    if (message.hwnd != handle() && !IsChild(handle(), message.hwnd)) {
        return false;
    }
    if (message.message == WM_CHAR || message.message == WM_SYSCHAR) {
        return pressLetter(upperLetter(message.wParam));
    }
    if (message.message != WM_KEYDOWN) {
        return false;
    }
    switch (message.wParam) {
        case VK_RETURN:
            take(buttons_[current()].answer);
            return true;
        case VK_ESCAPE:
            take(escape_);
            return true;
        case VK_TAB:
            step(GetKeyState(VK_SHIFT) < 0 ? -1 : 1);
            return true;
        case VK_LEFT:
        case VK_UP:
            step(-1);
            return true;
        case VK_RIGHT:
        case VK_DOWN:
            step(1);
            return true;
        default:
            return false;
    }
}

bool MessageDialog::pressLetter(char32_t letter) {
    const auto chosen = std::ranges::find(buttons_, letter, &Button::letter);
    if (chosen == buttons_.end() || letter == 0) {
        return false;
    }
    take(chosen->answer);
    return true;
}

std::size_t MessageDialog::current() const {
    const auto found = std::ranges::find(buttons_, GetFocus(), &Button::window);
    return found == buttons_.end() ? first_ : static_cast<std::size_t>(found - buttons_.begin());
}

void MessageDialog::step(int by) {
    const int count = static_cast<int>(buttons_.size());
    const int next = (static_cast<int>(current()) + by + count) % count;
    SetFocus(buttons_[static_cast<std::size_t>(next)].window);
}

void MessageDialog::paint() {
    PAINTSTRUCT job;
    HDC target = BeginPaint(handle(), &job);
    {
        const Box area = clientBox(handle());
        Canvas canvas(target, area);
        canvas.fill(area, style::window);
        if (icon_ != nullptr) {
            DrawIconEx(canvas.dc(), iconBox_.left, iconBox_.top, icon_, iconBox_.width, iconBox_.height, 0, nullptr,
                       DI_NORMAL);
        }
    }
    EndPaint(handle(), &job);
}

LRESULT MessageDialog::receive(UINT message, WPARAM word, LPARAM value) {
    switch (message) {
        case WM_PAINT:
            paint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_CTLCOLORSTATIC: {
            HDC dc = reinterpret_cast<HDC>(word);
            SetTextColor(dc, colorOf(style::text));
            SetBkColor(dc, colorOf(style::window));
            return reinterpret_cast<LRESULT>(theme_.brush(style::window));
        }
        case WM_CTLCOLORBTN:
            return reinterpret_cast<LRESULT>(theme_.brush(style::window));
        case WM_COMMAND:
            if (HIWORD(word) == BN_CLICKED) {
                const auto pressed = std::ranges::find(buttons_, reinterpret_cast<HWND>(value), &Button::window);
                if (pressed != buttons_.end()) {
                    take(pressed->answer);
                }
            } else if (HIWORD(word) == BN_SETFOCUS) {
                SendMessageW(reinterpret_cast<HWND>(value), BM_SETSTYLE, BS_DEFPUSHBUTTON | BS_NOTIFY, TRUE);
            } else if (HIWORD(word) == BN_KILLFOCUS) {
                SendMessageW(reinterpret_cast<HWND>(value), BM_SETSTYLE, BS_PUSHBUTTON | BS_NOTIFY, TRUE);
            }
            return 0;
        case WM_CLOSE:
            take(escape_);
            return 0;
        default:
            return NativeWindow::receive(message, word, value);
    }
}

}  // namespace velmora::win32
