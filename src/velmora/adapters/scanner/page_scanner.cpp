#include "velmora/adapters/scanner/page_scanner.h"

#include <cstdlib>
#include <utility>

#include "velmora/adapters/documents/files.h"
#include "velmora/adapters/scanner/device_form.h"
#include "velmora/adapters/scanner/page_pdf.h"
#include "velmora/platform/runtime/errors.h"

namespace velmora::scanner {

PageScanner::PageScanner(screen::Screen& screen, std::shared_ptr<PageSource> source,
                         std::shared_ptr<painting::Graphics> graphics, Patience patience)
    : screen_(screen), source_(std::move(source)), graphics_(std::move(graphics)), patience_(patience) {}

void PageScanner::jConfig() {
    written_ = false;
    try {
        if (const auto device = chooseDevice()) {
            if (const auto page = scan(*device)) {
                write(*page);
                written_ = true;
            }
        }
    } catch (const runtime::RuntimeError& e) {
        tell(e.description());
    }
}

// Chosen C-214: the user is asked for the scanner only when there are several and none of them is the user's default
// one.
std::optional<std::string> PageScanner::chooseDevice() {
    if (const char* own = std::getenv("SANE_DEFAULT_DEVICE"); own != nullptr && *own != '\0') {
        return own;
    }
    const auto progress = screen_.progress("Escanear");
    const auto devices = computeInBackground<std::vector<Device>>(
        [source = source_](Watch& watch) { return std::optional(source->devices(watch)); }, *progress,
        "Buscando escáneres…", patience_);
    if (progress->cancelled()) {
        return std::nullopt;
    }
    if (!devices || devices->empty()) {
        tell("No se encuentra ningún escáner.");
        return std::nullopt;
    }
    if (devices->size() == 1) {
        return devices->front().name;
    }
    DeviceForm form(*devices);
    screen_.showModal(form);
    return form.chosen() ? std::optional((*devices)[*form.chosen()].name) : std::nullopt;
}

std::optional<Image> PageScanner::scan(const std::string& device) {
    const auto progress = screen_.progress("Escanear");
    return computeInBackground<Image>([source = source_, device](Watch& watch) { return source->scan(device, watch); },
                                      *progress, "Escaneando la página…", patience_);
}

void PageScanner::write(const Image& page) {
    graphics_->require();
    documents::writeFile(path_, [&](QIODevice& out) { return writePage(page, out); });
}

void PageScanner::tell(const std::string& text) {
    screen_.show({.text = text, .icon = screen::Icon::critical, .title = "Escanear"});
}

}  // namespace velmora::scanner
