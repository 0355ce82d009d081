#pragma once
// Converts key messages of the system to key strokes of the core.

#include <optional>

#include "velmora/adapters/win32/windows_api.h"
#include "velmora/platform/toolkit/grid_keys.h"
#include "velmora/platform/toolkit/key_stroke.h"

namespace velmora::win32 {

using toolkit::KeyStroke;

/// The stroke of a key with a name of its own, or of a letter with Control. nullopt for any other key, whose character
/// arrives as a message of its own, and for combinations with Alt.
std::optional<KeyStroke> strokeOfKey(WPARAM virtualKey);

/// The stroke of a typed character; nullopt for control characters, whose keys have strokes of their own or none.
std::optional<KeyStroke> strokeOfCharacter(char32_t character);

/// The move of a grid's row.
std::optional<toolkit::RowMove> rowMoveOf(WPARAM virtualKey);

/// Characters beyond the first 65536 arrive in two messages.
class CharacterPairs {
  public:
    /// The character that is complete with this unit; nullopt after the first of a pair.
    std::optional<char32_t> add(WPARAM unit);

  private:
    char32_t first_ = 0;
};

}  // namespace velmora::win32
