#pragma once
// What a proposal's papers say: one for the customer, who sees prices and no cost, and one for the shop.

#include <string>

#include "velmora/paper/sheet.h"
#include "velmora/paper/stored_proposal.h"

namespace velmora::paper {

/// "000123"
std::string numberOf(const StoredProposal& proposal);

/// Piece, sketch, measures, material, price of piece and lot, remarks.
Sheet customerSheet(const StoredProposal& proposal);

/// Stock to cut, weights, labour, and what it all costs.
Sheet shopSheet(const StoredProposal& proposal);

}  // namespace velmora::paper
