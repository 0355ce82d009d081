#include "velmora/estimate/stored_fields.h"

#include <algorithm>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "velmora/data/schema.h"
#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/platform/screen/form.h"

namespace velmora::estimate {
namespace {

using runtime::UCase;
using session::Tipo;
using ::testing::ElementsAreArray;

long errorNumberOf(const std::function<void()>& action) {
    runtime::ErrorTrap trap;
    trap(action);
    return trap.failed() ? trap.error()->number() : 0;
}

std::set<data::ColumnType> columnTypesOf(Tipo kind) {
    using enum data::ColumnType;
    switch (kind) {
        case Tipo::boolean:
        case Tipo::wholeNumber:
            return {integer, bit};
        case Tipo::number:
            return {number, integer};
        case Tipo::text:
            return {text};
        default:
            return {};
    }
}

TEST(StoredFields, EveryColumnOfAProposalIsFilledByTheFormTheServerOrTheOrder) {
    std::multiset<std::string> filled;
    for (const StoredField& field : storedFields()) {
        if (!filled.contains(UCase(field.column))) {
            filled.insert(UCase(field.column));
        }
    }
    for (const std::string_view column : columnsOfTheServer) {
        filled.insert(UCase(column));
    }
    for (const std::string_view column : columnsOfTheOrder) {
        filled.insert(UCase(column));
    }
    std::multiset<std::string> columns;
    for (const data::ColumnDefinition& column : data::findTable("DPI")->columns) {
        columns.insert(UCase(column.name));
    }
    EXPECT_THAT(filled, ElementsAreArray(columns));
}

TEST(StoredFields, EachKindIsWhatItsColumnTakes) {
    for (const StoredField& field : storedFields()) {
        const data::ColumnDefinition* column = data::findColumn(*data::findTable("DPI"), field.column);
        ASSERT_NE(column, nullptr) << field.column;
        if (std::holds_alternative<NoValue>(field.source)) {
            EXPECT_EQ(field.kind, Tipo::expression) << field.column;
            EXPECT_EQ(column->null, data::Null::yes) << field.column;
        } else {
            EXPECT_TRUE(columnTypesOf(field.kind).contains(column->type)) << field.column;
        }
    }
}

TEST(StoredFields, ATypeHasOneFieldAtMostForAColumn) {
    std::vector<data::ProductType> types(data::productTypes.begin(), data::productTypes.end());
    types.push_back(data::unknownProductType);
    for (const data::ProductType& type : types) {
        std::set<std::string_view> columns;
        for (const StoredField& field : storedFields()) {
            if (field.holdsFor(type)) {
                EXPECT_TRUE(columns.insert(field.column).second) << field.column << " of " << type.number;
            }
        }
    }
}

TEST(StoredFields, AColumnIsSpelledInOneWay) {
    std::set<std::string> spellings;
    std::set<std::string> columns;
    for (const StoredField& field : storedFields()) {
        spellings.emplace(field.column);
        columns.insert(UCase(field.column));
    }
    EXPECT_EQ(spellings.size(), columns.size());
}

TEST(StoredFields, EveryBoxIsOnTheFormAndIsStoredInOneColumn) {
    screen::Form form("form");
    FieldMap fields(form);
    std::set<const TextBox*> seen;
    for (const StoredField& field : storedFields()) {
        if (const std::optional<TextField> box = boxOf(field.source)) {
            EXPECT_EQ(errorNumberOf([&] { seen.insert(&box->in(fields)); }), 0) << field.column;
            EXPECT_EQ(columnOf(*box), field.column);
        }
    }
    EXPECT_EQ(seen.size(), std::ranges::count_if(storedFields(), [](const StoredField& field) {
                  return boxOf(field.source).has_value();
              }));
}

TEST(StoredFields, AFieldIsFoundByItsName) {
    EXPECT_EQ(columnOf(measure::pitch), "DPI_Pas");
    EXPECT_EQ(columnOf(measure::rackPitch), "DPI_Pas");
    EXPECT_EQ(columnOf(cut::barThickness), "DPI_DmFon");
    EXPECT_EQ(columnOf(cut::hubInner), "DPI_CuboDmInterno");
    EXPECT_EQ(columnOf(money::barPrice), "DPI_DisPVE");
    EXPECT_EQ(columnOf(doubleSketch::gap), "DPI_PDM_x");
    EXPECT_EQ(columnOf(measure::secondHubWidth), "DPI_PDM_h1");
    EXPECT_EQ(columnOf(&FieldMap::txtExtra), "DPI_Extra");
    EXPECT_EQ(columnOf(&FieldMap::cboMatCre), "DPI_IdParDisco");
    EXPECT_EQ(columnOf(&FieldMap::cboDobles), "DPI_PDM_Tipo");
    EXPECT_EQ(columnOf(&FieldMap::cboHerramienta), "DPI_HERRAMIENTA");
    EXPECT_EQ(columnOf(&FieldMap::chkAcopla), "DPI_Acopla");
    EXPECT_EQ(columnOf(&FieldMap::rsMatCre), "DPI_ArtDisco");
}

TEST(StoredFields, AFieldThatIsNotStoredIsAnError) {
    EXPECT_EQ(errorNumberOf([] { columnOf(measure::rackBody); }), runtime::invalidProcedureCall);
    EXPECT_EQ(errorNumberOf([] { columnOf(&FieldMap::cboFiltroHistorico); }), runtime::invalidProcedureCall);
    EXPECT_EQ(errorNumberOf([] { columnOf(&FieldMap::chkFormulas); }), runtime::invalidProcedureCall);
}

TEST(StoredFields, OnlyATextInABoxOfItsOwnIsFree) {
    screen::Form form("form");
    FieldMap fields(form);
    std::vector<std::string> free;
    fields.forEachTextBox([&](const TextBox& box) {
        if (isFreeText(fields, box)) {
            free.push_back(box.fullName());
        }
    });
    EXPECT_THAT(free, ElementsAreArray({"txtExtra", "txtObservaciones", "txtCPro"}));
}

class PutPlainlyTest : public ::testing::Test {
  protected:
    /// The number of the error, 0 when the value was put.
    long put(const FieldSource& source, const sql::Value& value) {
        const StoredField field{"", Tipo::text, source, nullptr, Load::plainly};
        return errorNumberOf([&] { putPlainly(field, fields, value); });
    }
    screen::Form form{"form"};
    FieldMap fields{form};
};

TEST_F(PutPlainlyTest, ABoxTakesTheWholeValue) {
    EXPECT_EQ(put(measure::bore, sql::Value(24.5)), 0);
    EXPECT_EQ(put(CutText(&FieldMap::txtExtra, 2), sql::Value("abc")), 0);
    EXPECT_EQ(fields.Text1(measure::bore).text(), "24,5");
    EXPECT_EQ(fields.txtExtra.text(), "abc");
    EXPECT_EQ(put(measure::bore, sql::Value()), runtime::invalidUseOfNull);
}

TEST_F(PutPlainlyTest, ANullLeavesTheTextOfAListAsItStands) {
    fields.cboHerramienta.setStyle(ComboBox::Style::editable);
    EXPECT_EQ(put(EntryText{&FieldMap::cboHerramienta}, sql::Value("H7")), 0);
    EXPECT_EQ(put(EntryText{&FieldMap::cboHerramienta}, sql::Value()), 0);
    EXPECT_EQ(fields.cboHerramienta.text(), "H7");
}

TEST_F(PutPlainlyTest, AnyNumberButZeroTicks) {
    EXPECT_EQ(put(Ticked{&FieldMap::chkAcopla}, sql::Value(-1)), 0);
    EXPECT_TRUE(fields.chkAcopla.checked());
    EXPECT_EQ(put(Ticked{&FieldMap::chkAcopla}, sql::Value(0)), 0);
    EXPECT_FALSE(fields.chkAcopla.checked());
}

TEST_F(PutPlainlyTest, WhatHasToBeFoundFirstIsAnError) {
    EXPECT_EQ(put(EntryKey{&FieldMap::cboMatDisco}, sql::Value(1)), runtime::invalidProcedureCall);
    EXPECT_EQ(put(ArticleOf{&FieldMap::rsMatDisco}, sql::Value(1)), runtime::invalidProcedureCall);
}

}  // namespace
}  // namespace velmora::estimate
