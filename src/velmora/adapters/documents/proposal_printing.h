#pragma once
// A proposal on paper: the stand-in for VELMORAIMP.VMORAIMP.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "velmora/adapters/painting/graphics.h"
#include "velmora/paper/company.h"
#include "velmora/paper/papers.h"
#include "velmora/platform/components/components.h"
#include "velmora/platform/system/system.h"

namespace velmora::documents {

/// A paper in its file.
struct PrintedPaper {
    paper::Sheet sheet;
    std::string path;
};

/// What the program decides about papers, asked at each print. What is not set is as without it.
struct PaperChoices {
    std::function<paper::Company()> company = {};
    /// A folder for the files; empty: the temporary one.
    std::function<std::string()> folder = {};
    /// Shows the written papers; without it each is opened with its associated program.
    std::function<void(const std::vector<PrintedPaper>&)> view = {};
};

/// Writes papers as PDF and shows them. No file gets its final name before all are drawn. Errors: 75 and 76 for a file
/// that cannot be written or opened.
void writeAndShow(const std::vector<paper::Paper>& papers, system::Services& services, painting::Graphics& graphics,
                  const PaperChoices& choices);

/// Reads a proposal by its number as it was last saved, writes its papers as PDF in a folder and shows them.
class ProposalPrinting final : public components::Printing {
  public:
    /// `graphics` may be shared with other components, so that the toolkit's application is created once.
    ProposalPrinting(system::Services& services, std::shared_ptr<painting::Graphics> graphics,
                     PaperChoices choices = {})
        : services_(services), graphics_(std::move(graphics)), choices_(std::move(choices)) {}

    void setMyBd(session::Session& session) override { session_ = &session; }

    /// The customer's sheet, "Propuesta_000123.pdf", and the shop's, "HojaCorte_000123.pdf", each in a file of its own;
    /// for an order the shop's alone. No file gets its final name before all are drawn. Errors: 91 without a session,
    /// 5 for a number that no proposal has, 75 and 76 for a file that cannot be written or opened, those of the
    /// database.
    void jPrintPropuesta(std::int32_t nIdDpi, bool bOrden) override;

  private:
    system::Services& services_;
    std::shared_ptr<painting::Graphics> graphics_;
    PaperChoices choices_;
    session::Session* session_ = nullptr;
};

}  // namespace velmora::documents
