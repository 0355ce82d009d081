#pragma once
// Pages from velmora-scan, a program of its own: what a scanner's back end does there cannot harm this process.

#include <chrono>
#include <string>

#include "velmora/adapters/scan_protocol/messages.h"
#include "velmora/adapters/scan_protocol/page_source.h"

namespace velmora::scanner {

/// Starts the program once for each operation; it ends with the operation. Nothing is written to a file.
/// Errors besides those that the program tells: RuntimeError 53 when it cannot be started, 57 when it crashes or says
/// what is not understood.
class ScanProcess final : public PageSource {
  public:
    /// A cancelled program that has not ended within the grace is killed.
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
