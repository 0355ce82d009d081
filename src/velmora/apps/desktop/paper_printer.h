#pragma once
// Papers on a printer.

#include "velmora/paper/sheet.h"

class QPrinter;

namespace velmora::desktop {

/// Prints the pages that the printer's range names, or all when it names none, on A4 to the paper's edges. False when
/// the printer fails or the range has no page.
bool printSheet(const paper::Sheet& sheet, QPrinter& printer);

}  // namespace velmora::desktop
