#include "velmora/adapters/documents/grid_sheet.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

#include <xlsxwriter.h>

#include "velmora/adapters/documents/files.h"
#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::documents {

namespace {

constexpr int twipsOfPixel = 15;
constexpr int leastPixels = 24;
constexpr int mostPixels = 1790;  ///< 255 characters, the widest column there is
constexpr std::size_t longestText = 32767;
constexpr double exactWhole = 9007199254740992.0;  ///< beyond it a number of a spreadsheet loses digits
// The format counts a 29 February 1900, which never was: before the next day its serials are not the language's.
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

int pixelsOf(int twips) {
    return std::clamp(twips / twipsOfPixel, leastPixels, mostPixels);
}

/// How many bytes of a sequence follow its first one; none when that begins no sequence.
std::optional<std::size_t> following(unsigned char first) {
    if (first < 0x80) {
        return 0;
    }
    if (first >= 0xC2 && first <= 0xDF) {
        return 1;
    }
    return first >= 0xE1 && first <= 0xEC ? std::optional<std::size_t>(2) : std::nullopt;
}

/// Whether a text can go into a cell untouched: short, without line ends of two characters and certainly valid. Rare
/// letters are not looked at closely: their texts take the long way.
bool isFit(const std::string& text) {
    if (text.size() > longestText) {
        return false;
    }
    for (std::size_t i = 0; i < text.size();) {
        const auto count = following(static_cast<unsigned char>(text[i]));
        if (!count || text[i] == '\r' || text[i] == '\0' || i + *count >= text.size()) {
            return false;
        }
        for (std::size_t end = ++i + *count; i < end; ++i) {
            if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
                return false;
            }
        }
    }
    return true;
}

/// As a cell can hold it: valid UTF-8, lines ended by a line feed, not too long.
// Chosen C-213: a cell takes 32.767 units and no more; a longer text is cut, and its last character says so.
std::string cellText(const std::string& text) {
    std::string result = runtime::toUtf8(runtime::toCodePoints(text));
    // The library takes a text up to its first zero.
    std::erase(result, '\0');
    if (result.find('\r') != std::string::npos) {
        result = runtime::Replace(runtime::Replace(result, "\r\n", "\n"), "\r", "\n");
    }
    if (result.size() > longestText && runtime::Len(result) > longestText) {
        result = runtime::Left(result, longestText - 1) + "…";
    }
    return result;
}

}  // namespace

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
        columns_.push_back({.field = static_cast<std::size_t>(column.field),
                            .caption = cellText(column.caption),
                            .pixels = pixelsOf(column.width),
                            .right = column.right,
                            .kind = kind,
                            .value = masked || column.right ? format(numberFormat(column.mask), column.right) : nullptr,
                            .date = kind == MaskKind::date ? nullptr : format("dd/mm/yyyy", column.right),
                            .moment = kind == MaskKind::date ? nullptr : format("dd/mm/yyyy hh:mm:ss", column.right)});
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

// In this mode of the library rows are written in their order and never gone back to.
void GridSheet::beginSheet() {
    sheet_ = book_.addSheet(heading_.title);
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const auto at = static_cast<lxw_col_t>(i);
        book_.check(
            worksheet_set_column_pixels(sheet_, at, at, static_cast<std::uint32_t>(columns_[i].pixels), nullptr));
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

void GridSheet::endSheet() {
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
        const Column& column = columns_[i];
        if (column.field < row.size()) {
            writeCell(column, static_cast<lxw_col_t>(i), row[column.field]);
        }
    }
    ++row_;
}

void GridSheet::writeCell(const Column& column, std::uint16_t at, const sql::Value& value) {
    std::visit(
        [&](const auto& v) {
            using Kind = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<Kind, bool>) {
                if (column.kind == MaskKind::none) {
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
            // Null is an empty cell, and a binary value has no text on a grid either.
        },
        value.raw());
}

void GridSheet::writeNumber(const Column& column, std::uint16_t at, double value) {
    switch (column.kind) {
        case MaskKind::yesNo:
            book_.check(worksheet_write_number(sheet_, row_, at, value != 0 ? 1 : 0, column.value));
            return;
        case MaskKind::date:
            if (!hasSerial(value)) {
                writePlainText(column, at, runtime::CStr(value));
                return;
            }
            [[fallthrough]];
        case MaskKind::number:
        case MaskKind::none:
            book_.check(worksheet_write_number(sheet_, row_, at, value, column.value));
    }
}

// A grid shows a text under a mask as the number or the date that it reads as; so does the sheet. Any other text stays
// one, whatever it begins with.
void GridSheet::writeText(const Column& column, std::uint16_t at, const std::string& text) {
    if (column.kind == MaskKind::date && runtime::IsDate(text)) {
        writeDate(column, at, runtime::CDate(text));
    } else if (column.kind != MaskKind::none && runtime::IsNumeric(text)) {
        writeNumber(column, at, runtime::CDbl(text));
    } else {
        writePlainText(column, at, text);
    }
}

void GridSheet::writeDate(const Column& column, std::uint16_t at, const runtime::Date& date) {
    const double serial = runtime::toSerial(date);
    if (!hasSerial(serial)) {
        writePlainText(column, at, runtime::CStr(date));
        return;
    }
    lxw_format* plain = serial == std::floor(serial) ? column.date : column.moment;
    book_.check(worksheet_write_number(sheet_, row_, at, serial, column.kind == MaskKind::date ? column.value : plain));
}

void GridSheet::writePlainText(const Column& column, std::uint16_t at, const std::string& text) {
    if (text.empty()) {
        return;
    }
    const char* fit = text.c_str();
    std::string made;
    if (!isFit(text)) {
        made = cellText(text);
        fit = made.c_str();
    }
    book_.check(worksheet_write_string(sheet_, row_, at, fit, column.value));
}

}  // namespace velmora::documents
