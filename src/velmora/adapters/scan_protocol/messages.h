#pragma once
// The protocol between velmora-scan, the only program that links the scanner library, and the program that starts it.
//
//   velmora-scan list           lists the devices
//   velmora-scan scan DEVICE    scans one page
//
// The starting program cancels by closing velmora-scan's standard input. On its standard output velmora-scan writes
// lines in UTF-8 with tab-separated fields, in which tab, line feed and backslash are escaped as \t, \n and \\:
//
//   velmora-scan 1                          first line: the version of the protocol
//   progress F                              progress, 0 to 1; "-" when the end is not known
//   device NAME TITLE                       one for each device
//   page WIDTH HEIGHT CHANNELS ACROSS DOWN  pixels, samples per pixel, dots per inch; WIDTH * HEIGHT * CHANNELS bytes
//                                           follow, then the next line
//   error NUMBER TEXT                       the reason of a failure, a text for the user
//   end                                     end of the answer; without a page, the user cancelled at the device
//
// An answer without its end line is discarded, as when the program crashes half way.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/scan_protocol/page_source.h"

namespace velmora::scanner {

/// Each ends in a line feed.
namespace message {
std::string greeting();
std::string progress(std::optional<double> fraction);
std::string device(const Device& device);
/// The header before the samples of the page.
std::string page(const Image& page);
std::string error(long number, std::string_view text);
std::string end();
}  // namespace message

/// Parses the output of velmora-scan as it arrives in pieces.
class AnswerReader {
  public:
    /// Every message advances the watch.
    explicit AnswerReader(Watch& watch) : watch_(watch) {}

    /// Errors: the RuntimeError sent by the program; number 57 when it violates the protocol.
    void take(std::string_view piece);

    /// Whether the answer is complete. Until then the rest must not be used.
    bool whole() const { return whole_; }
    const std::vector<Device>& devices() const { return devices_; }
    std::optional<Image>& page() { return page_; }

  private:
    using Fields = std::vector<std::string>;
    struct Kind;

    std::string_view takeLine(std::string_view piece);
    std::string_view takeSamples(std::string_view piece);
    void readLine(std::string_view line);
    void readGreeting(const Fields& fields);
    void readProgress(const Fields& fields);
    void readDevice(const Fields& fields);
    void readPage(const Fields& fields);
    void readError(const Fields& fields);
    void readEnd(const Fields& fields);

    Watch& watch_;
    std::string line_;         ///< the part of a line received so far
    std::size_t missing_ = 0;  ///< number of samples of the page not received yet
    bool greeted_ = false;
    bool whole_ = false;
    std::vector<Device> devices_;
    std::optional<Image> page_;
};

}  // namespace velmora::scanner
