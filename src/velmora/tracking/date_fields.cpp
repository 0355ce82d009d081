#include "velmora/tracking/date_fields.h"

#include "velmora/platform/runtime/text.h"

namespace velmora::tracking {

namespace {

constexpr std::size_t shortestDate = 6;  // ddmmyy
constexpr std::size_t longestDate = 8;   // ddmmyyyy

}  // namespace

void leaveDateField(session::KestraUtil& oUtil, screen::TextBox& box) {
    const std::size_t length = runtime::Len(box.text());
    if (length >= shortestDate && length <= longestDate) {
        oUtil.SalirCampo(box, dateMask);
    } else {
        box.setText("");
        oUtil.SalirCampo(box);
    }
}

}  // namespace velmora::tracking
