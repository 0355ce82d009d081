#pragma once
// What statements have in common that differ in nothing but their values.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/adapters/tsql/syntax_tree.h"

namespace velmora::tsql {

/// A text, a number or NULL, as it is written in a statement.
struct Literal {
    Form form = Form::null;  ///< null, text, whole, decimal or real
    std::string text;        ///< as Expression::text has it
    std::size_t place = 0;   ///< where it begins in the statement

    friend bool operator==(const Literal&, const Literal&) = default;
};

/// A statement without its literals. Binary values, which may be long, stay in the text.
struct Shape {
    std::string text;  ///< a question mark, which the dialect does not know, stands for each literal
    std::vector<Literal> literals{};
};

/// True for a statement that begins with INSERT, UPDATE or DELETE.
bool changesRows(std::string_view statement);

/// Errors: those of tokenize().
Shape shapeOf(std::string_view statement);

}  // namespace velmora::tsql
