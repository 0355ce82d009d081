#pragma once
// Prints our own papers beside a proposal's, in the way in which the program prints. A host does not have it.

#include <cstdint>

#include "velmora/paper/papers.h"
#include "velmora/paper/price_sheets.h"
#include "velmora/platform/components/components.h"
#include "velmora/platform/session/session.h"

namespace velmora::paper {

class SheetPrinting : public components::Component {
  public:
    /// The name under which a program that has it registers it.
    static constexpr const char* progId = "VELMORA.Hojas";

    virtual void setMyBd(session::Session& session) = 0;

    /// One paper. Errors: 75 and 76 for a file that cannot be written or opened.
    virtual void print(const Paper& paper) = 0;

    /// The customer's sheet of a proposal as last saved, with a price ladder. Errors: 91 without a session, 5 for a
    /// number that no proposal has, 75 and 76, those of the database.
    virtual void printCustomersSheet(std::int32_t number, const LadderRequest& ladder) = 0;
};

}  // namespace velmora::paper
