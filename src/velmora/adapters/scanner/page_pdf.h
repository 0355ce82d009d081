#pragma once
// A scanned page as a PDF of its true size.

#include "velmora/adapters/scan_protocol/page_source.h"

class QIODevice;

namespace velmora::scanner {

/// False when the device takes no more. Needs the toolkit's application (qt::Graphics).
bool writePage(const Image& page, QIODevice& out);

}  // namespace velmora::scanner
