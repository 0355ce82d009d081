#include "velmora/estimate/shown_proposal.h"

#include "velmora/estimate/field_names.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::estimate {

const std::string& ShownProposal::number() const {
    return fields_(money::proposal).text();
}

std::int32_t ShownProposal::key() const {
    return runtime::CLng(number());
}

bool ShownProposal::isNew() const {
    return !runtime::IsNumeric(number());
}

bool ShownProposal::isAccepted() const {
    return !fields_(money::accepted).text().empty();
}

bool ShownProposal::hasOrder() const {
    return !fields_(money::workOrder).text().empty();
}

double ShownProposal::units() const {
    const std::string& text = fields_(money::pieces).text();
    return runtime::IsNumeric(text) ? runtime::CDbl(text) : 0;
}

}  // namespace velmora::estimate
