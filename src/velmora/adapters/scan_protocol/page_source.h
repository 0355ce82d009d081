#pragma once
// Sources of pages: devices by name, and the image of a page.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmora::scanner {

struct Device {
    std::string name;   ///< the system's name
    std::string title;  ///< shown to the user
};

/// A page, row by row from the top left, 8 bits per sample.
struct Image {
    int width = 0;  ///< pixels
    int height = 0;
    int channels = 1;  ///< 1: grey, 3: red, green, blue
    double dotsPerInchAcross = 0;
    double dotsPerInchDown = 0;
    std::vector<std::uint8_t> samples;
};

/// Progress and cancellation of an operation, shared by the thread that runs it and the one that waits for it.
class Watch {
  public:
    /// Reports progress; `fraction` from 0 to 1, nullopt when the end is not known.
    void advance(std::optional<double> fraction) {
        fraction_ = fraction.value_or(unknown);
        ++beats_;
    }
    bool cancelled() const { return cancelled_; }

    void cancel() { cancelled_ = true; }
    std::optional<double> fraction() const {
        const double value = fraction_;
        return value < 0 ? std::nullopt : std::optional(value);
    }
    /// Incremented by every advance.
    std::size_t beats() const { return beats_; }

  private:
    static constexpr double unknown = -1;
    std::atomic<bool> cancelled_ = false;
    std::atomic<double> fraction_ = unknown;
    std::atomic<std::size_t> beats_ = 0;
};

/// Calls may take long and are made on a background thread, one at a time.
class PageSource {
  public:
    virtual ~PageSource() = default;
    /// Errors: RuntimeError with a text for the user.
    virtual std::vector<Device> devices(Watch& watch) = 0;
    /// One page. nullopt when the watch, or the user at the device, cancelled it. Errors: RuntimeError with a text for
    /// the user.
    virtual std::optional<Image> scan(const std::string& device, Watch& watch) = 0;
};

}  // namespace velmora::scanner
