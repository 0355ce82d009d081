#pragma once
// Papers about a proposal's price: why it is what it is, and what it would be for other numbers of pieces.

#include <span>
#include <string>

#include "velmora/estimate/explanation/explanation.h"
#include "velmora/estimate/price_ladder.h"
#include "velmora/paper/sheet.h"
#include "velmora/paper/stored_proposal.h"

namespace velmora::paper {

/// A ladder that is wanted on paper.
struct LadderRequest {
    estimate::SawCharge saw = estimate::SawCharge::asItStands;
    std::vector<double> pieces = {};
};

/// Every figure with its rule under its topic; for the shop alone, since it shows costs. `subject` names the proposal.
Sheet explanationSheet(const std::string& subject, std::span<const estimate::Explanation> figures);

/// The ladder on a sheet of its own.
Sheet ladderSheet(const std::string& subject, std::span<const estimate::LadderStep> steps);

/// What the ladder of a stored proposal is worked out from; amounts that are missing count as zero.
estimate::LadderBasis ladderBasis(const StoredProposal& proposal);

/// Puts the ladder of the stored proposal below the prices of its customer's sheet.
void addLadder(Sheet& customersSheet, const StoredProposal& proposal, const LadderRequest& request);

}  // namespace velmora::paper
