#pragma once
// A sheet on A4 paper, as a PDF: letters as letters of embedded fonts, drawings as lines.

#include "velmora/paper/sheet.h"

class QIODevice;

namespace velmora::documents {

/// Writes a document that bears the sheet's title. Columns are widened to fit their numbers; where the page is too
/// narrow for them the font is reduced: no number is broken. Needs the toolkit's application (painting::Graphics).
/// False when writing to the device fails.
bool paintSheet(const paper::Sheet& sheet, QIODevice& out);

}  // namespace velmora::documents
