#pragma once
// Captions whose mnemonic is marked with "&".

#include <string>
#include <string_view>

namespace velmora::win32 {

/// The caption as it is read: without marks; "&&" is a plain "&".
std::wstring withoutMarks(std::wstring_view caption);

}  // namespace velmora::win32
