#include "velmora/adapters/documents/sheet_printer.h"

namespace velmora::documents {

void SheetPrinter::print(const paper::Paper& paper) {
    writeAndShow({paper}, services_, *graphics_, choices_);
}

void SheetPrinter::printCustomersSheet(std::int32_t number, const paper::LadderRequest& ladder) {
    if (session_ == nullptr) {
        runtime::raise(runtime::objectNotSet);
    }
    const paper::Company company = choices_.company ? choices_.company() : paper::Company();
    print(paper::customersPaper(session_->Connection(), number, company, ladder));
}

}  // namespace velmora::documents
