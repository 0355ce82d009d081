#pragma once
// What keys do on a control other than a text field, after the form's KeyDown has let them through.

#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::toolkit {

constexpr bool pressesButton(const KeyStroke& stroke) {
    return stroke.key == screen::Key::enter || stroke.character == U' ';
}

constexpr bool ticksBox(const KeyStroke& stroke) {
    return stroke.character == U' ';
}

}  // namespace velmora::toolkit
