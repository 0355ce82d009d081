#include <sstream>
#include <utility>

#include "velmora/adapters/script/script_screen.h"
#include "velmora/adapters/script/shown_text.h"
#include "velmora/adapters/script/user.h"
#include "velmora/platform/toolkit/effective_state.h"

#include "toolkit_contract.h"

namespace velmora::test {

namespace {

class ScriptUser final : public ToolkitUser {
  public:
    void play(screen::Form& form, const std::function<void()>& part) override {
        form_ = &form;
        bool waiting = true;
        screen_.onIdle([&] {
            if (!std::exchange(waiting, false)) {
                return false;
            }
            part();
            return true;
        });
        screen_.showModal(form);
    }

    void key(screen::Key key, bool shift) override { user_.stroke(*form_, toolkit::strokeOf(key, shift)); }
    void type(std::u32string_view characters) override {
        for (const char32_t character : characters) {
            user_.stroke(*form_, toolkit::strokeTyping(character));
        }
    }
    void backspace() override { user_.stroke(*form_, toolkit::strokeTyping(toolkit::backspace)); }
    void alt(char letter) override { user_.pressMnemonic(*form_, static_cast<char32_t>(letter)); }
    void row(toolkit::RowMove move) override {
        if (auto* grid = dynamic_cast<screen::DataGrid*>(form_->activeControl())) {
            user_.moveRow(*grid, move);
        }
    }

    void click(screen::Control& control) override {
        if (auto* button = dynamic_cast<screen::Button*>(&control)) {
            user_.press(*button);
        } else if (auto* box = dynamic_cast<screen::CheckBox*>(&control)) {
            user_.check(*box, !box->checked());
        } else {
            user_.focus(control);
        }
    }
    void clickItem(screen::Toolbar& bar, int item) override { user_.press(bar, item); }
    void clickCell(screen::DataGrid& grid, std::size_t row, std::size_t column) override {
        user_.moveToRow(grid, row);
        user_.pressCell(grid, column);
    }

    bool sees(const screen::Control& control) override { return script::stateOf(control).visible; }
    bool looksEnabled(const screen::Control& control) override { return toolkit::looksEnabled(control); }
    std::string reads(const screen::Control& control) override { return script::textOf(control); }
    bool keyboardIsIn(const screen::Control& control) override { return form_->activeControl() == &control; }
    std::vector<std::string> errorsRead() override {
        std::vector<std::string> errors;
        std::istringstream lines(out_.str());
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("error ")) {
                errors.push_back(line);
            }
        }
        return errors;
    }

  private:
    std::ostringstream out_;
    script::Journal journal_{out_};
    script::Answers answers_;
    script::ScriptScreen screen_{journal_, answers_};
    script::User user_{journal_};
    screen::Form* form_ = nullptr;
};

std::unique_ptr<ToolkitUser> makeUser() {
    return std::make_unique<ScriptUser>();
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Script, ToolkitContract, ::testing::Values(ToolkitUnderTest{"Script", makeUser}));

}  // namespace velmora::test
