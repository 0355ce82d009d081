#pragma once
// A grid's rows as sheets of a workbook: title, captions, and one row per record, in the grid's order and with its
// masks. A column is as wide as its longest text, up to 80 digits.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/documents/cell_format.h"
#include "velmora/adapters/documents/workbook.h"
#include "velmora/platform/runtime/date.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::documents {

/// The number of rows that a sheet of the format can hold, title and captions included.
inline constexpr std::size_t rowsOfSheet = 1'048'576;

class GridSheet {
  public:
    struct Heading {
        std::string title;
        runtime::Date written;
    };
    /// Called periodically with the number of rows written so far; false cancels the work.
    using GoOn = std::function<bool(std::size_t rows)>;

    /// `rowsPerSheet` includes title and captions: further rows go to a second sheet.
    GridSheet(Workbook& book, Heading heading, const std::vector<screen::GridColumn>& columns,
              std::size_t rowsPerSheet = rowsOfSheet);

    /// Writes all rows; the set is at its end afterwards. False when `goOn` cancelled it.
    bool write(sql::Recordset& rows, const GoOn& goOn);

  private:
    /// Space needed by the cells of one column so far.
    struct Room {
        int pixels = 0;
        double greatest = -1;  ///< of the numbers whose text was measured
        double least = 0;      ///< the same for negative numbers, without the sign

        void take(std::string_view text);
        void take(int needed);
    };
    struct Column {
        std::size_t field;
        std::string caption;
        bool right;
        MaskKind kind;
        std::string mask;
        lxw_format* value;  ///< nullptr: plain
        lxw_format* date;   ///< for dates without a mask of their own
        lxw_format* moment;
        int dayPixels;
        int momentPixels;
        Room room;
    };

    lxw_format* format(const std::string& number, bool right);
    void beginSheet();
    void endSheet();
    void writeRow(const sql::Row& row);
    void writeCell(Column& column, std::uint16_t at, const sql::Value& value);
    void measureNumber(Column& column, double value);
    void writeNumber(Column& column, std::uint16_t at, double value);
    void writeText(Column& column, std::uint16_t at, const std::string& text);
    void writeDate(Column& column, std::uint16_t at, const runtime::Date& date);
    void writePlainText(Column& column, std::uint16_t at, const std::string& text);

    Workbook& book_;
    Heading heading_;
    std::size_t rowsPerSheet_;
    std::vector<Column> columns_;
    lxw_format* title_;
    lxw_format* note_;
    lxw_format* caption_;
    lxw_format* captionRight_;
    lxw_worksheet* sheet_ = nullptr;
    std::uint32_t row_ = 0;
};

}  // namespace velmora::documents
