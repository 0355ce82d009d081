#include <map>
#include <stdexcept>

#include "velmora/adapters/win32/text.h"
#include "velmora/adapters/win32/toolbar_view.h"

#include "toolkit_contract.h"
#include "win32_hand.h"

namespace velmora::test {

namespace {

using screen::Key;
using toolkit::RowMove;

WORD virtualKeyOf(Key key) {
    static const std::map<Key, WORD> keys{
        {Key::enter, VK_RETURN}, {Key::escape, VK_ESCAPE}, {Key::tab, VK_TAB}, {Key::padDecimal, VK_DECIMAL},
        {Key::f1, VK_F1},        {Key::f2, VK_F2},         {Key::f3, VK_F3},   {Key::f4, VK_F4},
        {Key::f5, VK_F5},        {Key::f6, VK_F6},         {Key::f7, VK_F7},   {Key::f8, VK_F8},
        {Key::f9, VK_F9}};
    return keys.at(key);
}

WORD virtualKeyOf(RowMove move) {
    static const std::map<RowMove, WORD> keys{{RowMove::up, VK_UP},        {RowMove::down, VK_DOWN},
                                              {RowMove::pageUp, VK_PRIOR}, {RowMove::pageDown, VK_NEXT},
                                              {RowMove::first, VK_HOME},   {RowMove::last, VK_END}};
    return keys.at(move);
}

class Win32User final : public ToolkitUser, private velmora::testing::Win32Hand {
  public:
    void play(screen::Form& form, const std::function<void()>& part) override {
        onOtherBox([this](HWND box) {
            errors_.push_back(velmora::testing::textOfBox(box));
            velmora::testing::postKey(GetFocus(), VK_RETURN);
        });
        show(form, part);
    }

    void key(Key key, bool shift) override {
        press(virtualKeyOf(key), shift ? std::optional<WORD>(VK_SHIFT) : std::nullopt);
    }
    void type(std::u32string_view characters) override { Win32Hand::type(characters); }
    void backspace() override { press(VK_BACK); }
    void alt(char letter) override { press(static_cast<WORD>('A' + (letter - 'a')), VK_MENU); }
    void row(RowMove move) override { press(virtualKeyOf(move)); }

    void click(screen::Control& control) override { Win32Hand::click(control); }
    void clickItem(screen::Toolbar& bar, int item) override {
        const HWND button = dynamic_cast<win32::ToolbarView&>(viewOf(bar)).buttonOf(item);
        const win32::Box area = win32::clientBox(button);
        clickAt(button, {area.width / 2, area.height / 2});
    }
    void clickCell(screen::DataGrid& grid, std::size_t row, std::size_t column) override {
        int shown = 0;
        for (std::size_t i = 0; i < column; ++i) {
            shown += grid.columns()[i].visible ? 1 : 0;
        }
        Win32Hand::clickCell(grid, static_cast<int>(row), shown);
    }

    bool sees(const screen::Control& control) override {
        pump();
        const HWND window = windowOf(control);
        return viewOf(control).isShown() && (window == nullptr || IsWindowVisible(window));
    }
    bool looksEnabled(const screen::Control& control) override { return IsWindowEnabled(windowOf(control)); }
    std::string reads(const screen::Control& control) override {
        pump();
        const HWND window = windowOf(control);
        if (dynamic_cast<const screen::CheckBox*>(&control) != nullptr) {
            return SendMessageW(window, BM_GETCHECK, 0, 0) == BST_CHECKED ? "on" : "off";
        }
        return win32::fromWide(win32::textOf(window));
    }
    bool keyboardIsIn(const screen::Control& control) override { return GetFocus() == viewOf(control).focusTarget(); }
    std::vector<std::string> errorsRead() override { return errors_; }

  private:
    std::vector<std::string> errors_;
};

std::unique_ptr<ToolkitUser> makeUser() {
    return std::make_unique<Win32User>();
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Win32, ToolkitContract, ::testing::Values(ToolkitUnderTest{"Win32", makeUser}));

}  // namespace velmora::test
