#pragma once
// Converts a grid's masks to number formats of a spreadsheet.

#include <string>
#include <string_view>

namespace velmora::documents {

enum class MaskKind {
    none,    ///< the value unchanged
    number,  ///< "000000", "#,##0.00 €"
    date,    ///< "dd/mm/yyyy"
    yesNo,   ///< "Yes/No"
};

MaskKind kindOf(std::string_view mask);

/// The number format with which a spreadsheet shows what the grid shows under the mask; empty for none.
std::string numberFormat(std::string_view mask);

}  // namespace velmora::documents
