#pragma once
// What stands on paper, before anybody knows where its lines fall: sheets of blocks, one below the other.

#include <map>
#include <string>
#include <variant>
#include <vector>

#include "velmora/platform/screen/drawing.h"

namespace velmora::paper {

struct Field {
    std::string caption;
    std::string value;
    bool number = false;  ///< with or without a unit: stands on one line
};

/// Captions and values in so many columns, filled downward. Of two columns the first is the wider one.
struct Fields {
    std::string title;
    std::vector<Field> fields;
    int columns = 2;
};

struct Sketch {
    screen::Drawing drawing;
    std::map<int, std::string> labels;
    double height = 80;       ///< millimetres
    double leastHeight = 60;  ///< where that saves a page
};

struct Column {
    std::string caption;
    double share = 1;    ///< of the width
    bool right = false;  ///< right-aligned: numbers, each of which stands on one line
};

/// The captions stand again on every page that the rows reach.
struct Table {
    std::string title;
    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows = {};
    std::vector<std::string> total = {};  ///< a last row, set off; empty: none
    std::string note = {};                ///< a remark on the figures, below them
};

/// A text of any length; line ends, tabs and blanks at the beginning of a line are kept.
struct Paragraph {
    std::string title;
    std::string text;
};

/// The figures that the eye must find, the last one the largest.
struct Figures {
    std::vector<Field> figures;
};

using Block = std::variant<Fields, Sketch, Table, Paragraph, Figures>;

/// A paper of its own.
struct Sheet {
    std::string title;
    std::string name;  ///< stands at the head of its further pages and at the foot of each
    std::vector<Field> heading;
    std::vector<Block> blocks = {};
};

}  // namespace velmora::paper
