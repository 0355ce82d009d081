// velmora-scan: lists scanners and scans a page for the program that started it. adapters/scan_protocol/messages.h
// documents arguments and output. It is a separate process because the scanners' back ends are loaded into whatever
// links their library: their licences and crashes stay in it.

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "velmora/adapters/sane/sane_source.h"
#include "velmora/adapters/scan_protocol/messages.h"
#include "velmora/apps/scan/attendant.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/version.h"

namespace {

using namespace velmora;
namespace message = scanner::message;

constexpr int wrongUse = 2;

/// The standard output. Output of a back end is redirected to the standard error output, so that it does not mix with
/// the messages.
class Output {
  public:
    Output() : file_(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)) {
        ::dup2(STDERR_FILENO, STDOUT_FILENO);
    }

    void write(const void* bytes, std::size_t count) const {
        const char* next = static_cast<const char*>(bytes);
        while (count > 0) {
            const ssize_t written = ::write(file_, next, count);
            if (written >= 0) {
                next += written;
                count -= static_cast<std::size_t>(written);
            } else if (errno != EINTR) {
                std::_Exit(EXIT_FAILURE);
            }
        }
    }
    void write(const std::string& text) const { write(text.data(), text.size()); }

  private:
    int file_;
};

void list(scanner::PageSource& source, const Output& output) {
    scanner::Watch watch;
    std::vector<scanner::Device> devices;
    {
        const scan::Attendant attendant(watch, [&](auto fraction) { output.write(message::progress(fraction)); });
        devices = source.devices(watch);
    }
    for (const scanner::Device& device : devices) {
        output.write(message::device(device));
    }
}

void scanPage(scanner::PageSource& source, const std::string& device, const Output& output) {
    scanner::Watch watch;
    std::optional<scanner::Image> page;
    {
        const scan::Attendant attendant(watch, [&](auto fraction) { output.write(message::progress(fraction)); });
        page = source.scan(device, watch);
    }
    if (page) {
        output.write(message::page(*page));
        output.write(page->samples.data(), page->samples.size());
    }
}

int answer(const std::vector<std::string>& arguments) {
    if (arguments.size() == 1 && arguments[0] == "--version") {
        std::fputs(("velmora-scan " + platform::version() + "\n").c_str(), stdout);
        return EXIT_SUCCESS;
    }
    const bool listing = arguments.size() == 1 && arguments[0] == "list";
    const bool scanning = arguments.size() == 2 && arguments[0] == "scan";
    if (!listing && !scanning) {
        std::fputs(
            "velmora-scan list | velmora-scan scan DEVICE | velmora-scan --version\nEnds when its standard input is "
            "closed.\n",
            stderr);
        return wrongUse;
    }
    const Output output;
    output.write(message::greeting());
    scanner::SaneSource source;
    try {
        if (listing) {
            list(source, output);
        } else {
            scanPage(source, arguments[1], output);
        }
    } catch (const runtime::RuntimeError& e) {
        output.write(message::error(e.number(), e.description()));
        return EXIT_FAILURE;
    }
    output.write(message::end());
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    return answer({argv + 1, argv + argc});
}
