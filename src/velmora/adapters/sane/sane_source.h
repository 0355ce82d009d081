#pragma once
// Pages from the scanners that the system knows through SANE.

#include "velmora/adapters/scan_protocol/page_source.h"

namespace velmora::scanner {

/// Scans in colour where the device can, near 200 dots an inch, the whole of its bed. One operation at a time in a
/// process: the library keeps its state in globals. A back end may hang, crash or end the process.
class SaneSource final : public PageSource {
  public:
    std::vector<Device> devices(Watch& watch) override;
    std::optional<Image> scan(const std::string& device, Watch& watch) override;
};

}  // namespace velmora::scanner
