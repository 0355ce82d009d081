#include "paper/sheet_text.h"

#include <algorithm>
#include <cmath>
#include <string_view>
#include <variant>
#include <vector>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/toolkit/sketch_texts.h"

namespace velmora::support {

namespace {

using Cells = std::vector<std::string>;

constexpr std::string_view betweenColumns = "  |  ";

std::size_t lettersOf(const std::string& text) {
    return runtime::toCodePoints(text).size();
}

std::string padded(const std::string& text, std::size_t width, bool right) {
    const std::string blanks(width - std::min(width, lettersOf(text)), ' ');
    return right ? blanks + text : text + blanks;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', begin)) {
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    lines.push_back(text.substr(begin));
    for (std::string& line : lines) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
    }
    return lines;
}

template <typename Kind>
auto countOf(const screen::Drawing& drawing) {
    return std::ranges::count_if(drawing.shapes,
                                 [](const screen::Shape& shape) { return std::holds_alternative<Kind>(shape); });
}

std::string contentsOf(const screen::Drawing& drawing) {
    return "paths " + std::to_string(countOf<screen::Path>(drawing)) + ", circles " +
           std::to_string(countOf<screen::Circle>(drawing)) + ", dimensions " +
           std::to_string(countOf<screen::Dimension>(drawing));
}

/// Lines of text, one block below the other.
class TextPage {
  public:
    void add(const paper::Fields& fields) {
        addTitle(fields.title);
        const auto columns = static_cast<std::size_t>(fields.columns);
        const std::size_t rows = (fields.fields.size() + columns - 1) / columns;
        std::vector<Cells> grid(rows, Cells(2 * columns));
        for (std::size_t i = 0; i < fields.fields.size(); ++i) {
            grid[i % rows][i / rows * 2] = fields.fields[i].caption;
            grid[i % rows][i / rows * 2 + 1] = fields.fields[i].value;
        }
        addGrid(grid, std::vector<bool>(2 * columns, false), "  ");
    }

    void add(const paper::SketchBlock& sketch) {
        addLine("[Sketch: " + runtime::CStr(sketch.height) + " mm high, at least " + runtime::CStr(sketch.leastHeight) +
                " mm; " + contentsOf(sketch.drawing) + "]");
        std::vector<Cells> grid;
        for (const screen::Shape& shape : sketch.drawing.shapes) {
            if (const auto* caption = std::get_if<screen::Caption>(&shape)) {
                grid.push_back({caption->text, "", ""});
            }
            const auto* dimension = std::get_if<screen::Dimension>(&shape);
            if (dimension != nullptr && (dimension->label < 0 || sketch.labels.contains(dimension->label))) {
                const double length =
                    std::hypot(dimension->to.x - dimension->from.x, dimension->to.y - dimension->from.y);
                grid.push_back(
                    {toolkit::shownText(*dimension, sketch.labels), "drawn", runtime::Format(length, "0.00")});
            }
        }
        addGrid(grid, {false, false, true}, "  ");
    }

    void add(const paper::Table& table) {
        addTitle(table.title);
        std::vector<Cells> grid(1);
        std::vector<bool> right;
        for (const paper::Column& column : table.columns) {
            grid.front().push_back(column.caption);
            right.push_back(column.right);
        }
        grid.insert(grid.end(), table.rows.begin(), table.rows.end());
        if (!table.total.empty()) {
            grid.push_back(table.total);
        }
        addGrid(grid, right, betweenColumns);
        if (!table.note.empty()) {
            addLine("(" + table.note + ")");
        }
    }

    void add(const paper::Paragraph& paragraph) {
        addTitle(paragraph.title);
        for (const std::string& line : linesOf(paragraph.text)) {
            addLine("> " + line);
        }
    }

    void add(const paper::Figures& figures) {
        for (const paper::Field& figure : figures.figures) {
            addLine("* " + figure.caption + ": " + figure.value);
        }
    }

    void addTitle(const std::string& title) {
        if (!title.empty()) {
            addLine("--- " + title);
        }
    }

    void addLine(std::string line) {
        line.erase(line.find_last_not_of(' ') + 1);
        text_ += line + "\n";
    }

    const std::string& text() const { return text_; }

  private:
    /// Rows of cells, each of which may have several lines, in columns as wide as their widest line.
    void addGrid(const std::vector<Cells>& grid, const std::vector<bool>& right, std::string_view between) {
        std::vector<std::size_t> widths(right.size());
        for (const Cells& row : grid) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                for (const std::string& line : linesOf(row[i])) {
                    widths.at(i) = std::max(widths.at(i), lettersOf(line));
                }
            }
        }
        for (const Cells& row : grid) {
            addRow(row, widths, right, between);
        }
    }

    void addRow(const Cells& row, const std::vector<std::size_t>& widths, const std::vector<bool>& right,
                std::string_view between) {
        std::vector<std::vector<std::string>> cells;
        std::size_t height = 1;
        for (const std::string& cell : row) {
            cells.push_back(linesOf(cell));
            height = std::max(height, cells.back().size());
        }
        for (std::size_t line = 0; line < height; ++line) {
            std::string text;
            for (std::size_t i = 0; i < cells.size(); ++i) {
                text += i == 0 ? "" : between;
                text += padded(line < cells[i].size() ? cells[i][line] : "", widths[i], right[i]);
            }
            addLine(text);
        }
    }

    std::string text_;
};

}  // namespace

std::string sheetText(const paper::Sheet& sheet) {
    TextPage page;
    if (sheet.letterhead) {
        page.addLine("[Head: " + sheet.letterhead->name + (sheet.letterhead->logo.empty() ? "" : ", logo") + "]");
        for (const std::string& line : sheet.letterhead->lines) {
            page.addLine(line);
        }
        page.addLine("");
    }
    page.addLine("=== " + sheet.title);
    page.add(paper::Fields{.title = {}, .fields = sheet.heading, .columns = 2});
    for (const paper::Block& block : sheet.blocks) {
        page.addLine("");
        std::visit([&](const auto& b) { page.add(b); }, block);
    }
    if (sheet.closing) {
        page.addLine("");
        page.addLine("[Closing: " + sheet.closing->validity + "]");
        for (const std::string& line : linesOf(sheet.closing->terms)) {
            page.addLine("> " + line);
        }
    }
    page.addLine("");
    page.addLine("[Foot: " + sheet.name + "]");
    return page.text();
}

}  // namespace velmora::support
