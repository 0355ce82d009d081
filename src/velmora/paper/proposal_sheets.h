#pragma once
// Contents of a proposal's papers: the customer's, with prices and no costs, and the shop's.

#include <string>

#include "velmora/paper/company.h"
#include "velmora/paper/sheet.h"
#include "velmora/paper/stored_proposal.h"

namespace velmora::paper {

/// "000123"
std::string numberOf(const StoredProposal& proposal);

/// Piece, sketch, measures, material, price of piece and lot, remarks; with the company's head, validity and terms.
Sheet customerSheet(const StoredProposal& proposal, const Company& company = {});

/// Stock to cut, weights, labour, and all costs.
Sheet shopSheet(const StoredProposal& proposal);

}  // namespace velmora::paper
