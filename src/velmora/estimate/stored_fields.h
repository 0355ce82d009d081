#pragma once
// Which column of a proposal's row (table DPI) stores which field of the main form. One row for each stored field, in
// the order of the INSERT: a save loops over the rows, and a load and the papers ask them for a field's column.

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "velmora/data/product_types.h"
#include "velmora/estimate/field_map.h"
#include "velmora/estimate/field_names.h"

namespace velmora::estimate {

/// A text box of the field map, named without a form: by its index in its array, or by itself.
class TextField {
  public:
    constexpr TextField(measure::Index index) : array_(&FieldMap::Text1), index_(index) {}
    constexpr TextField(cut::Index index) : array_(&FieldMap::Text4), index_(index) {}
    constexpr TextField(money::Index index) : array_(&FieldMap::txtPesu), index_(index) {}
    constexpr TextField(doubleSketch::Index index) : array_(&FieldMap::txtPDM), index_(index) {}
    constexpr TextField(TextBox FieldMap::*box) : single_(box) {}

    /// The box on a form.
    TextBox& in(FieldMap& f) const { return single_ ? f.*single_ : (f.*array_)(index_); }
    const TextBox& in(const FieldMap& f) const { return single_ ? f.*single_ : (f.*array_)(index_); }

    /// Its index in its array; 0 for a single box.
    constexpr std::size_t index() const { return static_cast<std::size_t>(index_); }

    friend constexpr bool operator==(const TextField&, const TextField&) = default;

  private:
    ControlArray<TextBox> FieldMap::*array_ = nullptr;
    int index_ = 0;
    TextBox FieldMap::*single_ = nullptr;
};

/// The text of a box up to a number of letters.
struct CutText {
    constexpr CutText(TextField field_, std::size_t letters_) : field(field_), letters(letters_) {}
    TextField field;
    std::size_t letters;
};

/// A row of materials that is chosen on the form.
using Material = sql::ListenedRecordset FieldMap::*;

/// An inner diameter, 0 unless the article of the material is a tube.
struct InnerOfTube {
    constexpr InnerOfTube(TextField field_, Material material_) : field(field_), material(material_) {}
    TextField field;
    Material material;
};

/// The key of a material's article.
struct ArticleOf {
    Material material;
};

/// What is chosen in a list: its position from 0, the number that the entry begins with, its text.
struct EntryIndex {
    ComboBox FieldMap::*list;
};
struct EntryKey {
    ComboBox FieldMap::*list;
};
struct EntryText {
    ComboBox FieldMap::*list;
    std::size_t letters = 0;  ///< that are stored at most; 0 for all
};

/// 1 or 0.
struct Ticked {
    CheckBox FieldMap::*box;
};

/// Null: an update clears what was stored for another type.
struct NoValue {};

/// What a stored value is read from.
using FieldSource =
    std::variant<TextField, CutText, InnerOfTube, ArticleOf, EntryIndex, EntryKey, EntryText, Ticked, NoValue>;

enum class Load {
    inItsStep,  ///< put by a step of `proposal::Loading`: its event handlers depend on the order of the steps
    plainly,    ///< put in a loop: no event handler depends on the order; a null text leaves a list unchanged
    never,      ///< not put: the value follows from other fields
};

enum class Write {
    always,
    onceKnown,  ///< by an update only when FieldMap::secondHubIsKnown
};

struct StoredField {
    std::string_view column;  ///< to the letter as statements spell it
    session::Tipo kind;       ///< how a statement renders the value
    FieldSource source;
    bool (*holdsFor)(const data::ProductType&);  ///< for any type, one row of a column at most
    Load load = Load::inItsStep;
    Write write = Write::always;
};

/// The text box that a source reads; none when it reads something else.
std::optional<TextField> boxOf(const FieldSource& source);

/// Every stored field in the order of the INSERT. A column has a row for each field that it takes by the type.
std::span<const StoredField> storedFields();

/// Whether a save of the proposal on the form writes this field.
bool isWritten(const StoredField& field, const FieldMap& f);

/// The value to store. Errors: 13 for an entry without a number at its beginning, 3021 without a material.
session::FieldValue storedValue(const StoredField& field, const FieldMap& f);

/// Puts a stored value on the form; for a field with Load::plainly. Errors: 94 for null in a box; 5 for a source that
/// only a step can put.
void putPlainly(const StoredField& field, FieldMap& f, const sql::Value& value);

/// The column that stores a field, whatever the type; of a list, the one of what is chosen; of a material, that of its
/// article. Errors: 5 for a field that is not stored.
std::string_view columnOf(TextField field);
std::string_view columnOf(ComboBox FieldMap::*list);
std::string_view columnOf(CheckBox FieldMap::*box);
std::string_view columnOf(Material material);

/// Whether a box of the form, in no array, is stored as a text: a new proposal begins with it empty, not with a zero.
bool isFreeText(const FieldMap& f, const TextBox& box);

/// Columns without a field of the form of their own.
namespace column {
inline constexpr std::string_view chainName = "DPI_PDM_Texto";  ///< the text of cboDobles, beside its position
inline constexpr std::string_view number = "DPI_Id";
inline constexpr std::string_view created = "DPI_Fecha";
inline constexpr std::string_view accepted = "DPI_FAcepta";
inline constexpr std::string_view order = "DPI_Orden";
inline constexpr std::string_view customerOrder = "DPI_PedCliente";
inline constexpr std::string_view customerOrderDate = "DPI_FPedCliente";
inline constexpr std::string_view delivery = "DPI_FechaEntrega";
}  // namespace column

/// Assigned by the server to a new row.
inline constexpr std::array columnsOfTheServer{column::number, column::created};
/// Written while a proposal is tracked and accepted, never by a save.
inline constexpr std::array columnsOfTheOrder{column::accepted, column::order, column::customerOrder,
                                              column::customerOrderDate, column::delivery};

}  // namespace velmora::estimate
