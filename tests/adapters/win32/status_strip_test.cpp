#include "velmora/adapters/win32/status_strip.h"

#include <gtest/gtest.h>

#include "velmora/adapters/win32/field_view.h"
#include "velmora/adapters/win32/form_window.h"
#include "velmora/adapters/win32/text.h"

#include "adapters/qt/told_form.h"
#include "win32_hand.h"

namespace velmora::testing {
namespace {

BOOL CALLBACK findToolTips(HWND window, LPARAM found) {
    wchar_t name[64]{};
    GetClassNameW(window, name, 64);
    if (std::wstring_view(name) == TOOLTIPS_CLASSW) {
        *reinterpret_cast<HWND*>(found) = window;
    }
    return TRUE;
}

class StatusStrips : public ::testing::Test, protected Win32Hand {
  protected:
    void play(const std::function<void()>& user) { EXPECT_TRUE(show(form, user)); }
    /// The strip is the child beside the page.
    HWND strip() const {
        HWND page = shownWindow().page();
        HWND child = GetWindow(shownWindow().handle(), GW_CHILD);
        while (child == page) {
            child = GetWindow(child, GW_HWNDNEXT);
        }
        return child;
    }
    win32::FormWindow& shownWindow() const { return *const_cast<StatusStrips*>(this)->screen().top(); }
    std::string line() const { return win32::fromWide(win32::textOf(strip())); }
    std::string painted(const screen::Control& control) const {
        return win32::fromWide(dynamic_cast<win32::FieldView&>(viewOf(control)).paintedText());
    }
    /// What the system is told when the mouse rests on a control.
    std::string toolTip(const screen::Control& control) const {
        HWND tips = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), &findToolTips, reinterpret_cast<LPARAM>(&tips));
        NMTTDISPINFOW asked{};
        asked.hdr.hwndFrom = tips;
        asked.hdr.idFrom = reinterpret_cast<UINT_PTR>(windowOf(control));
        asked.hdr.code = TTN_GETDISPINFOW;
        SendMessageW(shownWindow().page(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&asked));
        return asked.lpszText == nullptr ? std::string() : win32::fromWide(asked.lpszText);
    }
    ToldForm form;
};

TEST_F(StatusStrips, TheStateTheHintTheNoteAndTheLastActionAreShown) {
    play([&] {
        EXPECT_EQ(line(), "Nueva · Paso de la cadena, en mm");
        press(VK_TAB);
        EXPECT_EQ(line(), "Nueva · Precio");
        press(VK_F6);
        EXPECT_EQ(line(), "Nueva · No se puede duplicar");
        press(VK_F5);
        EXPECT_EQ(line(), "Pendiente · Precio · Propuesta 321 grabada a las 10:32");
    });
}

TEST_F(StatusStrips, TheStripStandsBelowTheControlsAtEverySize) {
    play([&] {
        RECT low{};
        for (const LONG height : {140, 400}) {
            SetWindowPos(shownWindow().handle(), nullptr, 0, 0, 400, height, SWP_NOMOVE | SWP_NOZORDER);
            pump();
            GetWindowRect(strip(), &low);
            POINT edge{0, win32::clientBox(shownWindow().handle()).height};
            ClientToScreen(shownWindow().handle(), &edge);
            EXPECT_EQ(low.bottom, edge.y) << height;
        }
        RECT last{};
        GetWindowRect(windowOf(form.save), &last);
        EXPECT_LE(last.bottom, low.top);
    });
}

TEST_F(StatusStrips, WhatIsUnderWayIsShownWithoutMessagesInBetween) {
    play([&] {
        screen().tellWork("Esperando a otro usuario…");
        EXPECT_EQ(line(), "Nueva · Esperando a otro usuario…");
        EXPECT_FALSE(GetUpdateRect(strip(), nullptr, FALSE)) << "painted";
        screen().tellWork("");
        EXPECT_EQ(line(), "Nueva · Paso de la cadena, en mm");
    });
}

TEST_F(StatusStrips, AFieldWithAWarningHasAnAmberBorderAndTellsIt) {
    play([&] {
        form.price.setWarning("Sin precio");
        EXPECT_EQ(win32::borderOf(form.price, true).color, win32::style::warningBorder);
        EXPECT_EQ(toolTip(form.price), "Sin precio");
        press(VK_TAB);
        EXPECT_EQ(line(), "Nueva · Sin precio");
        form.price.setWarning("");
        EXPECT_EQ(win32::borderOf(form.price, true).color, win32::style::focusBorder);
        EXPECT_EQ(line(), "Nueva · Precio");
    });
}

TEST_F(StatusStrips, ANumberIsPaintedWithItsDecimalsAndKeepsItsText) {
    form.price.setText("12,7");
    play([&] {
        EXPECT_EQ(painted(form.price), "12,70");
        EXPECT_EQ(win32::textOf(windowOf(form.price)), L"12,7");
        form.price.setText("123.456.789.012,75");
        EXPECT_TRUE(painted(form.price).starts_with("###")) << painted(form.price);
        EXPECT_EQ(toolTip(form.price), "123.456.789.012,75");
    });
}

TEST_F(StatusStrips, AFieldTellsWhyItHasItsValue) {
    form.price.setToolTip("Precio de la pieza");
    play([&] {
        EXPECT_EQ(toolTip(form.price), "Precio de la pieza");
        form.price.explanation = [] { return std::string("2 × 3 = 6"); };
        form.price.setWarning("Sin precio");
        EXPECT_EQ(toolTip(form.price), "Sin precio\n2 × 3 = 6");
    });
}

TEST_F(StatusStrips, AKeyWithControlIsTheSecondNameOfAFunctionKey) {
    play([&] {
        press('S', VK_CONTROL);
        EXPECT_EQ(line(), "Pendiente · Paso de la cadena, en mm · Propuesta 321 grabada a las 10:32");
        type(U"12,7");
        press('A', VK_CONTROL);
        press('C', VK_CONTROL);
        EXPECT_EQ(form.pitch.text(), "12,7") << "Copy stays with the field";
    });
}

TEST_F(StatusStrips, ShiftAndF1OpenTheSheetOfKeys) {
    std::string title;
    screen().onActionEnded([&] {
        screen::Form& top = screen().top()->form();
        if (&top != &form) {
            title = top.caption();
            top.unload();
        }
    });
    play([&] { press(VK_F1, VK_SHIFT); });
    EXPECT_EQ(title, "Teclas: " + form.caption());
}

}  // namespace
}  // namespace velmora::testing
