#include "velmora/adapters/documents/grid_sheet.h"

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <utility>
#include <variant>

#include <xlsxwriter.h>

#include "velmora/adapters/documents/cell_text.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/numbers.h"

namespace velmora::documents {

namespace {

constexpr int leastPixels = 24;
// Chosen C-277: a column is at most 80 digits wide, so that a long text does not push the other columns out of view.
constexpr int mostPixels = 565;
constexpr int columnPadding = 8;   ///< pixels: both sides and the line between two cells
constexpr int filterButton = 20;   ///< pixels, added to each caption
constexpr double boldness = 1.15;  ///< width of bold letters relative to plain ones
/// The longest display of a number without a format, whatever its number of digits.
constexpr const char* widestGeneral = "-0,00000000000";
constexpr const char* logicalValue = "VERDADERO";
constexpr const char* dayMask = "dd/mm/yyyy";
constexpr const char* momentMask = "dd/mm/yyyy hh:nn:ss";
constexpr double exactWhole = 9007199254740992.0;  ///< largest whole number that a spreadsheet represents exactly
// The format has a day 29 February 1900; serials before the day after it differ from the language's.
constexpr double firstCommonSerial = 61;
constexpr double endOfSerials = 2958466;  ///< the year 10000
constexpr std::size_t rowsBetweenCalls = 1000;
constexpr lxw_row_t titleRow = 0;
constexpr lxw_row_t noteRow = 1;
constexpr lxw_row_t captionRow = 2;
constexpr lxw_row_t firstRow = 3;

bool hasSerial(double serial) {
    return serial >= firstCommonSerial && serial < endOfSerials;
}

/// The width of a date whose day, month and hour have the most digits.
int pixelsOfMoment(const std::string& mask) {
    return pixelsOfText(runtime::Format(runtime::Date::of(2028, 9, 27, 22, 28, 28), mask));
}

int pixelsOfCaption(const std::string& caption) {
    return static_cast<int>(pixelsOfText(caption) * boldness) + filterButton;
}

}  // namespace

void GridSheet::Room::take(std::string_view text) {
    take(pixelsOfText(text));
}

void GridSheet::Room::take(int needed) {
    pixels = std::max(pixels, needed);
}

GridSheet::GridSheet(Workbook& book, Heading heading, const std::vector<screen::GridColumn>& columns,
                     std::size_t rowsPerSheet)
    : book_(book),
      heading_(std::move(heading)),
      rowsPerSheet_(std::max<std::size_t>(rowsPerSheet, firstRow + 1)),
      title_(book.addFormat()),
      note_(book.addFormat()),
      caption_(book.addFormat()),
      captionRight_(book.addFormat()) {
    format_set_bold(title_);
    format_set_font_size(title_, 14);
    format_set_font_color(note_, 0x606060);
    for (lxw_format* caption : {caption_, captionRight_}) {
        format_set_bold(caption);
        format_set_bg_color(caption, 0xDCE4EC);
        format_set_bottom(caption, LXW_BORDER_THIN);
        format_set_text_wrap(caption);
        format_set_align(caption, LXW_ALIGN_VERTICAL_CENTER);
    }
    format_set_align(captionRight_, LXW_ALIGN_RIGHT);
    for (const screen::GridColumn& column : columns) {
        if (!column.visible || column.field < 0) {
            continue;
        }
        const MaskKind kind = kindOf(column.mask);
        const bool masked = kind != MaskKind::none;
        const bool dated = kind == MaskKind::date;
        columns_.push_back({.field = static_cast<std::size_t>(column.field),
                            .caption = cellText(column.caption),
                            .right = column.right,
                            .kind = kind,
                            .mask = column.mask,
                            .value = masked || column.right ? format(numberFormat(column.mask), column.right) : nullptr,
                            .date = dated ? nullptr : format(dayMask, column.right),
                            .moment = dated ? nullptr : format(numberFormat(momentMask), column.right),
                            .dayPixels = pixelsOfMoment(dated ? column.mask : dayMask),
                            .momentPixels = pixelsOfMoment(dated ? column.mask : momentMask),
                            .room = {}});
    }
}

lxw_format* GridSheet::format(const std::string& number, bool right) {
    lxw_format* made = book_.addFormat();
    if (!number.empty()) {
        format_set_num_format(made, number.c_str());
    }
    if (right) {
        format_set_align(made, LXW_ALIGN_RIGHT);
    }
    return made;
}

// In this mode of the library rows are written in order, without going back.
void GridSheet::beginSheet() {
    sheet_ = book_.addSheet(heading_.title);
    for (Column& column : columns_) {
        column.room = {.pixels = pixelsOfCaption(column.caption)};
    }
    book_.check(worksheet_write_string(sheet_, titleRow, 0, cellText(heading_.title).c_str(), title_));
    const std::string note = "Exportado el " + runtime::Format(heading_.written, "dd/mm/yyyy hh:nn");
    book_.check(worksheet_write_string(sheet_, noteRow, 0, note.c_str(), note_));
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const Column& column = columns_[i];
        book_.check(worksheet_write_string(sheet_, captionRow, static_cast<lxw_col_t>(i), column.caption.c_str(),
                                           column.right ? captionRight_ : caption_));
    }
    worksheet_freeze_panes(sheet_, firstRow, 0);
    worksheet_set_landscape(sheet_);
    worksheet_set_paper(sheet_, 9);  // A4
    worksheet_fit_to_pages(sheet_, 1, 0);
    book_.check(worksheet_repeat_rows(sheet_, captionRow, captionRow));
    book_.check(worksheet_set_footer(sheet_, "&R&P / &N"));
    row_ = firstRow;
}

// The library writes the columns' widths before the rows when it assembles the file, so they can be set last, and no
// row has to be read twice. Differs D-269: a column is as wide as its contents; the grid's own widths would truncate
// texts and numbers.
void GridSheet::endSheet() {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const auto at = static_cast<lxw_col_t>(i);
        const int pixels = std::clamp(columns_[i].room.pixels + columnPadding, leastPixels, mostPixels);
        book_.check(worksheet_set_column_pixels(sheet_, at, at, static_cast<std::uint32_t>(pixels), nullptr));
    }
    if (!columns_.empty()) {
        const auto lastColumn = static_cast<lxw_col_t>(columns_.size() - 1);
        book_.check(worksheet_autofilter(sheet_, captionRow, 0, std::max(row_ - 1, captionRow), lastColumn));
    }
}

bool GridSheet::write(sql::Recordset& rows, const GoOn& goOn) {
    beginSheet();
    std::size_t written = 0;
    while (const sql::Row* row = rows.peek(written)) {
        if (row_ >= rowsPerSheet_) {
            endSheet();
            beginSheet();
        }
        writeRow(*row);
        if (++written % rowsBetweenCalls == 0 && !goOn(written)) {
            return false;
        }
    }
    endSheet();
    return true;
}

void GridSheet::writeRow(const sql::Row& row) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        Column& column = columns_[i];
        if (column.field < row.size()) {
            writeCell(column, static_cast<lxw_col_t>(i), row[column.field]);
        }
    }
    ++row_;
}

void GridSheet::writeCell(Column& column, std::uint16_t at, const sql::Value& value) {
    std::visit(
        [&](const auto& v) {
            using Kind = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<Kind, bool>) {
                if (column.kind == MaskKind::none) {
                    column.room.take(logicalValue);
                    book_.check(worksheet_write_boolean(sheet_, row_, at, v ? 1 : 0, column.value));
                } else {
                    writeNumber(column, at, v ? -1.0 : 0.0);
                }
            } else if constexpr (std::is_same_v<Kind, std::int64_t>) {
                const auto number = static_cast<double>(v);
                if (std::abs(number) < exactWhole) {
                    writeNumber(column, at, number);
                } else {
                    writePlainText(column, at, runtime::CStr(v));
                }
            } else if constexpr (std::is_same_v<Kind, double>) {
                writeNumber(column, at, v);
            } else if constexpr (std::is_same_v<Kind, std::string>) {
                writeText(column, at, v);
            } else if constexpr (std::is_same_v<Kind, runtime::Date>) {
                writeDate(column, at, v);
            }
            // Null gives an empty cell; a binary value has no text on a grid either.
        },
        value.raw());
}

void GridSheet::writeNumber(Column& column, std::uint16_t at, double value) {
    switch (column.kind) {
        case MaskKind::yesNo:
            column.room.take("Sí");
            book_.check(worksheet_write_number(sheet_, row_, at, value != 0 ? 1 : 0, column.value));
            return;
        case MaskKind::date:
            if (!hasSerial(value)) {
                writePlainText(column, at, runtime::CStr(value));
                return;
            }
            column.room.take(column.dayPixels);
            break;
        case MaskKind::number:
        case MaskKind::none:
            measureNumber(column, value);
    }
    book_.check(worksheet_write_number(sheet_, row_, at, value, column.value));
}

// The text of a number under a mask grows with the number, so only a number greater than all before is measured.
void GridSheet::measureNumber(Column& column, double value) {
    double& widest = value < 0 ? column.room.least : column.room.greatest;
    const bool plain = column.kind == MaskKind::none;
    const bool whole = value == std::floor(value);
    if (!plain || whole) {
        if (std::abs(value) <= widest) {
            return;
        }
        widest = std::abs(value);
    }
    const std::string text = plain ? runtime::CStr(value) : runtime::Format(value, column.mask);
    column.room.take(plain && text.size() > std::string_view(widestGeneral).size() ? widestGeneral : text);
}

// A grid shows a text under a mask as the number or date that it represents; so does the sheet. Any other text is
// written as text, whatever it begins with.
void GridSheet::writeText(Column& column, std::uint16_t at, const std::string& text) {
    if (column.kind == MaskKind::date && runtime::IsDate(text)) {
        writeDate(column, at, runtime::CDate(text));
    } else if (column.kind != MaskKind::none && runtime::IsNumeric(text)) {
        writeNumber(column, at, runtime::CDbl(text));
    } else {
        writePlainText(column, at, text);
    }
}

void GridSheet::writeDate(Column& column, std::uint16_t at, const runtime::Date& date) {
    const double serial = runtime::toSerial(date);
    if (!hasSerial(serial)) {
        writePlainText(column, at, runtime::CStr(date));
        return;
    }
    const bool isDay = serial == std::floor(serial);
    const bool masked = column.kind == MaskKind::date;
    column.room.take(isDay ? column.dayPixels : column.momentPixels);
    lxw_format* plain = isDay ? column.date : column.moment;
    book_.check(worksheet_write_number(sheet_, row_, at, serial, masked ? column.value : plain));
}

void GridSheet::writePlainText(Column& column, std::uint16_t at, const std::string& text) {
    if (text.empty()) {
        return;
    }
    const char* fit = text.c_str();
    std::string made;
    if (!isPlainCellText(text)) {
        made = cellText(text);
        fit = made.c_str();
    }
    column.room.take(fit);
    book_.check(worksheet_write_string(sheet_, row_, at, fit, column.value));
}

}  // namespace velmora::documents
