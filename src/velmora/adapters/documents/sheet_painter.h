#pragma once
// A sheet on A4 paper, as a PDF: letters as letters of embedded fonts, drawings as lines.

#include "velmora/paper/sheet.h"

class QIODevice;

namespace velmora::documents {

/// Writes a document that bears the sheet's title. Columns give way to their numbers, and where there is no room left
/// for them letters become smaller: no number is broken. Needs the toolkit's application (painting::Graphics). False
/// when the device takes no more.
bool paintSheet(const paper::Sheet& sheet, QIODevice& out);

}  // namespace velmora::documents
