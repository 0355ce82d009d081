#include "velmora/adapters/documents/sheet_composer.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "velmora/adapters/documents/column_widths.h"
#include "velmora/adapters/documents/logo.h"
#include "velmora/adapters/documents/paper_text.h"
#include "velmora/adapters/painting/fonts.h"
#include "velmora/adapters/painting/sketch_painter.h"
#include "velmora/adapters/painting/text.h"

namespace velmora::documents {

namespace {

using namespace sheet_measures;
using painting::toQt;
using paper::Block;
using paper::Column;
using paper::Field;
using paper::Fields;
using paper::Figures;
using paper::Paragraph;
using paper::Sheet;
using paper::SketchBlock;
using paper::Table;

constexpr double columnGap = 3 * unit;
constexpr double cellPadding = 5;
constexpr double firstOfTwo = 0.6;        ///< the share of the first of two columns
constexpr double captionOfTwo = 112;      ///< pixels
constexpr double captionShare = 0.6;      ///< of the column, in three and more
constexpr qsizetype wholeWord = 16;       ///< letters; a table's word up to this length is not broken
constexpr std::size_t keptOfClosing = 3;  ///< strips of the closing that are kept on one page with its rule
constexpr double logoHeight = 22 * pixelsOfMillimetre;
constexpr double logoWidth = 70 * pixelsOfMillimetre;

Strip space(double height) {
    return {.height = height, .draw = [](QPainter&, const QRectF&) {}};
}

/// The least width of a cell: of a number unbroken, of a text its widest word of at most `wholeWord` letters.
double leastWidth(const QString& text, bool number, const QFont& font) {
    double widest = 0;
    for (const QString& line : paragraphsOf(text)) {
        for (const QString& part : number ? QStringList{line} : line.split(QLatin1Char(' '))) {
            if (number || part.size() <= wholeWord) {
                widest = std::max(widest, widthOf(part, font));
            }
        }
    }
    return widest;
}

std::vector<ColumnRoom> roomsOf(const Table& table, const QFont& body, const QFont& strong) {
    std::vector<ColumnRoom> rooms;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        const Column& column = table.columns[i];
        double least = leastWidth(toQt(column.caption), false, strong);
        const auto consider = [&](const std::vector<std::string>& cells, const QFont& font) {
            if (i < cells.size()) {
                least = std::max(least, leastWidth(toQt(cells[i]), column.right, font));
            }
        };
        for (const std::vector<std::string>& row : table.rows) {
            consider(row, body);
        }
        consider(table.total, strong);
        rooms.push_back({.share = column.share, .least = least + 2 * cellPadding});
    }
    return rooms;
}

}  // namespace

QFont SheetFonts::sized(int pixels, QFont::Weight weight) {
    QFont font = painting::baseFont();
    font.setPixelSize(pixels);
    font.setWeight(weight);
    // Hinting fits widths to the screen's pixels; on paper letters would be spaced unevenly.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

std::vector<Strip> SheetComposer::compose(const Sheet& sheet) {
    strips_.clear();
    if (sheet.letterhead) {
        addLetterhead(*sheet.letterhead);
    }
    addTitle(sheet.title);
    addFields({.title = {}, .fields = sheet.heading, .columns = 2});
    for (const Block& block : sheet.blocks) {
        strips_.push_back(space(blockGap));
        std::visit([this](const auto& b) { add(b); }, block);
    }
    if (sheet.closing) {
        addClosing(*sheet.closing);
    }
    return std::move(strips_);
}

/// The logo on the left, the words on the right; without a logo the words on the left.
void SheetComposer::addLetterhead(const paper::Letterhead& letterhead) {
    const auto logo = std::make_shared<const Logo>(letterhead.logo);
    const QSizeF picture =
        logo->size().isEmpty() ? QSizeF(0, 0) : logo->size().scaled(logoWidth, logoHeight, Qt::KeepAspectRatio);
    const double room = width - picture.width() - (picture.isEmpty() ? 0 : columnGap);
    const QStringList name =
        letterhead.name.empty() ? QStringList() : linesOf(toQt(letterhead.name), fonts_.figure, room);
    QStringList lines;
    for (const std::string& line : letterhead.lines) {
        lines.append(linesOf(toQt(line), fonts_.small, room));
    }
    const double nameHeight = heightOf(name, fonts_.figure);
    const double words = nameHeight + heightOf(lines, fonts_.small);
    strips_.push_back({.height = std::max(picture.height(), words),
                       .draw =
                           [this, logo, picture, name, lines, nameHeight](QPainter& painter, const QRectF& place) {
                               logo->draw(painter, QRectF(place.topLeft(), picture));
                               const auto side = picture.isEmpty() ? Qt::AlignLeft : Qt::AlignRight;
                               drawLines(painter, place, name, fonts_.figure, ink, side);
                               drawLines(painter, place.adjusted(0, nameHeight, 0, 0), lines, fonts_.small, faint,
                                         side);
                           },
                       .keepWithNext = true});
    strips_.push_back(space(blockGap));
}

void SheetComposer::addClosing(const paper::Closing& closing) {
    const std::size_t first = strips_.size();
    strips_.push_back({.height = blockGap, .draw = [](QPainter& painter, const QRectF& place) {
                           painter.setPen(QPen(QColor(rule), 0.8));
                           const double y = place.bottom() - unit / 2;
                           painter.drawLine(QPointF(place.left(), y), QPointF(place.right(), y));
                       }});
    if (!closing.validity.empty()) {
        addRunningText(closing.validity, fonts_.strong, ink);
    }
    addRunningText(closing.terms, fonts_.small, faint);
    double height = 0;
    for (std::size_t i = first; i < strips_.size(); ++i) {
        height += strips_[i].height;
        strips_[i].keepWithNext = i + 1 < strips_.size() && i < first + keptOfClosing;
    }
    strips_[first].heightToBottom = height;
}

void SheetComposer::addTitle(const std::string& title) {
    const QString text = toQt(title);
    strips_.push_back({.height = lineHeight(fonts_.title) + 2 * unit,
                       .draw =
                           [this, text](QPainter& painter, const QRectF& place) {
                               drawLines(painter, place, {text}, fonts_.title, accent);
                               painter.setPen(QPen(QColor(accent), 1.5));
                               const double y = place.bottom() - unit;
                               painter.drawLine(QPointF(place.left(), y), QPointF(place.right(), y));
                           },
                       .keepWithNext = true});
}

void SheetComposer::addHeading(const std::string& title) {
    if (title.empty()) {
        return;
    }
    const QString text = toQt(title);
    strips_.push_back(
        {.height = lineHeight(fonts_.heading) + 5,
         .draw = [this, text](QPainter& painter,
                              const QRectF& place) { drawLines(painter, place, {text}, fonts_.heading, accent); },
         .keepWithNext = true});
}

void SheetComposer::addFields(const Fields& fields) {
    addHeading(fields.title);
    const auto columns = static_cast<std::size_t>(std::max(1, fields.columns));
    const std::size_t rows = (fields.fields.size() + columns - 1) / columns;
    std::vector<FieldColumn> places;
    for (std::size_t column = 0; column < columns; ++column) {
        places.push_back(fieldColumn(fields, column, columns, rows));
    }
    for (std::size_t row = 0; row < rows; ++row) {
        std::vector<FieldCell> cells;
        double height = lineHeight(fonts_.body);
        for (std::size_t column = 0; column < columns; ++column) {
            const std::size_t index = column * rows + row;
            if (index < fields.fields.size()) {
                cells.push_back(fieldCell(fields.fields[index], places[column]));
                height = std::max(
                    {height, heightOf(cells.back().caption, fonts_.body), heightOf(cells.back().value, fonts_.strong)});
            }
        }
        strips_.push_back({.height = height + 3,
                           .draw =
                               [this, cells](QPainter& painter, const QRectF& place) {
                                   for (const FieldCell& cell : cells) {
                                       const QRectF at = place.translated(cell.left, 0);
                                       drawLines(painter, at, cell.caption, fonts_.body, faint);
                                       drawLines(painter, at.translated(cell.captionWidth, 0), cell.value,
                                                 cell.valueFont, ink);
                                   }
                               },
                           .keepWithNext = row == 0 && rows > 1});
    }
}

/// Captions are narrowed for wide numbers beside them, as far as no word is broken.
SheetComposer::FieldColumn SheetComposer::fieldColumn(const Fields& fields, std::size_t column, std::size_t columns,
                                                      std::size_t rows) const {
    const double room = width - columnGap * static_cast<double>(columns - 1);
    const double even = room / static_cast<double>(columns);
    const double first = columns == 2 ? room * firstOfTwo : even;
    const double columnWidth = columns == 2 && column == 1 ? room - first : first;
    double captionWidth = columns <= 2 ? captionOfTwo : columnWidth * captionShare;
    double widestNumber = 0;
    double widestWord = 0;
    for (std::size_t i = column * rows; i < std::min((column + 1) * rows, fields.fields.size()); ++i) {
        const Field& field = fields.fields[i];
        if (field.number) {
            widestNumber = std::max(widestNumber, widthOf(toQt(field.value), fonts_.strong));
        }
        for (const QString& word : toQt(field.caption).split(QLatin1Char(' '))) {
            widestWord = std::max(widestWord, widthOf(word, fonts_.body) + unit);
        }
    }
    captionWidth = std::min(captionWidth, std::max(columnWidth - widestNumber, widestWord));
    return {.left = static_cast<double>(column) * (first + columnGap),
            .captionWidth = captionWidth,
            .valueWidth = columnWidth - captionWidth};
}

SheetComposer::FieldCell SheetComposer::fieldCell(const Field& field, const FieldColumn& column) const {
    const QString value = toQt(field.value);
    const QFont font = field.number ? fitting(value, fonts_.strong, column.valueWidth) : fonts_.strong;
    return {.left = column.left,
            .captionWidth = column.captionWidth,
            .caption = linesOf(toQt(field.caption), fonts_.body, column.captionWidth - unit),
            .value = field.number ? QStringList{value} : linesOf(value, font, column.valueWidth),
            .valueFont = font};
}

void SheetComposer::add(const SketchBlock& sketch) {
    const toolkit::LabelTexts& labels = sketch.labels;
    const double height = sketch.leastHeight + (sketch.height - sketch.leastHeight) * roominess_;
    strips_.push_back({.height = height * pixelsOfMillimetre,
                       .draw = [this, drawing = sketch.drawing, labels](QPainter& painter, const QRectF& place) {
                           painter.save();
                           painter.setPen(QPen(QColor(rule), 0.8));
                           painter.drawRect(place);
                           painter.setFont(fonts_.body);
                           painting::SketchPainter(painter, drawing, labels).paint(place);
                           painter.restore();
                       }});
}

/// Reduces the font only when the numbers do not fit otherwise.
// Differs D-274: a number is kept on one line; broken into two, each part would read like another number.
SheetComposer::TableShape SheetComposer::shapeOf(const Table& table) const {
    for (int smaller = 0;; ++smaller) {
        TableShape shape{
            .body = reduced(fonts_.body, smaller), .strong = reduced(fonts_.strong, smaller), .widths = {}};
        std::vector<ColumnRoom> rooms = roomsOf(table, shape.body, shape.strong);
        auto widths = divideWidth(width, rooms);
        if (!widths && shape.body.pixelSize() <= smallestLetters) {
            std::ranges::for_each(rooms, [](ColumnRoom& room) { room.least = 0; });
            widths = divideWidth(width, rooms);
        }
        if (widths) {
            shape.widths = *std::move(widths);
            return shape;
        }
    }
}

Strip SheetComposer::tableRow(const Table& table, const std::vector<std::string>& cells,
                              const std::vector<double>& widths, const QFont& font, bool set) const {
    struct Cell {
        QRectF place;
        QStringList lines;
        bool right;
    };
    std::vector<Cell> laid;
    double left = 0;
    double height = lineHeight(font);
    for (std::size_t i = 0; i < table.columns.size() && i < cells.size(); ++i) {
        const double inside = widths[i] - 2 * cellPadding;
        Cell cell{.place = {left + cellPadding, 3, inside, 0},
                  .lines = linesOf(toQt(cells[i]), font, inside),
                  .right = table.columns[i].right};
        height = std::max(height, heightOf(cell.lines, font));
        laid.push_back(std::move(cell));
        left += widths[i];
    }
    return {.height = height + 7, .draw = [laid, font, set](QPainter& painter, const QRectF& place) {
                if (set) {
                    painter.fillRect(place, QColor(tint));
                }
                for (const Cell& cell : laid) {
                    const QRectF at = cell.place.translated(place.topLeft());
                    drawLines(painter, at, cell.lines, font, ink, cell.right ? Qt::AlignRight : Qt::AlignLeft);
                }
                painter.setPen(QPen(QColor(rule), 0.8));
                painter.drawLine(place.bottomLeft(), place.bottomRight());
            }};
}

void SheetComposer::add(const Table& table) {
    addHeading(table.title);
    std::vector<std::string> captions;
    for (const Column& column : table.columns) {
        captions.push_back(column.caption);
    }
    const TableShape shape = shapeOf(table);
    Strip head = tableRow(table, captions, shape.widths, shape.strong, true);
    const auto again = std::make_shared<const Strip>(head);
    head.keepWithNext = true;
    strips_.push_back(std::move(head));
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        Strip row = tableRow(table, table.rows[i], shape.widths, shape.body, false);
        row.head = again;
        // The total must not be alone on a page.
        row.keepWithNext = !table.total.empty() && i + 1 == table.rows.size();
        strips_.push_back(std::move(row));
    }
    if (!table.total.empty()) {
        strips_.push_back(tableRow(table, table.total, shape.widths, shape.strong, true));
    }
    if (!table.note.empty()) {
        strips_.back().keepWithNext = true;
        strips_.push_back(space(unit / 2));
        strips_.back().keepWithNext = true;
        addRunningText(table.note, fonts_.small, faint);
    }
}

void SheetComposer::add(const Paragraph& paragraph) {
    addHeading(paragraph.title);
    addRunningText(paragraph.text, fonts_.body, ink);
}

void SheetComposer::addRunningText(const std::string& text, const QFont& font, QRgb colour) {
    for (const QString& line : linesOf(toQt(text), font, width)) {
        strips_.push_back(
            {.height = lineHeight(font), .draw = [line, font, colour](QPainter& painter, const QRectF& place) {
                 drawRunningLine(painter, place, line, font, colour);
             }});
    }
}

/// The last figure has the largest font and twice the share of width.
SheetComposer::FigureShape SheetComposer::shapeOf(const Figures& figures) const {
    for (int smaller = 0;; ++smaller) {
        FigureShape shape{
            .font = reduced(fonts_.figure, smaller), .greatFont = reduced(fonts_.greatFigure, smaller), .widths = {}};
        const bool last = shape.greatFont.pixelSize() <= smallestLetters;
        std::vector<ColumnRoom> rooms;
        for (std::size_t i = 0; i < figures.figures.size(); ++i) {
            const Field& figure = figures.figures[i];
            const bool great = i + 1 == figures.figures.size();
            const double least = std::max(widthOf(toQt(figure.caption), fonts_.small),
                                          widthOf(toQt(figure.value), great ? shape.greatFont : shape.font));
            rooms.push_back({.share = great ? 2.0 : 1.0, .least = last ? 0 : least + 4 * unit});
        }
        if (auto widths = divideWidth(width, rooms)) {
            shape.widths = *std::move(widths);
            return shape;
        }
    }
}

void SheetComposer::add(const Figures& figures) {
    const double height = lineHeight(fonts_.small) + lineHeight(fonts_.greatFigure) + 3 * unit;
    strips_.push_back(
        {.height = height,
         .draw = [this, all = figures.figures, shape = shapeOf(figures)](QPainter& painter, const QRectF& place) {
             painter.fillRect(place, QColor(tint));
             double left = place.left();
             for (std::size_t i = 0; i < all.size(); ++i) {
                 const QFont& font = i + 1 == all.size() ? shape.greatFont : shape.font;
                 const QRectF box = QRectF(left, place.top() + unit, shape.widths[i], place.height() - 2 * unit)
                                        .adjusted(2 * unit, 0, -2 * unit, 0);
                 drawLines(painter, box, {toQt(all[i].caption)}, fonts_.small, faint, Qt::AlignRight);
                 const double valueHeight = lineHeight(font);
                 drawLines(painter, QRectF(box.left(), box.bottom() - valueHeight, box.width(), valueHeight),
                           {toQt(all[i].value)}, font, ink, Qt::AlignRight);
                 left += shape.widths[i];
             }
         }});
}

}  // namespace velmora::documents
