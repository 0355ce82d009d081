#include "velmora/adapters/documents/sheet_painter.h"

#include <QFontMetricsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTextLayout>
#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

#include "velmora/adapters/qt/sketch_painter.h"
#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"

namespace velmora::documents {

namespace {

using qt::toQt;

// Everything is laid out in pixels of the screen, 96 an inch, so that sketches look as they do there; the paper has
// many more, and the painter is scaled.
constexpr int screenDots = 96;
constexpr int paperDots = 1200;
constexpr double pixelsOfMillimetre = screenDots / 25.4;
constexpr double pageWidth = 210 * pixelsOfMillimetre;
constexpr double pageHeight = 297 * pixelsOfMillimetre;
constexpr double sideMargin = 17 * pixelsOfMillimetre;
constexpr double top = 15 * pixelsOfMillimetre;
constexpr double bottom = pageHeight - 17 * pixelsOfMillimetre;
constexpr double width = pageWidth - 2 * sideMargin;
constexpr double footLine = pageHeight - 13 * pixelsOfMillimetre;

constexpr double unit = 6;
constexpr double blockGap = 2 * unit + 2;
constexpr double columnGap = 3 * unit;
constexpr double cellPadding = 5;
constexpr double firstOfTwo = 0.6;    ///< the share of the first of two columns
constexpr double captionOfTwo = 112;  ///< pixels
constexpr double captionShare = 0.6;  ///< of the column, in three and more

constexpr QRgb ink = 0xFF101418;
constexpr QRgb faint = 0xFF5A6673;
constexpr QRgb rule = 0xFFC3CBD4;
constexpr QRgb tint = 0xFFEDF1F5;
constexpr QRgb accent = 0xFF1F5C99;

struct Fonts {
    QFont body = sized(12);
    QFont strong = sized(12, QFont::Bold);
    QFont small = sized(10);
    QFont heading = sized(13, QFont::Bold);
    QFont title = sized(25, QFont::Bold);
    QFont figure = sized(18, QFont::Bold);
    QFont greatFigure = sized(25, QFont::Bold);

  private:
    static QFont sized(int pixels, QFont::Weight weight = QFont::Normal) {
        QFont font = qt::theme::baseFont();
        font.setPixelSize(pixels);
        font.setWeight(weight);
        // Hinted widths belong to a screen; on paper letters would stand unevenly.
        font.setHintingPreference(QFont::PreferNoHinting);
        return font;
    }
};

/// A strip of a page: what stands side by side and is not divided.
struct Strip {
    double height = 0;
    std::function<void(QPainter&, const QRectF&)> draw;
    bool keepWithNext = false;
    /// Stands again above this strip when a page begins with it.
    std::shared_ptr<const Strip> head = nullptr;
};

double lineHeight(const QFont& font) {
    return QFontMetricsF(font).lineSpacing();
}

/// The lines of a text in a width, broken between words or, where a word is wider, within it.
QStringList linesOf(const QString& text, const QFont& font, double inWidth) {
    QStringList lines;
    QString plain = text;
    plain.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    for (const QString& paragraph : plain.split(QLatin1Char('\n'))) {
        QTextLayout layout(paragraph, font);
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        bool any = false;
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(inWidth);
            lines.append(paragraph.mid(line.textStart(), line.textLength()).trimmed());
            any = true;
        }
        layout.endLayout();
        if (!any) {
            lines.append(QString());
        }
    }
    return lines;
}

void drawLines(QPainter& painter, const QRectF& place, const QStringList& lines, const QFont& font, QRgb colour,
               Qt::Alignment alignment = Qt::AlignLeft) {
    painter.setFont(font);
    painter.setPen(QColor(colour));
    const double height = lineHeight(font);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QRectF line(place.left(), place.top() + static_cast<double>(i) * height, place.width(), height);
        painter.drawText(line, static_cast<int>(alignment | Qt::AlignVCenter) | Qt::TextDontClip, lines[i]);
    }
}

double heightOf(const QStringList& lines, const QFont& font) {
    return static_cast<double>(lines.size()) * lineHeight(font);
}

Strip space(double height) {
    return {.height = height, .draw = [](QPainter&, const QRectF&) {}};
}

/// Turns blocks into strips, which draw with its fonts as long as it lives.
class Composer {
  public:
    /// `roominess` from 0, the least height of each sketch, to 1, the height it would rather have.
    Composer(const Fonts& fonts, double roominess) : fonts_(fonts), roominess_(roominess) {}

    std::vector<Strip> compose(const Sheet& sheet) {
        strips_.clear();
        addTitle(sheet.title);
        addFields({.title = {}, .fields = sheet.heading, .columns = 2});
        for (const Block& block : sheet.blocks) {
            strips_.push_back(space(blockGap));
            std::visit([this](const auto& b) { add(b); }, block);
        }
        return std::move(strips_);
    }

  private:
    struct FieldCell {
        double left;
        double captionWidth;
        QStringList caption;
        QStringList value;
    };

    void add(const Fields& fields) { addFields(fields); }
    void add(const Sketch& sketch);
    void add(const Table& table);
    void add(const Paragraph& paragraph);
    void add(const Figures& figures);
    void addTitle(const std::string& title);
    void addFields(const Fields& fields);
    FieldCell fieldCell(const Field& field, std::size_t column, std::size_t columns) const;
    void addHeading(const std::string& title);
    Strip tableRow(const Table& table, const std::vector<std::string>& cells, const QFont& font, bool set) const;

    const Fonts& fonts_;
    double roominess_;
    std::vector<Strip> strips_;
};

void Composer::addTitle(const std::string& title) {
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

void Composer::addHeading(const std::string& title) {
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

void Composer::addFields(const Fields& fields) {
    addHeading(fields.title);
    const auto columns = static_cast<std::size_t>(std::max(1, fields.columns));
    const std::size_t rows = (fields.fields.size() + columns - 1) / columns;
    for (std::size_t row = 0; row < rows; ++row) {
        std::vector<FieldCell> cells;
        double height = lineHeight(fonts_.body);
        for (std::size_t column = 0; column < columns; ++column) {
            const std::size_t index = column * rows + row;
            if (index < fields.fields.size()) {
                cells.push_back(fieldCell(fields.fields[index], column, columns));
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
                                                 fonts_.strong, ink);
                                   }
                               },
                           .keepWithNext = row == 0 && rows > 1});
    }
}

Composer::FieldCell Composer::fieldCell(const Field& field, std::size_t column, std::size_t columns) const {
    const double room = width - columnGap * static_cast<double>(columns - 1);
    const double even = room / static_cast<double>(columns);
    const double first = columns == 2 ? room * firstOfTwo : even;
    const double columnWidth = columns == 2 && column == 1 ? room - first : first;
    const double captionWidth = columns <= 2 ? captionOfTwo : columnWidth * captionShare;
    return {.left = static_cast<double>(column) * (first + columnGap),
            .captionWidth = captionWidth,
            .caption = linesOf(toQt(field.caption), fonts_.body, captionWidth - unit),
            .value = linesOf(toQt(field.value), fonts_.strong, columnWidth - captionWidth)};
}

void Composer::add(const Sketch& sketch) {
    const toolkit::LabelTexts& labels = sketch.labels;
    const double height = sketch.leastHeight + (sketch.height - sketch.leastHeight) * roominess_;
    strips_.push_back({.height = height * pixelsOfMillimetre,
                       .draw = [this, drawing = sketch.drawing, labels](QPainter& painter, const QRectF& place) {
                           painter.save();
                           painter.setPen(QPen(QColor(rule), 0.8));
                           painter.drawRect(place);
                           painter.setFont(fonts_.body);
                           qt::SketchPainter(painter, drawing, labels).paint(place);
                           painter.restore();
                       }});
}

Strip Composer::tableRow(const Table& table, const std::vector<std::string>& cells, const QFont& font, bool set) const {
    struct Cell {
        QRectF place;
        QStringList lines;
        bool right;
    };
    double shares = 0;
    for (const Column& column : table.columns) {
        shares += column.share;
    }
    std::vector<Cell> laid;
    double left = 0;
    double height = lineHeight(font);
    for (std::size_t i = 0; i < table.columns.size() && i < cells.size(); ++i) {
        const double columnWidth = width * table.columns[i].share / shares;
        const double inside = columnWidth - 2 * cellPadding;
        Cell cell{.place = {left + cellPadding, 3, inside, 0},
                  .lines = linesOf(toQt(cells[i]), font, inside),
                  .right = table.columns[i].right};
        height = std::max(height, heightOf(cell.lines, font));
        laid.push_back(std::move(cell));
        left += columnWidth;
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

void Composer::add(const Table& table) {
    addHeading(table.title);
    std::vector<std::string> captions;
    for (const Column& column : table.columns) {
        captions.push_back(column.caption);
    }
    Strip head = tableRow(table, captions, fonts_.strong, true);
    const auto again = std::make_shared<const Strip>(head);
    head.keepWithNext = true;
    strips_.push_back(std::move(head));
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        Strip row = tableRow(table, table.rows[i], fonts_.body, false);
        row.head = again;
        // The total never stands alone on a page.
        row.keepWithNext = !table.total.empty() && i + 1 == table.rows.size();
        strips_.push_back(std::move(row));
    }
    if (!table.total.empty()) {
        strips_.push_back(tableRow(table, table.total, fonts_.strong, true));
    }
}

void Composer::add(const Paragraph& paragraph) {
    addHeading(paragraph.title);
    for (const QString& line : linesOf(toQt(paragraph.text), fonts_.body, width)) {
        strips_.push_back(
            {.height = lineHeight(fonts_.body), .draw = [this, line](QPainter& painter, const QRectF& place) {
                 drawLines(painter, place, {line}, fonts_.body, ink);
             }});
    }
}

void Composer::add(const Figures& figures) {
    const double height = lineHeight(fonts_.small) + lineHeight(fonts_.greatFigure) + 3 * unit;
    strips_.push_back({.height = height, .draw = [this, all = figures.figures](QPainter& painter, const QRectF& place) {
                           painter.fillRect(place, QColor(tint));
                           // The last figure is the greatest and gets two shares.
                           const double share = place.width() / static_cast<double>(all.size() + 1);
                           double left = place.left();
                           for (std::size_t i = 0; i < all.size(); ++i) {
                               const bool last = i + 1 == all.size();
                               const QFont& font = last ? fonts_.greatFigure : fonts_.figure;
                               const QRectF box =
                                   QRectF(left, place.top() + unit, last ? 2 * share : share, place.height() - 2 * unit)
                                       .adjusted(2 * unit, 0, -2 * unit, 0);
                               drawLines(painter, box, {toQt(all[i].caption)}, fonts_.small, faint, Qt::AlignRight);
                               const double valueHeight = lineHeight(font);
                               drawLines(painter,
                                         QRectF(box.left(), box.bottom() - valueHeight, box.width(), valueHeight),
                                         {toQt(all[i].value)}, font, ink, Qt::AlignRight);
                               left += share;
                           }
                       }});
}

struct Placed {
    const Strip* strip;
    double y;
};
using Page = std::vector<Placed>;

/// Strips on pages, which refer to them.
class Pagination {
  public:
    Pagination(const std::vector<Strip>& strips, double furtherTop) : furtherTop_(furtherTop) {
        for (std::size_t i = 0; i < strips.size(); ++i) {
            if (y_ + keptHeight(strips, i) > bottom && !pages_.back().empty()) {
                pages_.emplace_back();
                y_ = furtherTop_;
                if (strips[i].head) {
                    place(*strips[i].head);
                }
            }
            place(strips[i]);
        }
    }
    const std::vector<Page>& pages() const { return pages_; }

  private:
    /// What the strip and those that it is kept with take.
    static double keptHeight(const std::vector<Strip>& strips, std::size_t from) {
        double height = strips[from].height;
        for (std::size_t i = from; strips[i].keepWithNext && i + 1 < strips.size(); ++i) {
            height += strips[i + 1].height;
        }
        return height;
    }
    void place(const Strip& strip) {
        pages_.back().push_back({&strip, y_});
        y_ += strip.height;
    }

    double furtherTop_;
    std::vector<Page> pages_{1};
    double y_ = top;
};

/// A sheet on its pages.
struct LaidOut {
    std::unique_ptr<Composer> composer;
    std::vector<Strip> strips;
    std::vector<Page> pages;
};

LaidOut layOut(const Sheet& sheet, const Fonts& fonts, double roominess) {
    LaidOut result{.composer = std::make_unique<Composer>(fonts, roominess), .strips = {}, .pages = {}};
    result.strips = result.composer->compose(sheet);
    result.pages = Pagination(result.strips, top + lineHeight(fonts.heading) + blockGap).pages();
    return result;
}

/// With smaller sketches where that saves a page.
LaidOut layOut(const Sheet& sheet, const Fonts& fonts) {
    LaidOut best = layOut(sheet, fonts, 1);
    for (const double roominess : {0.75, 0.5, 0.25, 0.0}) {
        if (best.pages.size() == 1) {
            break;
        }
        LaidOut smaller = layOut(sheet, fonts, roominess);
        if (smaller.pages.size() < best.pages.size()) {
            best = std::move(smaller);
        }
    }
    return best;
}

void drawFoot(QPainter& painter, const Fonts& fonts, const Sheet& sheet, std::size_t page, std::size_t pages) {
    painter.setPen(QPen(QColor(rule), 0.8));
    painter.drawLine(QPointF(sideMargin, footLine), QPointF(sideMargin + width, footLine));
    const QRectF place(sideMargin, footLine + 3, width, lineHeight(fonts.small));
    drawLines(painter, place, {toQt(sheet.name)}, fonts.small, faint);
    drawLines(painter, place, {QStringLiteral("Página %1 de %2").arg(page).arg(pages)}, fonts.small, faint,
              Qt::AlignRight);
}

void drawFurtherHead(QPainter& painter, const Fonts& fonts, const Sheet& sheet) {
    const QRectF place(sideMargin, top, width, lineHeight(fonts.heading));
    drawLines(painter, place, {toQt(sheet.name + " (continuación)")}, fonts.heading, accent);
    painter.setPen(QPen(QColor(accent), 1));
    painter.drawLine(QPointF(sideMargin, place.bottom() + 3), QPointF(sideMargin + width, place.bottom() + 3));
}

}  // namespace

bool paintSheets(const std::vector<Sheet>& sheets, const std::string& title, QIODevice& out) {
    const Fonts fonts;
    QPdfWriter paper(&out);
    paper.setPageSize(QPageSize(QPageSize::A4));
    paper.setPageMargins(QMarginsF(0, 0, 0, 0));
    paper.setResolution(paperDots);
    paper.setTitle(toQt(title));
    paper.setCreator(QStringLiteral("VELMORA"));
    QPainter painter;
    if (!painter.begin(&paper)) {
        return false;
    }
    constexpr double scale = static_cast<double>(paperDots) / screenDots;
    painter.scale(scale, scale);
    painter.setRenderHint(QPainter::Antialiasing);
    bool first = true;
    for (const Sheet& sheet : sheets) {
        const LaidOut laidOut = layOut(sheet, fonts);
        const std::vector<Page>& pages = laidOut.pages;
        for (std::size_t i = 0; i < pages.size(); ++i) {
            if (!first && !paper.newPage()) {
                return false;
            }
            first = false;
            if (i > 0) {
                drawFurtherHead(painter, fonts, sheet);
            }
            for (const Placed& placed : pages[i]) {
                placed.strip->draw(painter, QRectF(sideMargin, placed.y, width, placed.strip->height));
            }
            drawFoot(painter, fonts, sheet, i + 1, pages.size());
        }
    }
    return painter.end();
}

}  // namespace velmora::documents
