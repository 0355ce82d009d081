#include "velmora/adapters/win32/text.h"

#include "velmora/adapters/win32/windows_api.h"

namespace velmora::win32 {

namespace {
constexpr char32_t firstOfPairs = 0x10000;
}

std::wstring toWide(std::string_view text) {
    const int size = static_cast<int>(text.size());
    const int units = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, result.data(), units);
    return result;
}

std::string fromWide(std::wstring_view text) {
    const int size = static_cast<int>(text.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, result.data(), bytes, nullptr, nullptr);
    return result;
}

std::wstring toWide(char32_t character) {
    if (character < firstOfPairs) {
        return {static_cast<wchar_t>(character)};
    }
    const char32_t offset = character - firstOfPairs;
    return {static_cast<wchar_t>(0xD800 + (offset >> 10)), static_cast<wchar_t>(0xDC00 + (offset & 0x3FF))};
}

std::wstring withLineEnds(std::wstring_view text) {
    std::wstring result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\n' && (i == 0 || text[i - 1] != L'\r')) {
            result += L'\r';
        }
        result += text[i];
    }
    return result;
}

}  // namespace velmora::win32
