#include "velmora/adapters/com/text.h"

#include "velmora/adapters/com/com_headers.h"

namespace velmora::com {

std::wstring toWide(std::string_view utf8) {
    const int bytes = static_cast<int>(utf8.size());
    const int units = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, text.data(), units);
    return text;
}

std::string fromWide(std::wstring_view utf16) {
    const int units = static_cast<int>(utf16.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, utf16.data(), units, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, utf16.data(), units, text.data(), bytes, nullptr, nullptr);
    return text;
}

}  // namespace velmora::com
