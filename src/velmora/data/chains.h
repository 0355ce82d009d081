#pragma once
// The roller chains that have values in table PDM. The position is stored in DPI_PDM_Tipo and PDM_Tipo, the text in
// DPI_PDM_Texto; the marks behind a size are two apostrophes.

#include <array>
#include <string_view>

namespace velmora::data {

inline constexpr auto chains = std::to_array<std::string_view>({
    "ISO 3/8''",       "ISO 1/2''",       "ISO 5/8''",       "ISO 3/4''",    "ISO 1''",
    "ISO 1 1/4''",     "ISO 1 1/2''",     "ISO 1 3/4''",     "ISO 2''",      "ISO 2 1/2''",
    "ASA 35 3/8''",    "ASA 40 1/2''",    "ASA 50 5/8''",    "ASA 60 3/4''", "ASA 80 1''",
    "ASA 100 1 1/4''", "ASA 120 1 1/2''", "ASA 140 1 3/4''", "ASA 160 2''",  "ASA 180 2 1/2''",
});

}  // namespace velmora::data
