#pragma once
// Pages from the scanners that the system knows through SANE.

#include "velmora/adapters/scanner/page_source.h"

namespace velmora::scanner {

/// Scans in colour where the device can, near 200 dots an inch, the whole of its bed.
class SaneSource final : public PageSource {
  public:
    std::vector<Device> devices(Watch& watch) override;
    std::optional<Image> scan(const std::string& device, Watch& watch) override;
};

}  // namespace velmora::scanner
