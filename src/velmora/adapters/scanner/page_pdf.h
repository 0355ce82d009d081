#pragma once
// A scanned page as a PDF in its true size.

#include "velmora/adapters/scan_protocol/page_source.h"

class QIODevice;

namespace velmora::scanner {

/// False when the device fails. Needs the toolkit's application (painting::Graphics).
bool writePage(const Image& page, QIODevice& out);

}  // namespace velmora::scanner
