#pragma once
// The protocol between velmora-scan, which alone links the library of the scanners, and the program that starts it.
//
//   velmora-scan list           which devices there are
//   velmora-scan scan DEVICE    one page
//
// The starting program cancels by closing velmora-scan's standard input. On its standard output velmora-scan writes
// lines in UTF-8, their fields apart by tabs; in a field, \t, \n and \\ stand for a tab, an end of line, a backslash:
//
//   velmora-scan 1                          first of all: the version of the protocol
//   progress F                              how far the work is, 0 to 1; "-" when its end is not known
//   device NAME TITLE                       one for each device
//   page WIDTH HEIGHT CHANNELS ACROSS DOWN  pixels, samples a pixel, dots an inch; WIDTH * HEIGHT * CHANNELS bytes
//                                           follow, then the next line
//   error NUMBER TEXT                       why there is no answer, for the user
//   end                                     the answer is whole; without a page, the user has cancelled at the device
//
// An answer counts only when it is whole: a program that crashes half way has said nothing.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/scan_protocol/page_source.h"

namespace velmora::scanner {

/// Each with its end of line.
namespace message {
std::string greeting();
std::string progress(std::optional<double> fraction);
std::string device(const Device& device);
/// What stands before the samples of the page.
std::string page(const Image& page);
std::string error(long number, std::string_view text);
std::string end();
}  // namespace message

/// Reads what velmora-scan writes, in pieces as they come.
class AnswerReader {
  public:
    /// Every message advances the watch.
    explicit AnswerReader(Watch& watch) : watch_(watch) {}

    /// Errors: the RuntimeError that the program tells; number 57 when it does not keep to the protocol.
    void take(std::string_view piece);

    /// Whether the answer has come to its end. Until then the rest is not to be relied on.
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
    std::string line_;         ///< the beginning of a line whose end has not come
    std::size_t missing_ = 0;  ///< samples of the page that have not come
    bool greeted_ = false;
    bool whole_ = false;
    std::vector<Device> devices_;
    std::optional<Image> page_;
};

}  // namespace velmora::scanner
