#include "velmora/estimate/stored_fields.h"

#include <algorithm>
#include <type_traits>

#include "velmora/estimate/weights.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::estimate {

using data::ChainColumns;
using data::ProductType;
using session::Tipo;

namespace {

constexpr std::size_t extraLength = 200;
constexpr std::size_t supplierLength = 35;
constexpr std::size_t toolLength = 15;

constexpr bool any(const ProductType&) {
    return true;
}
constexpr bool bar(const ProductType& type) {
    return type.shape == data::ProductShape::rack;
}
constexpr bool wheel(const ProductType& type) {
    return !bar(type);
}
/// What the columns DPI_PDM_… hold for a type; gears and the rack leave them as they are.
template <ChainColumns... columns>
constexpr bool with(const ProductType& type) {
    return ((type.chainColumns == columns) || ...);
}
constexpr auto chains = with<ChainColumns::chainWithSketchGap, ChainColumns::chainWithTypedGap>;
constexpr auto sketchedGap = with<ChainColumns::chainWithSketchGap>;
constexpr auto typedGap = with<ChainColumns::chainWithTypedGap>;
constexpr auto secondHub = with<ChainColumns::secondHub>;
constexpr auto noChain = with<ChainColumns::null>;
constexpr auto neither = with<ChainColumns::null, ChainColumns::secondHub>;

// Differs D-004: an update leaves the second hub that the form does not show as it is stored.
constexpr auto allFields = std::to_array<StoredField>({
    {"DPI_CosteCorteDisco", Tipo::number, money::discCut, any},
    {"DPI_FijoSierra", Tipo::number, money::sawCharge, any},
    {"DPI_Obser", Tipo::text, &FieldMap::txtObservaciones, any},
    {"DPI_Extra", Tipo::text, CutText(&FieldMap::txtExtra, extraLength), any, Load::plainly},
    {"DPI_ProTex", Tipo::text, CutText(&FieldMap::txtCPro, supplierLength), any, Load::plainly},
    {"DPI_Modulo", Tipo::number, &FieldMap::txtModulo, wheel},
    {"DPI_Modulo", Tipo::number, measure::rackModule, bar},
    {"DPI_Alt", Tipo::number, measure::height, wheel},
    {"DPI_Alt", Tipo::number, measure::rackHeight, bar},
    {"DPI_Llanta", Tipo::number, measure::rim, wheel},
    {"DPI_Llanta", Tipo::number, measure::rackLength, bar},
    {"DPI_AnchoCubo", Tipo::number, measure::hubWidth, wheel},
    {"DPI_AnchoCubo", Tipo::number, measure::rackWidth, bar},
    {"DPI_ArtDisco", Tipo::number, ArticleOf{&FieldMap::rsMatDisco}, wheel, Load::never},
    {"DPI_ArtDisco", Tipo::number, ArticleOf{&FieldMap::rsMatCre}, bar, Load::never},
    {"DPI_IdParDisco", Tipo::number, EntryKey{&FieldMap::cboMatDisco}, wheel},
    {"DPI_IdParDisco", Tipo::number, EntryKey{&FieldMap::cboMatCre}, bar},
    {"DPI_DisCortDM", Tipo::number, cut::discDiameter, wheel},
    {"DPI_DisCortDM", Tipo::number, cut::barLength, bar},
    {"DPI_DisCortAN", Tipo::number, cut::discWidth, wheel},
    {"DPI_DisCortAN", Tipo::number, cut::barWidth, bar},
    {"DPI_DisCortPESO", Tipo::number, cut::discWeight, wheel},
    {"DPI_DisCortPESO", Tipo::number, cut::barWeight, bar},
    {"DPI_DmFon", Tipo::number, measure::root, wheel},
    {"DPI_DmFon", Tipo::number, cut::barThickness, bar},
    {"DPI_DisPVE", Tipo::number, money::discPrice, wheel},
    {"DPI_DisPVE", Tipo::number, money::barPrice, bar},
    {"DPI_DisImporte", Tipo::number, money::discAmount, wheel},
    {"DPI_DisImporte", Tipo::number, money::barAmount, bar},
    {"DPI_Pas", Tipo::number, measure::pitch, wheel},
    {"DPI_Pas", Tipo::number, measure::rackPitch, bar},
    {"DPI_AC", Tipo::number, measure::chainWidth, wheel},
    {"DPI_AC", Tipo::number, measure::rackToothHeight, bar},
    {"DPI_DmExt", Tipo::number, measure::exterior, any},
    {"DPI_DmCub", Tipo::number, measure::hubDiameter, any},
    {"DPI_Tipo", Tipo::wholeNumber, EntryIndex{&FieldMap::cboTipoPre}, any},
    {"DPI_AnchoTotal", Tipo::number, measure::totalWidth, any},
    {"DPI_RefCli", Tipo::text, money::customerReference, any},
    {"DPI_Z", Tipo::number, measure::teeth, any},
    {"DPI_Rodillo", Tipo::number, measure::roller, any},
    {"DPI_Eje", Tipo::number, measure::bore, any},
    {"DPI_Chav", Tipo::number, measure::keyway, any},
    {"DPI_Pri", Tipo::number, measure::setScrews, any},
    {"DPI_DmPri", Tipo::number, measure::pitchDiameter, any},
    {"DPI_CubCortDM", Tipo::number, cut::hubDiameter, any},
    {"DPI_CubCortAN", Tipo::number, cut::hubLength, any},
    {"DPI_CubCortPESO", Tipo::number, cut::hubWeight, any},
    {"DPI_CubPVE", Tipo::number, money::hubPrice, any},
    {"DPI_CubImporte", Tipo::number, money::hubAmount, any},
    {"DPI_ArtCubo", Tipo::number, ArticleOf{&FieldMap::rsMatCubo}, any, Load::never},
    {"DPI_IdParCubo", Tipo::number, EntryKey{&FieldMap::cboMatCubo}, any},
    {"DPI_ImpMat", Tipo::number, money::material, any},
    {"DPI_ImpMO", Tipo::number, money::labour, any},
    {"DPI_ImpTS", Tipo::number, money::subcontracted, any},
    {"DPI_ImpVA", Tipo::number, money::sundries, any},
    {"DPI_ImpTP", Tipo::number, money::piece, any},
    {"DPI_Unidades", Tipo::number, money::pieces, any},
    {"DPI_Importe", Tipo::number, money::lot, any},
    {"DPI_CodCliente", Tipo::number, money::customerCode, any},
    {"DPI_NomCliente", Tipo::text, money::customerName, any},
    {"DPI_DmInterno", Tipo::number, InnerOfTube(cut::discInner, &FieldMap::rsMatDisco), any},
    {"DPI_CuboDmInterno", Tipo::number, InnerOfTube(cut::hubInner, &FieldMap::rsMatCubo), any},
    {"DPI_Acopla", Tipo::boolean, Ticked{&FieldMap::chkAcopla}, any},
    {"DPI_HERRAMIENTA", Tipo::text, EntryText{&FieldMap::cboHerramienta, toolLength}, any, Load::plainly},
    {"DPI_PDM_Tipo", Tipo::wholeNumber, EntryIndex{&FieldMap::cboDobles}, chains},
    {"DPI_PDM_Tipo", Tipo::expression, NoValue{}, neither, Load::never},
    {"DPI_PDM_b1", Tipo::number, measure::firstRim, chains},
    {"DPI_PDM_b1", Tipo::number, measure::secondHubDiameter, secondHub, Load::inItsStep, Write::onceKnown},
    {"DPI_PDM_b1", Tipo::expression, NoValue{}, noChain, Load::never},
    {"DPI_PDM_x", Tipo::number, doubleSketch::gap, sketchedGap},
    {"DPI_PDM_x", Tipo::number, measure::gap, typedGap},
    {"DPI_PDM_x", Tipo::expression, NoValue{}, neither, Load::never},
    {"DPI_PDM_h1", Tipo::number, doubleSketch::hubHeight, chains},
    {"DPI_PDM_h1", Tipo::number, measure::secondHubWidth, secondHub, Load::inItsStep, Write::onceKnown},
    {"DPI_PDM_h1", Tipo::expression, NoValue{}, noChain, Load::never},
    {column::chainName, Tipo::text, EntryText{&FieldMap::cboDobles}, chains, Load::never},
    {column::chainName, Tipo::expression, NoValue{}, neither, Load::never},
});

/// How each source gives the value to store.
struct Reading {
    const FieldMap& f;

    using Value = session::FieldValue;
    Value operator()(const TextField& field) const { return field.in(f); }
    Value operator()(const CutText& cut) const { return runtime::Left(cut.field.in(f).text(), cut.letters); }
    Value operator()(const InnerOfTube& inner) const {
        return isTube((*(f.*inner.material))["art_for"]) ? Value(inner.field.in(f)) : Value(0);
    }
    Value operator()(const ArticleOf& article) const { return (*(f.*article.material))["art_id"]; }
    Value operator()(const EntryIndex& entry) const { return (f.*entry.list).listIndex(); }
    Value operator()(const EntryKey& entry) const { return runtime::CInt(entryKey(f.*entry.list)); }
    Value operator()(const EntryText& entry) const {
        const std::string& text = (f.*entry.list).text();
        return entry.letters > 0 ? runtime::Left(text, entry.letters) : text;
    }
    Value operator()(const Ticked& ticked) const { return (f.*ticked.box).checked() ? 1 : 0; }
    Value operator()(const NoValue&) const { return " Null "; }
};

/// How a load without a step of its own puts a value back.
struct Putting {
    FieldMap& f;
    const sql::Value& value;

    void operator()(const TextField& field) const { put(field.in(f), value); }
    void operator()(const CutText& cut) const { put(cut.field.in(f), value); }
    void operator()(const EntryText& entry) const {
        if (!value.isNull()) {
            (f.*entry.list).setText(value.toText());
        }
    }
    void operator()(const Ticked& ticked) const { (f.*ticked.box).setChecked(value.toLong() != 0); }
    template <typename Other>
    void operator()(const Other&) const {
        runtime::raise(runtime::invalidProcedureCall);
    }
};

/// The list that a source reads; none when it reads something else.
ComboBox FieldMap::*listOf(const FieldSource& source) {
    return std::visit(
        [](const auto& each) -> ComboBox FieldMap::* {
            if constexpr (requires { each.list; }) {
                return each.list;
            } else {
                return nullptr;
            }
        },
        source);
}

constexpr std::optional<TextField> boxIn(const FieldSource& source) {
    return std::visit(
        [](const auto& each) -> std::optional<TextField> {
            if constexpr (std::is_same_v<decltype(each), const TextField&>) {
                return each;
            } else if constexpr (requires { each.field; }) {
                return each.field;
            } else {
                return std::nullopt;
            }
        },
        source);
}

/// The rows of allFields by their text boxes: a load asks for a hundred of them. Rows of boxes with one index in their
/// arrays are chained, in their order.
class BoxRows {
  public:
    constexpr BoxRows() {
        first_.fill(none);
        for (std::size_t row = allFields.size(); row-- > 0;) {
            boxes_[row] = boxIn(allFields[row].source);
            if (boxes_[row]) {
                std::size_t& first = first_.at(boxes_[row]->index());
                next_[row] = first;
                first = row;
            }
        }
    }

    /// The first row with this box; nullptr when there is none.
    constexpr const StoredField* find(TextField field) const {
        for (std::size_t row = first_.at(field.index()); row != none; row = next_[row]) {
            if (boxes_[row] == field) {
                return &allFields[row];
            }
        }
        return nullptr;
    }

  private:
    static constexpr std::size_t none = allFields.size();
    static constexpr std::size_t indexes = 64;

    std::array<std::optional<TextField>, allFields.size()> boxes_{};
    std::array<std::size_t, allFields.size()> next_{};
    std::array<std::size_t, indexes> first_{};
};

constexpr BoxRows boxRows;

/// The column of the first row whose source passes.
template <typename Test>
std::string_view firstColumn(const Test& passes) {
    const auto found = std::ranges::find_if(allFields, passes, &StoredField::source);
    if (found == allFields.end()) {
        runtime::raise(runtime::invalidProcedureCall);
    }
    return found->column;
}

}  // namespace

std::optional<TextField> boxOf(const FieldSource& source) {
    return boxIn(source);
}

std::span<const StoredField> storedFields() {
    return allFields;
}

bool isWritten(const StoredField& field, const FieldMap& f) {
    return field.holdsFor(f.product()) && (field.write == Write::always || f.secondHubIsKnown() || f.proposal.isNew());
}

session::FieldValue storedValue(const StoredField& field, const FieldMap& f) {
    return std::visit(Reading{f}, field.source);
}

void putPlainly(const StoredField& field, FieldMap& f, const sql::Value& value) {
    std::visit(Putting{f, value}, field.source);
}

std::string_view columnOf(TextField field) {
    const StoredField* found = boxRows.find(field);
    if (found == nullptr) {
        runtime::raise(runtime::invalidProcedureCall);
    }
    return found->column;
}

std::string_view columnOf(ComboBox FieldMap::*list) {
    return firstColumn([&](const FieldSource& source) { return listOf(source) == list; });
}

std::string_view columnOf(CheckBox FieldMap::*box) {
    return firstColumn([&](const FieldSource& source) {
        const auto* ticked = std::get_if<Ticked>(&source);
        return ticked != nullptr && ticked->box == box;
    });
}

std::string_view columnOf(Material material) {
    return firstColumn([&](const FieldSource& source) {
        const auto* article = std::get_if<ArticleOf>(&source);
        return article != nullptr && article->material == material;
    });
}

bool isFreeText(const FieldMap& f, const TextBox& box) {
    return box.index() == TextBox::noIndex && std::ranges::any_of(allFields, [&](const StoredField& field) {
               const std::optional<TextField> own = boxOf(field.source);
               return field.kind == Tipo::text && own && &own->in(f) == &box;
           });
}

}  // namespace velmora::estimate
