#pragma once
// Our own papers beside a proposal's, written and shown as those are.

#include <memory>
#include <utility>

#include "velmora/adapters/documents/proposal_printing.h"
#include "velmora/paper/sheet_printing.h"

namespace velmora::documents {

class SheetPrinter final : public paper::SheetPrinting {
  public:
    SheetPrinter(system::Services& services, std::shared_ptr<painting::Graphics> graphics, PaperChoices choices = {})
        : services_(services), graphics_(std::move(graphics)), choices_(std::move(choices)) {}

    void setMyBd(session::Session& session) override { session_ = &session; }
    void print(const paper::Paper& paper) override;
    void printCustomersSheet(std::int32_t number, const paper::LadderRequest& ladder) override;

  private:
    system::Services& services_;
    std::shared_ptr<painting::Graphics> graphics_;
    PaperChoices choices_;
    session::Session* session_ = nullptr;
};

}  // namespace velmora::documents
