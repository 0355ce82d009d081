#include "velmora/adapters/win32/toolbar_view.h"

#include <algorithm>

#include "velmora/adapters/win32/captions.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/platform/toolkit/mnemonics.h"

namespace velmora::win32 {

namespace {
constexpr int leastItemWidth = 80;
constexpr int besideItem = 10;
constexpr int separatorRoom = 9;
constexpr wchar_t menuMark[] = L"  ▾";
}  // namespace

class ToolbarView::Strip : public NativeWindow {
  public:
    explicit Strip(ToolbarView& view) : view_(view) {
        create({}, WS_CHILD | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, view.host().page(), {});
    }

  protected:
    LRESULT receive(UINT message, WPARAM word, LPARAM value) override {
        switch (message) {
            case WM_ERASEBKGND: {
                RECT area{};
                GetClientRect(handle(), &area);
                FillRect(reinterpret_cast<HDC>(word), &area, view_.theme().brush(view_.surroundings()));
                view_.drawSeparators(reinterpret_cast<HDC>(word), area.bottom);
                return 1;
            }
            case WM_CTLCOLORBTN:
                return reinterpret_cast<LRESULT>(view_.theme().brush(view_.surroundings()));
            case WM_COMMAND: {
                const auto pressed = std::ranges::find(view_.buttons_, reinterpret_cast<HWND>(value));
                if (HIWORD(word) == BN_CLICKED && pressed != view_.buttons_.end()) {
                    view_.press(static_cast<int>(pressed - view_.buttons_.begin()) + 1);
                }
                return 0;
            }
            default:
                return NativeWindow::receive(message, word, value);
        }
    }

  private:
    ToolbarView& view_;
};

ToolbarView::ToolbarView(ViewHost& host, screen::Toolbar& bar)
    : ControlView(host, bar), bar_(bar), strip_(std::make_unique<Strip>(*this)) {
    watch(strip_->handle());
}

ToolbarView::~ToolbarView() = default;

std::vector<HWND> ToolbarView::windows() const {
    return {strip_->handle()};
}

HWND ToolbarView::focusTarget() const {
    return strip_->handle();
}

HWND ToolbarView::buttonOf(int item) const {
    return buttons_.at(static_cast<std::size_t>(item - 1));
}

void ToolbarView::useTheme() {
    for (const HWND button : buttons_) {
        if (button != nullptr) {
            useFont(button, theme().font());
        }
    }
}

int ToolbarView::buttonWidth(HWND button) const {
    if (button == nullptr) {
        return theme().scaled(separatorRoom);
    }
    return std::max(theme().textWidth(theme().font(), withoutMarks(textOf(button))) + 2 * theme().scaled(besideItem),
                    theme().scaled(leastItemWidth));
}

toolkit::Needs ToolbarView::needs() const {
    const int height = theme().fieldHeight(theme().font()) + theme().scaled(3);
    int width = 0;
    for (const HWND button : buttons_) {
        width += (width > 0 ? theme().scaled(style::unit) : 0) + buttonWidth(button);
    }
    return {.width = {width, width}, .height = {height, height}};
}

void ToolbarView::placed() {
    ControlView::placed();
    int left = 0;
    for (const HWND button : buttons_) {
        const int width = buttonWidth(button);
        if (button != nullptr) {
            moveTo(button, {.left = left, .width = width, .height = box().height});
        }
        left += width + theme().scaled(style::unit);
    }
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

void ToolbarView::drawSeparators(HDC dc, int height) const {
    int left = 0;
    for (const HWND button : buttons_) {
        const int width = buttonWidth(button);
        if (button == nullptr) {
            const RECT line{left + width / 2, 0, left + width / 2 + std::max(theme().scaled(1), 1), height};
            FillRect(dc, &line, theme().brush(style::border));
        }
        left += width + theme().scaled(style::unit);
    }
}

// The bar itself handles no keys.
bool ToolbarView::key(const KeyStroke&) {
    return true;
}

void ToolbarView::build() {
    for (const HWND button : buttons_) {
        if (button != nullptr) {
            DestroyWindow(button);
        }
    }
    buttons_.clear();
    std::size_t number = 0;
    for (const std::string& caption : toolkit::captionsOf(bar_)) {
        const bool menu = !bar_.items()[number++].menu.empty();
        if (caption.empty()) {
            buttons_.push_back(nullptr);
            continue;
        }
        const HWND button = createControl(L"BUTTON", toWide(caption) + (menu ? menuMark : L""),
                                          BS_PUSHBUTTON | WS_VISIBLE, strip_->handle());
        watch(button);
        buttons_.push_back(button);
    }
    useTheme();
    placed();
    host().arrangeLater();
}

void ToolbarView::press(int item) {
    if (!host().acceptsInput()) {
        return;
    }
    const screen::Toolbar::Item& pressed = bar_.items().at(static_cast<std::size_t>(item - 1));
    if (!pressed.menu.empty()) {
        openMenu(pressed, buttonOf(item));
        return;
    }
    host().feed([&] {
        if (host().bringFocus(bar_)) {
            bar_.onButtonClick(item);
        }
    });
}

// A button with a menu opens it wherever it is pressed and raises no click of its own.
void ToolbarView::openMenu(const screen::Toolbar::Item& item, HWND button) {
    const HMENU menu = CreatePopupMenu();
    UINT_PTR number = 0;
    for (const screen::Toolbar::MenuItem& choice : item.menu) {
        AppendMenuW(menu, MF_STRING, ++number, toWide(choice.caption).c_str());
    }
    RECT below{};
    GetWindowRect(button, &below);
    const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN, below.left, below.bottom, 0,
                                      strip_->handle(), nullptr);
    DestroyMenu(menu);
    if (chosen > 0) {
        const std::string key = item.menu[static_cast<std::size_t>(chosen - 1)].key;
        host().feed([&] {
            if (host().bringFocus(bar_)) {
                bar_.onMenuClick(key);
            }
        });
    }
}

}  // namespace velmora::win32
