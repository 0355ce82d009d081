#pragma once
// Contents of a paper before its layout: sheets of blocks, one below the other.

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "velmora/platform/screen/drawing.h"

namespace velmora::paper {

struct Field {
    std::string caption;
    std::string value;
    bool number = false;  ///< with or without a unit: kept on one line
};

/// Captions and values in `columns` columns, filled downward. Of two columns the first is wider.
struct Fields {
    std::string title;
    std::vector<Field> fields;
    int columns = 2;
};

struct SketchBlock {
    screen::Drawing drawing;
    std::map<int, std::string> labels;
    double height = 80;       ///< millimetres
    double leastHeight = 60;  ///< used when that saves a page
};

struct Column {
    std::string caption;
    double share = 1;    ///< of the width
    bool right = false;  ///< right-aligned: numbers, each kept on one line
};

/// The captions are repeated on every page of the rows.
struct Table {
    std::string title;
    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows = {};
    std::vector<std::string> total = {};  ///< a last row, set apart; empty: none
    std::string note = {};                ///< a remark about the figures, below them
};

/// A text of any length; line ends, leading tabs and blanks are kept.
struct Paragraph {
    std::string title;
    std::string text;
};

/// Emphasised figures, the last one the largest.
struct Figures {
    std::vector<Field> figures;
};

using Block = std::variant<Fields, SketchBlock, Table, Paragraph, Figures>;

/// Whose paper it is, above the title of its first page.
struct Letterhead {
    std::string name;
    std::vector<std::string> lines;  ///< tax number, address, telephone, in small letters
    std::string logo;                ///< the bytes of a PNG, JPEG or SVG picture; empty: none
};

/// What closes a paper, at the bottom of its last page.
struct Closing {
    std::string validity;
    std::string terms;  ///< several lines, in small letters
};

/// One paper.
struct Sheet {
    std::string title;
    std::string name;  ///< shown at the head of further pages and at the foot of each
    std::vector<Field> heading;
    std::vector<Block> blocks = {};
    std::optional<Letterhead> letterhead = {};
    std::optional<Closing> closing = {};
};

}  // namespace velmora::paper
