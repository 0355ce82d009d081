#pragma once
// Scans a page to a file: the stand-in for MIRTOL.jMirtol.

#include <memory>
#include <string>
#include <string_view>

#include "velmora/adapters/painting/graphics.h"
#include "velmora/adapters/scan_protocol/page_source.h"
#include "velmora/adapters/scanner/background_work.h"
#include "velmora/platform/components/components.h"
#include "velmora/platform/screen/screen.h"

namespace velmora::scanner {

/// Errors are shown to the user and not raised: `resultado` says whether the file was written.
class PageScanner final : public components::Scanner {
  public:
    PageScanner(screen::Screen& screen, std::shared_ptr<PageSource> source,
                std::shared_ptr<painting::Graphics> graphics, Patience patience = {});

    void setFichero(std::string_view path) override { path_ = path; }
    /// Scans one page with the only device, with that of SANE_DEFAULT_DEVICE, or with the one that the user chooses,
    /// and writes it as a PDF.
    void jConfig() override;
    bool resultado() const override { return written_; }

  private:
    /// nullopt when the user closed the choice.
    std::optional<std::string> chooseDevice();
    std::optional<Image> scan(const std::string& device);
    void write(const Image& page);
    void tell(const std::string& text);

    screen::Screen& screen_;
    std::shared_ptr<PageSource> source_;
    std::shared_ptr<painting::Graphics> graphics_;
    Patience patience_;
    std::string path_;
    bool written_ = false;
};

}  // namespace velmora::scanner
