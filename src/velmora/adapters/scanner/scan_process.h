#pragma once
// Pages from the separate program velmora-scan, so that a scanner's back end cannot harm this process.

#include <chrono>
#include <string>

#include "velmora/adapters/scan_protocol/messages.h"
#include "velmora/adapters/scan_protocol/page_source.h"

namespace velmora::scanner {

/// Starts the program once per operation; it ends with the operation. No files are written. Errors besides those that
/// the program reports: RuntimeError 53 when it cannot be started, 57 when it crashes or violates the protocol.
class ScanProcess final : public PageSource {
  public:
    /// A cancelled program that has not ended within the grace period is killed.
    explicit ScanProcess(std::string program, std::chrono::milliseconds grace = std::chrono::seconds(2))
        : program_(std::move(program)), grace_(grace) {}

    std::vector<Device> devices(Watch& watch) override;
    std::optional<Image> scan(const std::string& device, Watch& watch) override;

  private:
    /// False when the watch has cancelled it.
    bool run(const std::vector<std::string>& arguments, AnswerReader& answer, const Watch& watch) const;

    std::string program_;
    std::chrono::milliseconds grace_;
};

}  // namespace velmora::scanner
