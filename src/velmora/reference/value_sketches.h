#pragma once
// Sketches beside the fields of gears and doubles: which measure of the piece each letter means. They show an example
// piece with the letters alone, not the typed values.

#include "velmora/platform/screen/drawing.h"

namespace velmora::reference {

/// De, B, D1, and how M follows; of a gear with a hub Dm, A and C, too.
screen::Drawing gearSketch(bool withHub);
/// De, Dm, D2, H1, b1, B2, X and A of a piece for two chains.
screen::Drawing doubleSketch();

}  // namespace velmora::reference
