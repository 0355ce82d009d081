#include "velmora/adapters/win32/key_strokes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmora::win32 {

namespace {

using screen::Key;
using toolkit::RowMove;

constexpr char32_t deleteCharacter = 127;

constexpr std::array<std::pair<WPARAM, Key>, 13> namedKeys{{
    {VK_RETURN, Key::enter},
    {VK_ESCAPE, Key::escape},
    {VK_TAB, Key::tab},
    {VK_F1, Key::f1},
    {VK_F2, Key::f2},
    {VK_F3, Key::f3},
    {VK_F4, Key::f4},
    {VK_F5, Key::f5},
    {VK_F6, Key::f6},
    {VK_F7, Key::f7},
    {VK_F8, Key::f8},
    {VK_F9, Key::f9},
    {VK_F12, Key::f12},
}};

constexpr std::array<std::pair<WPARAM, RowMove>, 6> rowKeys{{
    {VK_UP, RowMove::up},
    {VK_DOWN, RowMove::down},
    {VK_PRIOR, RowMove::pageUp},
    {VK_NEXT, RowMove::pageDown},
    {VK_HOME, RowMove::first},
    {VK_END, RowMove::last},
}};

bool isDown(int virtualKey) {
    return GetKeyState(virtualKey) < 0;
}

// Control and Alt together are AltGr, which types characters.
bool isWithControl() {
    return isDown(VK_CONTROL) && !isDown(VK_MENU);
}

bool isWithAlt() {
    return isDown(VK_MENU) && !isDown(VK_CONTROL);
}

const std::pair<WPARAM, Key>* namedKey(WPARAM virtualKey) {
    const auto* const named = std::ranges::find(namedKeys, virtualKey, &std::pair<WPARAM, Key>::first);
    return named == namedKeys.end() ? nullptr : named;
}

std::optional<KeyStroke> strokeWithControl(WPARAM virtualKey, bool shift) {
    std::optional<KeyStroke> stroke;
    if (const auto* named = namedKey(virtualKey)) {
        stroke = toolkit::strokeOf(named->second, shift);
    } else if (virtualKey >= 'A' && virtualKey <= 'Z') {
        stroke = toolkit::strokeTyping(static_cast<char32_t>(virtualKey), shift);
    }
    if (stroke) {
        stroke->control = true;
    }
    return stroke;
}

}  // namespace

std::optional<KeyStroke> strokeOfKey(WPARAM virtualKey) {
    const bool shift = isDown(VK_SHIFT);
    if (isWithControl()) {
        return strokeWithControl(virtualKey, shift);
    }
    if (isWithAlt()) {
        return std::nullopt;
    }
    if (const auto* named = namedKey(virtualKey)) {
        return toolkit::strokeOf(named->second, shift);
    }
    if (virtualKey == VK_BACK) {
        return toolkit::strokeTyping(toolkit::backspace, shift);
    }
    if (virtualKey == VK_DECIMAL) {
        const UINT character = MapVirtualKeyW(VK_DECIMAL, MAPVK_VK_TO_CHAR);
        return KeyStroke{.key = Key::padDecimal,
                         .shift = shift,
                         .character = character != 0 ? character : toolkit::characterOf(Key::padDecimal)};
    }
    return std::nullopt;
}

std::optional<KeyStroke> strokeOfCharacter(char32_t character) {
    if (character < toolkit::firstPrinting || character == deleteCharacter) {
        return std::nullopt;
    }
    return toolkit::strokeTyping(character, isDown(VK_SHIFT));
}

std::optional<RowMove> rowMoveOf(WPARAM virtualKey) {
    const auto* const found = std::ranges::find(rowKeys, virtualKey, &std::pair<WPARAM, RowMove>::first);
    return found == rowKeys.end() ? std::nullopt : std::optional(found->second);
}

std::optional<char32_t> CharacterPairs::add(WPARAM unit) {
    const auto value = static_cast<char32_t>(unit & 0xFFFF);
    if (value >= 0xD800 && value < 0xDC00) {
        first_ = value;
        return std::nullopt;
    }
    if (value >= 0xDC00 && value < 0xE000) {
        const char32_t first = std::exchange(first_, 0);
        return first == 0 ? std::nullopt : std::optional(0x10000 + ((first - 0xD800) << 10) + (value - 0xDC00));
    }
    first_ = 0;
    return value;
}

}  // namespace velmora::win32
