#pragma once
// Tables as text files, as a Spanish spreadsheet writes them: values separated by semicolons, quoted where they need
// it, one row a line. Bytes in, texts out: nothing here knows a table or a database.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::workshop_data {

/// One row of a file. A quoted value may contain line ends, so rows and lines are counted apart.
struct CsvRecord {
    std::size_t line = 1;  ///< in which the row begins, from 1
    std::vector<std::string> values;

    friend bool operator==(const CsvRecord&, const CsvRecord&) = default;
};

/// Why a file cannot be read as a table; Spanish.
struct CsvFault {
    std::size_t line = 1;
    std::string reason;

    friend bool operator==(const CsvFault&, const CsvFault&) = default;
};

struct CsvContent {
    std::vector<CsvRecord> records;  ///< the heading included; rows without any value are left out
    std::optional<CsvFault> fault;   ///< where the reading ended; `records` are those before
};

/// The file as UTF-8, without its mark: from UTF-8, with or without a mark, and everything else from Windows-1252.
/// Nothing for a file that is no text of either: with a null character, as every UTF-16 text has, or a byte that
/// Windows-1252 does not know.
std::optional<std::string> textOfBytes(std::string_view bytes);

/// The rows of a text of any length. Line ends are CR LF, LF or CR. A quote that is not the first character of a value
/// stands for itself.
CsvContent parseCsv(std::string_view text);

/// A file that `textOfBytes` and `parseCsv` take back: UTF-8 with a mark, by which spreadsheets know it, and CR LF.
std::string csvOf(const std::vector<std::vector<std::string>>& rows);

}  // namespace velmora::workshop_data
