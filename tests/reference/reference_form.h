#pragma once
// A form of reference data on the small workshop, and a user who works on it.

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/platform/sql/db_error.h"

#include "support/proposal_workshop.h"

namespace velmora::reference {

template <typename Form>
class FormTest : public ::testing::Test {
  protected:
    FormTest() = default;
    /// On a database of the test's own, filled like the workshop's.
    explicit FormTest(std::unique_ptr<sql::Connection> database) : shop(std::move(database)) {}

    Form& open() {
        form_ = std::make_unique<Form>(shop.session, shop.desk);
        form_->activate();
        return *form_;
    }
    Form& form() { return form_ ? *form_ : open(); }
    auto& fields() { return form().fields(); }

    screen::TextBox& field(int i) { return fields().Text1(i); }
    const std::string& text(int i) { return field(i).text(); }

    void goTo(screen::Control& control) {
        ASSERT_TRUE(form().moveFocus(control, screen::Form::Insist::yes)) << control.fullName() << " takes no focus";
    }
    void set(int i, std::string_view value) {
        goTo(field(i));
        field(i).setText(value);
    }
    void leave() { form().leaveFocus(); }
    void press(screen::Button& button) {
        goTo(button);
        button.onClick();
    }
    void tick(screen::CheckBox& box, bool on) {
        goTo(box);
        box.setChecked(on);
    }
    /// Key by key, through the field's filter; the first key replaces what is selected.
    void type(int i, std::string_view characters) {
        goTo(field(i));
        for (const char c : characters) {
            screen::KeyPress key{static_cast<char32_t>(c)};
            field(i).onKeyPress(key);
            if (key.character != 0) {
                const std::string before = field(i).allSelected() ? std::string() : text(i);
                field(i).setText(before + static_cast<char>(key.character));
            }
        }
    }
    long errorOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const runtime::RuntimeError& error) {
            return error.number();
        }
        return 0;
    }
    std::string last() { return shop.screen.messages.empty() ? std::string() : shop.screen.messages.back().text; }
    std::vector<std::string> captions(const screen::DataGrid& grid) {
        std::vector<std::string> shown;
        for (const screen::GridColumn& column : grid.columns()) {
            if (column.visible) {
                shown.push_back(column.caption);
            }
        }
        return shown;
    }

    support::ProposalWorkshop shop;

  private:
    std::unique_ptr<Form> form_;
};

/// A form on a database in a file, and another user who works on the same file with a connection of his own.
template <typename Form>
class TwoUsersTest : private support::TemporaryFolder, public FormTest<Form> {
  protected:
    TwoUsersTest()
        : FormTest<Form>(support::makeWorkshopDatabase(file("taller.db"))),
          another(support::openWorkshopDatabase(file("taller.db"))) {}

    /// What the other user does as soon as the next question stands on the screen. A transaction that waited on the
    /// user would refuse it.
    void whileAsked(const std::string& statement) {
        this->shop.screen.whileAsked = [this, statement] {
            this->shop.screen.whileAsked = nullptr;
            another->execute(statement);
        };
    }
    /// Another connection finds no lock in its way.
    void expectNoLock() {
        another->beginTrans();
        another->rollbackTrans();
    }

    std::unique_ptr<sql::Connection> another;
};

inline constexpr long refused = sql::provider::failure;

}  // namespace velmora::reference
