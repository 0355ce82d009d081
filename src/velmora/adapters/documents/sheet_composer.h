#pragma once
// Turns the blocks of a sheet into strips of a page. Lengths are screen pixels, 96 an inch. Internal to the painting of
// sheets.

#include <QFont>
#include <QRectF>
#include <QRgb>
#include <QStringList>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "velmora/adapters/painting/colours.h"
#include "velmora/paper/sheet.h"

class QPainter;

namespace velmora::documents {

namespace sheet_measures {

inline constexpr int screenDots = 96;
inline constexpr double pixelsOfMillimetre = screenDots / 25.4;
inline constexpr double pageWidth = 210 * pixelsOfMillimetre;
inline constexpr double pageHeight = 297 * pixelsOfMillimetre;
inline constexpr double sideMargin = 17 * pixelsOfMillimetre;
inline constexpr double top = 15 * pixelsOfMillimetre;
inline constexpr double bottom = pageHeight - 17 * pixelsOfMillimetre;
inline constexpr double width = pageWidth - 2 * sideMargin;
inline constexpr double footLine = pageHeight - 13 * pixelsOfMillimetre;

inline constexpr double unit = 6;
inline constexpr double blockGap = 2 * unit + 2;

inline constexpr QRgb ink = painting::colours::text;
inline constexpr QRgb faint = painting::colours::faintText;
inline constexpr QRgb rule = 0xFFC3CBD4;
inline constexpr QRgb tint = 0xFFEDF1F5;
inline constexpr QRgb accent = painting::colours::accent;

}  // namespace sheet_measures

struct SheetFonts {
    QFont body = sized(12);
    QFont strong = sized(12, QFont::Bold);
    QFont small = sized(10);
    QFont heading = sized(13, QFont::Bold);
    QFont title = sized(25, QFont::Bold);
    QFont figure = sized(18, QFont::Bold);
    QFont greatFigure = sized(25, QFont::Bold);

  private:
    static QFont sized(int pixels, QFont::Weight weight = QFont::Normal);
};

/// A horizontal strip of a page, never divided between two pages.
struct Strip {
    double height = 0;
    std::function<void(QPainter&, const QRectF&)> draw;
    bool keepWithNext = false;
    /// Repeated above this strip when it is the first of a page.
    std::shared_ptr<const Strip> head = nullptr;
    /// Of this strip and all after it together: they are moved down to the bottom of the page. 0: no move.
    double heightToBottom = 0;
};

/// Turns blocks into strips. These refer to its fonts: it must outlive them.
class SheetComposer {
  public:
    /// `roominess`: from 0, each sketch in its least height, to 1, in its preferred height.
    SheetComposer(const SheetFonts& fonts, double roominess) : fonts_(fonts), roominess_(roominess) {}

    std::vector<Strip> compose(const paper::Sheet& sheet);

  private:
    struct FieldColumn {
        double left;
        double captionWidth;
        double valueWidth;
    };
    struct FieldCell {
        double left;
        double captionWidth;
        QStringList caption;
        QStringList value;
        QFont valueFont;
    };
    struct TableShape {
        QFont body;
        QFont strong;
        std::vector<double> widths;
    };
    struct FigureShape {
        QFont font;
        QFont greatFont;
        std::vector<double> widths;
    };

    void add(const paper::Fields& fields) { addFields(fields); }
    void add(const paper::SketchBlock& sketch);
    void add(const paper::Table& table);
    void add(const paper::Paragraph& paragraph);
    void add(const paper::Figures& figures);
    void addLetterhead(const paper::Letterhead& letterhead);
    void addClosing(const paper::Closing& closing);
    void addTitle(const std::string& title);
    void addFields(const paper::Fields& fields);
    FieldColumn fieldColumn(const paper::Fields& fields, std::size_t column, std::size_t columns,
                            std::size_t rows) const;
    FieldCell fieldCell(const paper::Field& field, const FieldColumn& column) const;
    void addHeading(const std::string& title);
    void addRunningText(const std::string& text, const QFont& font, QRgb colour);
    TableShape shapeOf(const paper::Table& table) const;
    Strip tableRow(const paper::Table& table, const std::vector<std::string>& cells, const std::vector<double>& widths,
                   const QFont& font, bool set) const;
    FigureShape shapeOf(const paper::Figures& figures) const;

    const SheetFonts& fonts_;
    double roominess_;
    std::vector<Strip> strips_;
};

}  // namespace velmora::documents
