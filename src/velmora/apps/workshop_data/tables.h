#pragma once
// What a table of the workshop's own data is: its columns as people see them, what a row is known by, who uses it. One
// description serves the form, the files and their documentation.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::workshop_data {

class References;

enum class Kind {
    text,
    wholeNumber,
    number,
    flag,       ///< 1 or 0; "Sí" or "No"
    presence,   ///< 1 or null; "Sí" or "No", and any stored value counts as "Sí"
    choice,     ///< one of a fixed list, stored by its number
    reference,  ///< the key of a row of another table
};

struct Choice {
    std::int32_t value;
    std::string_view words;
};

/// The table whose rows a column names.
struct Reference {
    std::string_view table;
    std::string_view key;          ///< the column whose value is stored
    std::string_view code;         ///< the column by which people name the row; often the key
    std::string_view name;         ///< the column that says what the row is
    std::string_view one;          ///< "la sección"
    std::string_view search;       ///< title of the search window
    std::string_view codeCaption;  ///< headings of that window
    std::string_view nameCaption;
    std::string_view detail = {};  ///< a whole number of the row that a rule of the naming table asks for
};

struct Column {
    std::string_view name;         ///< in the database
    std::string_view caption;      ///< on the form and at the head of a file
    std::string_view explanation;  ///< a sentence for the tool tip and the documentation
    Kind kind = Kind::text;
    bool required = false;
    std::string_view onNew = {};           ///< what a new row begins with, as typed
    int decimals = 0;                      ///< in the grid, of a number
    std::string_view unit = {};            ///< behind the field
    double least = 0;                      ///< of a number
    double most = 2147483647;              ///< of a number
    std::span<const Choice> choices{};     ///< of a choice
    const Reference* reference = nullptr;  ///< of a reference
    int width = 0;                         ///< of the field on the form, in digits; 0: the room that is left
    bool startsLine = false;               ///< on the form, below the columns before it
};

/// Rows elsewhere that name a row by the value of one of its columns.
struct Use {
    std::string_view column;    ///< of this table
    std::string_view table;     ///< where it is used
    std::string_view byColumn;  ///< the column there
    std::string_view words;     ///< "propuestas"
};

/// The texts of a row's columns, in the order of the description.
using RowTexts = std::vector<std::string>;

struct Table {
    std::string_view name;      ///< in the database
    std::string_view fileName;  ///< of a new file, without its ending; also the key of the form
    std::string_view title;     ///< "Máquinas"
    std::string_view menu;      ///< its entry in a menu, "Má&quinas…"
    std::string_view one;       ///< "la máquina"
    std::string_view newOne;    ///< "Máquina nueva"
    std::span<const Column> columns;
    /// The columns that tell rows apart for people and in files.
    std::span<const std::string_view> key;
    /// The columns that tell rows apart in the database, when others: given by the program or the database.
    std::string_view ownNumber = {};
    /// Whether the database gives the own number; otherwise the program gives the next one.
    bool numberIsIdentity = false;
    std::span<const Use> uses{};
    /// Whether a row that is used must not change at all.
    bool fixedWhenUsed = false;
    /// The greatest own number that the program can use; 0: any.
    std::int32_t lastOwnNumber = 0;
    /// What is wrong with a row whose columns are each right; empty when nothing is. Spanish.
    std::string (*rule)(const RowTexts& texts, const References& references) = nullptr;
};

/// All tables, in the order in which an empty workshop is filled: a table stands behind those that it names.
std::span<const Table> allTables();

/// The table of that name in the database; nullptr when there is none.
const Table* findTable(std::string_view name);

/// The position of a column in the description; error 9 for an unknown one.
std::size_t positionOf(const Table& table, std::string_view column);

bool isKey(const Table& table, const Column& column);
bool isNumber(const Column& column);

/// Most UTF-16 units of a text, from the schema.
int widthOf(const Table& table, const Column& column);

}  // namespace velmora::workshop_data
