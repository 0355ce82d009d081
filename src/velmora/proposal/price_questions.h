#pragma once
// Why the price is what it is, and what it would be for other numbers of pieces: the two windows, their papers, and the
// question on each calculated field of the main form.

#include <memory>
#include <string>
#include <vector>

#include "velmora/estimate/explanation/explanations.h"
#include "velmora/estimate/field_map.h"
#include "velmora/estimate/price_ladder.h"
#include "velmora/paper/sheet_printing.h"
#include "velmora/platform/desk.h"
#include "velmora/proposal/price_ladder_form.h"

namespace velmora::proposal {

class PriceQuestions {
  public:
    PriceQuestions(estimate::FieldMap& fields, const estimate::Explanations::Sources& sources,
                   session::Session& session, platform::Desk& desk)
        : f_(fields), explanations_(fields, sources), session_(session), desk_(desk) {}

    /// To be called after each choice of a product type: the fields that it calculates tell their figure as a tool tip
    /// and offer the question. Chosen again, a type changes nothing: a load chooses it twice.
    void offerOnFields();

    /// The window of all figures, with the field that has the focus as the current one if it is a figure.
    void showWhy();
    /// The ladder alone.
    void showLadder();

  private:
    void showWhy(const estimate::TextBox* field);
    std::string subject() const;
    /// The name of a paper's file: with the proposal's number if it has one.
    std::string fileName(const char* paper) const;
    bool canPrint() const;
    std::unique_ptr<paper::SheetPrinting> printing() const;
    void printFigures(const std::vector<estimate::Explanation>& figures) const;
    void printLadder(const PriceLadderForm& form, const PriceLadderForm::Wanted& wanted) const;
    estimate::LadderBasis basis() const;

    estimate::FieldMap& f_;
    estimate::Explanations explanations_;
    session::Session& session_;
    platform::Desk& desk_;
    const data::ProductType* offeredFor_ = nullptr;  ///< the type whose figures the fields tell
};

}  // namespace velmora::proposal
