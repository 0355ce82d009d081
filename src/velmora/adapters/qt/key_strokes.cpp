#include "velmora/adapters/qt/key_strokes.h"

#include <array>
#include <utility>

namespace velmora::qt {

namespace {

using screen::Key;

constexpr char32_t deleteCharacter = 127;

constexpr std::array<std::pair<int, Key>, 15> namedKeys{{
    {Qt::Key_Return, Key::enter},
    {Qt::Key_Enter, Key::enter},
    {Qt::Key_Escape, Key::escape},
    {Qt::Key_Tab, Key::tab},
    {Qt::Key_Backtab, Key::tab},
    {Qt::Key_F1, Key::f1},
    {Qt::Key_F2, Key::f2},
    {Qt::Key_F3, Key::f3},
    {Qt::Key_F4, Key::f4},
    {Qt::Key_F5, Key::f5},
    {Qt::Key_F6, Key::f6},
    {Qt::Key_F7, Key::f7},
    {Qt::Key_F8, Key::f8},
    {Qt::Key_F9, Key::f9},
    {Qt::Key_F12, Key::f12},
}};

bool isShortcut(const QKeyEvent& event) {
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    // On some desktops Control and Alt together are AltGr, which types characters.
    return control != alt || event.modifiers().testFlag(Qt::MetaModifier);
}

/// The stroke with Control held, whose letter the event's text does not contain; none with Alt or Meta.
KeyStroke withControl(const QKeyEvent& event, KeyStroke stroke) {
    if ((event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != Qt::ControlModifier) {
        return {};
    }
    stroke.control = true;
    return stroke;
}

char32_t typedCharacter(const QKeyEvent& event) {
    const QList<uint> characters = event.text().toUcs4();
    if (characters.size() != 1 || characters.front() < toolkit::firstPrinting ||
        characters.front() == deleteCharacter) {
        return 0;
    }
    return characters.front();
}

bool isPadDecimal(const QKeyEvent& event) {
    return event.modifiers().testFlag(Qt::KeypadModifier) &&
           (event.key() == Qt::Key_Period || event.key() == Qt::Key_Comma);
}

}  // namespace

KeyStroke strokeOf(const QKeyEvent& event) {
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab;
    for (const auto& [code, key] : namedKeys) {
        if (event.key() == code) {
            return isShortcut(event) ? withControl(event, toolkit::strokeOf(key, shift))
                                     : toolkit::strokeOf(key, shift);
        }
    }
    if (isShortcut(event)) {
        const bool letter = event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z;
        return letter ? withControl(event, toolkit::strokeTyping(static_cast<char32_t>(event.key()), shift))
                      : KeyStroke{};
    }
    if (event.key() == Qt::Key_Backspace) {
        return toolkit::strokeTyping(toolkit::backspace, shift);
    }
    const char32_t character = typedCharacter(event);
    if (character == 0) {
        return {};
    }
    if (isPadDecimal(event)) {
        return {.key = Key::padDecimal, .shift = shift, .character = character};
    }
    return toolkit::strokeTyping(character, shift);
}

}  // namespace velmora::qt
