#pragma once
// Contents of a proposal's papers: the customer's, with prices and no costs, and the shop's.

#include <string>

#include "velmora/paper/sheet.h"
#include "velmora/paper/stored_proposal.h"

namespace velmora::paper {

/// "000123"
std::string numberOf(const StoredProposal& proposal);

/// Piece, sketch, measures, material, price of piece and lot, remarks.
Sheet customerSheet(const StoredProposal& proposal);

/// Stock to cut, weights, labour, and all costs.
Sheet shopSheet(const StoredProposal& proposal);

}  // namespace velmora::paper
