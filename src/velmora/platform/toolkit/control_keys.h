#pragma once
// What keys do on a control that is no field, once the form has let them through.

#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::toolkit {

constexpr bool pressesButton(const KeyStroke& stroke) {
    return stroke.key == screen::Key::enter || stroke.character == U' ';
}

constexpr bool ticksBox(const KeyStroke& stroke) {
    return stroke.character == U' ';
}

}  // namespace velmora::toolkit
