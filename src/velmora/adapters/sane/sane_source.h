#pragma once
// Pages from the system's scanners through SANE.

#include "velmora/adapters/scan_protocol/page_source.h"

namespace velmora::scanner {

/// Scans in colour if the device can, near 200 dots per inch, the whole bed. One operation at a time per process: the
/// library keeps its state in globals. A back end may hang, crash or end the process.
class SaneSource final : public PageSource {
  public:
    std::vector<Device> devices(Watch& watch) override;
    std::optional<Image> scan(const std::string& device, Watch& watch) override;
};

}  // namespace velmora::scanner
