#include <gmock/gmock.h>

#include "velmora/adapters/win32/combo_box_view.h"
#include "velmora/adapters/win32/field_view.h"
#include "velmora/adapters/win32/grid_view.h"
#include "velmora/adapters/win32/native_window.h"
#include "velmora/adapters/win32/picture.h"
#include "velmora/adapters/win32/text.h"
#include "velmora/platform/runtime/errors.h"

#include "adapters/qt/sample_form.h"
#include "platform/toolkit/counted_rows.h"
#include "win32_hand.h"

namespace velmora::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class Windows : public ::testing::Test, protected Win32Hand {
  protected:
    void play(const std::function<void()>& user) { EXPECT_TRUE(show(form, user)); }
    win32::Box place(const screen::Control& control) const { return viewOf(control).box(); }
    win32::GridView& grid() const { return dynamic_cast<win32::GridView&>(viewOf(form.history)); }
    std::string count() const { return win32::fromWide(grid().countText()); }
    std::string shown(const screen::Control& control) const {
        return win32::fromWide(win32::textOf(windowOf(control)));
    }
    win32::style::Rgb ground(const screen::Control& control, screen::Role role = screen::Role::entered) const {
        return win32::groundColor(control, role, win32::style::window);
    }

    SampleForm form;
};

TEST_F(Windows, AHiddenFrameGivesItsRoomBackAndAHiddenFieldDoesNot) {
    play([&] {
        const int before = place(form.coupling).top;
        form.fraHub.setVisible(false);
        pump();
        EXPECT_LT(place(form.coupling).top, before - 50);
        EXPECT_FALSE(IsWindowVisible(windowOf(form.hub(0))));
        const win32::Box below = place(form.measure(10));
        form.measure(8).setVisible(false);
        pump();
        EXPECT_EQ(place(form.measure(10)), below);
        EXPECT_FALSE(IsWindowVisible(windowOf(form.measure(8))));
    });
}

TEST_F(Windows, FramesThatTakeTurnsShareOnePlaceAndNothingJumps) {
    play([&] {
        const win32::Box first = place(form.fraMeasures);
        const win32::Box sketch = place(form.sketch);
        form.fraMeasures.setVisible(false);
        form.fraOther.setVisible(true);
        pump();
        EXPECT_TRUE(viewOf(form.fraOther).isShown());
        EXPECT_FALSE(IsWindowVisible(windowOf(form.measure(8))));
        EXPECT_TRUE(IsWindowVisible(windowOf(form.other(0))));
        EXPECT_EQ(place(form.fraOther), first);
        EXPECT_EQ(place(form.sketch), sketch);
    });
}

TEST_F(Windows, AnotherScaleEnlargesLettersAndPlaces) {
    play([&] {
        const int width = place(form.measure(0)).width;
        const int height = place(form.measure(0)).height;
        RECT wanted{0, 0, 1900, 1250};
        SendMessageW(screen().top()->handle(), WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&wanted));
        EXPECT_EQ(screen().top()->theme().dpi(), 144);
        EXPECT_NEAR(place(form.measure(0)).width, width * 1.5, width * 0.1);
        EXPECT_NEAR(place(form.measure(0)).height, height * 1.5, 3);
        EXPECT_EQ(grid().table().rowHeight(), 36);
        RECT outer{};
        GetWindowRect(screen().top()->handle(), &outer);
        EXPECT_EQ(outer.right - outer.left, 1900);
    });
}

TEST_F(Windows, BackgroundsTellEnteredCalculatedAndFocus) {
    play([&] {
        EXPECT_EQ(ground(form.id(1)), win32::style::entered);
        EXPECT_EQ(ground(form.id(3)), win32::style::calculated) << "disabled";
        EXPECT_EQ(ground(form.id(0)), win32::style::focus);
        form.id(1).setBackColor(screen::colors::red);
        EXPECT_EQ(ground(form.id(1)), 0xFF0000u);
        HDC dc = GetDC(windowOf(form.id(0)));
        SendMessageW(screen().top()->page(), WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc),
                     reinterpret_cast<LPARAM>(windowOf(form.id(0))));
        EXPECT_EQ(GetBkColor(dc), RGB(255, 255, 0));
        ReleaseDC(windowOf(form.id(0)), dc);
    });
}

TEST_F(Windows, EveryFieldHasAnAccessibleName) {
    play([&] {
        for (const screen::Control* control : form.controls()) {
            const win32::ControlView* view = screen().top()->viewOf(*control);
            const bool named = dynamic_cast<const screen::TextBox*>(control) != nullptr ||
                               dynamic_cast<const screen::ComboBox*>(control) != nullptr ||
                               dynamic_cast<const screen::DataGrid*>(control) != nullptr;
            if (view != nullptr && named) {
                EXPECT_FALSE(view->accessibleName().empty()) << control->fullName();
            }
        }
        form.rimCaption.setCaption("Llanta (B2)");
        EXPECT_EQ(viewOf(form.measure(9)).accessibleName(), L"Llanta (B2)");
    });
}

TEST_F(Windows, AControlDisabledWithTheFocusGivesItOn) {
    play([&] {
        form.id(0).onChange = [&] { form.id(0).setEnabled(false); };
        type(U"7");
        EXPECT_EQ(form.activeControl(), &form.id(1));
        EXPECT_EQ(GetFocus(), windowOf(form.id(1)));
    });
}

TEST_F(Windows, AClickThatBringsTheFocusLeavesTheWholeTextSelected) {
    play([&] {
        click(form.measure(1));
        type(U"5");
        EXPECT_EQ(form.measure(1).text(), "5");
        EXPECT_EQ(shown(form.measure(1)), "5");
    });
}

TEST_F(Windows, EditingKeysOfTheSystemChangeTheModel) {
    play([&] {
        type(U"98");
        press(VK_HOME);
        press(VK_DELETE);
        EXPECT_EQ(form.id(0).text(), "8");
        press('A', VK_CONTROL);
        press(VK_DELETE);
        EXPECT_EQ(form.id(0).text(), "");
    });
}

TEST_F(Windows, ADoubleClickIsToldToTheField) {
    int told = 0;
    form.measure(1).onDblClick = [&] { ++told; };
    play([&] {
        doubleClick(form.measure(1));
        EXPECT_EQ(told, 1);
        form.measure(1).setLocked(true);
        doubleClick(form.measure(1));
        EXPECT_EQ(told, 1) << "locked";
    });
}

TEST_F(Windows, AListTellsAChoiceOnceHoweverItIsMade) {
    std::vector<std::string> told;
    form.type.onClick = [&] { told.emplace_back("click"); };
    form.type.onChosen = [&] { told.emplace_back("chosen"); };
    play([&] {
        form.moveFocus(form.type);
        told.clear();
        press(VK_F4);
        ASSERT_TRUE(dynamic_cast<win32::ComboBoxView&>(viewOf(form.type)).isOpen());
        press(VK_DOWN);
        EXPECT_THAT(told, ElementsAre()) << "the list is still open";
        press(VK_RETURN);
        EXPECT_EQ(form.type.listIndex(), 1);
        EXPECT_THAT(told, ElementsAre("click", "chosen"));
        press(VK_F4);
        press(VK_DOWN);
        press(VK_ESCAPE);
        EXPECT_EQ(form.type.listIndex(), 1) << "left without a choice";
        EXPECT_FALSE(form.isUnloaded());
        EXPECT_EQ(shown(form.type), "Disco Especial");
        told.clear();
        press(VK_UP);
        EXPECT_EQ(form.type.listIndex(), 0);
        EXPECT_THAT(told, ElementsAre("click", "chosen")) << "without opening the list";
    });
}

TEST_F(Windows, AListFilledEntryByEntryIsShownInTheEnd) {
    play([&] {
        form.discMaterial.clear();
        form.discMaterial.addItem("010 - Latón");
        form.discMaterial.addItem("011 - Nailon");
        form.discMaterial.setListIndex(1);
        pump();
        EXPECT_EQ(SendMessageW(windowOf(form.discMaterial), CB_GETCOUNT, 0, 0), 2);
        EXPECT_EQ(shown(form.discMaterial), "011 - Nailon");
    });
}

TEST_F(Windows, ClosingTheWindowUnloadsTheForm) {
    play([&] {
        PostMessageW(screen().top()->handle(), WM_CLOSE, 0, 0);
        pump();
        EXPECT_TRUE(form.isUnloaded());
    });
}

TEST_F(Windows, AnUncaughtErrorIsShownAndTheProgramGoesOn) {
    form.save.onClick = [] { runtime::raise(runtime::typeMismatch); };
    std::string text;
    play([&] {
        whenBoxOpens([&](HWND box) {
            text = textOfBox(box);
            press(VK_ESCAPE);
        });
        click(form.save);
        click(form.id(1));
        type(U"9");
        EXPECT_EQ(form.id(1).text(), "9");
    });
    EXPECT_THAT(text, HasSubstr("Error 13"));
}

TEST_F(Windows, ModalShowsNestAndTheOneBelowTakesNoInputMeanwhile) {
    SampleForm child;
    bool belowEnabled = true;
    form.save.onClick = [&] {
        const HWND below = screen().top()->handle();
        child.onActivate = [&, below] {
            belowEnabled = IsWindowEnabled(below);
            child.unload();
        };
        screen().showModal(child);
        form.log.emplace_back("child closed");
    };
    play([&] {
        click(form.save);
        EXPECT_THAT(form.log, ::testing::Contains("child closed"));
        EXPECT_FALSE(belowEnabled);
        EXPECT_TRUE(IsWindowEnabled(screen().top()->handle()));
        EXPECT_EQ(&screen().top()->form(), &form);
        pump();
        EXPECT_EQ(GetFocus(), windowOf(form.save)) << "the keyboard is back";
    });
}

TEST_F(Windows, AHugeSetIsNeitherCountedNorReadWhenItOpens) {
    toolkit::Reading reading;
    form.history.setColumns({{.field = 0, .caption = "Id", .right = true}, {.field = 1, .caption = "Texto"}});
    form.history.bind(sql::Recordset(std::make_unique<toolkit::CountedRows>(1310720, reading)));
    play([&] {
        EXPECT_LT(reading.farthest, 1000u);
        EXPECT_FALSE(reading.counted);
        EXPECT_EQ(count(), "Fila 1 de más de 256 filas");
        form.moveFocus(form.history);
        for (int i = 0; i < 40; ++i) {
            press(VK_NEXT);
        }
        EXPECT_GT(grid().table().rowCount(), 256);
        EXPECT_LT(reading.farthest, 3000u);
        press(VK_END);
        EXPECT_EQ(form.history.recordset().position(), std::optional<std::size_t>(1310719));
        EXPECT_EQ(grid().table().current(), 1310719);
        EXPECT_EQ(count(), "Fila 1.310.720 de 1.310.720 filas");
    });
}

TEST_F(Windows, APressMeantForARowThatGivesItsPlaceToAnotherDoesNothing) {
    std::vector<std::size_t> pressed;
    form.history.setColumns({{.field = 0, .caption = "Id"}, {.field = 1, .caption = "Texto", .button = true}});
    form.history.onButtonClick = [&](int) { pressed.push_back(*form.history.recordset().position()); };
    const auto listThreeFrom = [this](int first) {
        std::vector<sql::Row> rows;
        for (int i = first; i < first + 3; ++i) {
            rows.push_back({i, "Fila"});
        }
        form.history.bind(sql::Recordset(sql::rowsInMemory({{"ID"}, {"TEXTO"}}, std::move(rows))));
    };
    listThreeFrom(10);
    play([&] {
        form.id(0).onLostFocus = [&] { listThreeFrom(11); };
        clickCell(form.history, 2, 1);
        EXPECT_EQ(form.activeControl(), &form.history);
        EXPECT_TRUE(pressed.empty()) << "12 stood there, and now 13";
        clickCell(form.history, 2, 1);
        EXPECT_THAT(pressed, ElementsAre(2u)) << "what is seen now is pressed";
    });
}

TEST_F(Windows, APictureIsWrittenAtTheSizeAsked) {
    EXPECT_FALSE(win32::picture(screen(), form, "Z:\\no\\such\\folder\\form.png", USER_DEFAULT_SCREEN_DPI, 600, 400));
}

}  // namespace
}  // namespace velmora::testing
