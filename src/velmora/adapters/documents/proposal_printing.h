#pragma once
// A proposal on paper: the stand-in for VELMORAIMP.VMORAIMP.

#include <memory>

#include "velmora/adapters/painting/graphics.h"
#include "velmora/platform/components/components.h"
#include "velmora/platform/system/system.h"

namespace velmora::documents {

/// Reads a proposal by its number as it was last saved, writes its papers as PDF in the temporary folder and opens
/// them.
class ProposalPrinting final : public components::Printing {
  public:
    /// `graphics` may be shared with other components, so that the toolkit's application is created once.
    ProposalPrinting(system::Services& services, std::shared_ptr<painting::Graphics> graphics)
        : services_(services), graphics_(std::move(graphics)) {}

    void setMyBd(session::Session& session) override { session_ = &session; }

    /// The customer's sheet, "Propuesta_000123.pdf", and the shop's, "HojaCorte_000123.pdf", each in a file of its own;
    /// for an order the shop's alone. No file gets its final name before all are drawn. Errors: 91 without a session,
    /// 5 for a number that no proposal has, 75 and 76 for a file that cannot be written or opened, those of the
    /// database.
    void jPrintPropuesta(std::int32_t nIdDpi, bool bOrden) override;

  private:
    system::Services& services_;
    std::shared_ptr<painting::Graphics> graphics_;
    session::Session* session_ = nullptr;
};

}  // namespace velmora::documents
