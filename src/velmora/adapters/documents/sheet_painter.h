#pragma once
// Sheets on A4 paper, as a PDF: letters as letters of embedded fonts, drawings as lines.

#include <string>
#include <vector>

#include "velmora/adapters/documents/sheet.h"

class QIODevice;

namespace velmora::documents {

/// Writes one document of all sheets, each from a new page. Needs the toolkit's application (qt::Graphics). False when
/// the device takes no more.
bool paintSheets(const std::vector<Sheet>& sheets, const std::string& title, QIODevice& out);

}  // namespace velmora::documents
