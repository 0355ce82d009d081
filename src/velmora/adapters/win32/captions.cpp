#include "velmora/adapters/win32/captions.h"

namespace velmora::win32 {

std::wstring withoutMarks(std::wstring_view caption) {
    std::wstring result;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == L'&' && i + 1 < caption.size()) {
            ++i;
        }
        result += caption[i];
    }
    return result;
}

}  // namespace velmora::win32
