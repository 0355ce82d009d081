#include "velmora/adapters/com/rows_face.h"

#include <array>
#include <utility>

namespace velmora::com {

namespace {

constexpr std::int32_t closedSet = 0;
constexpr std::int32_t openSet = 1;

/// One column of the current row.
class FieldFace final : public AutomationObject<FieldFace> {
  public:
    FieldFace(sql::Recordset rows, std::size_t column) : rows_(std::move(rows)), column_(column) {}
    static std::span<const Member<FieldFace>> members();

  private:
    void name(Call& call) { call.answer(sql::Value(rows_.columns()[column_].name)); }
    void value(Call& call) { call.answer(rows_[column_]); }

    sql::Recordset rows_;
    std::size_t column_;
};

std::span<const Member<FieldFace>> FieldFace::members() {
    static constexpr std::array table{
        Member<FieldFace>{.name = L"Value", .id = DISPID_VALUE, .how = asGet, .run = &FieldFace::value},
        Member<FieldFace>{.name = L"Name", .id = 1, .how = asGet, .run = &FieldFace::name},
    };
    return table;
}

Ref<Collection> fieldsOf(const sql::Recordset& rows) {
    std::vector<CollectionItem> items;
    if (rows.isOpen()) {
        for (std::size_t i = 0; i < rows.columns().size(); ++i) {
            items.push_back({.name = rows.columns()[i].name, .object = objectVariant(makeObject<FieldFace>(rows, i))});
        }
    }
    return makeObject<Collection>(std::move(items));
}

}  // namespace

RowsFace::RowsFace(sql::Recordset rows) : rows_(std::move(rows)), fields_(fieldsOf(rows_)) {}

std::span<const Member<RowsFace>> RowsFace::members() {
    static constexpr std::array table{
        Member<RowsFace>{
            .name = L"Fields", .id = DISPID_VALUE, .how = asGet, .fewest = 0, .most = 1, .run = &RowsFace::fields},
        Member<RowsFace>{.name = L"EOF", .id = 1, .how = asGet, .run = &RowsFace::eof},
        Member<RowsFace>{.name = L"BOF", .id = 2, .how = asGet, .run = &RowsFace::bof},
        Member<RowsFace>{.name = L"RecordCount", .id = 3, .how = asGet, .run = &RowsFace::recordCount},
        Member<RowsFace>{.name = L"State", .id = 4, .how = asGet, .run = &RowsFace::state},
        Member<RowsFace>{.name = L"MoveFirst", .id = 5, .run = &RowsFace::moveFirst},
        Member<RowsFace>{.name = L"MoveLast", .id = 6, .run = &RowsFace::moveLast},
        Member<RowsFace>{.name = L"MoveNext", .id = 7, .run = &RowsFace::moveNext},
        Member<RowsFace>{.name = L"MovePrevious", .id = 8, .run = &RowsFace::movePrevious},
        Member<RowsFace>{.name = L"Clone", .id = 9, .how = asGet, .fewest = 0, .most = 1, .run = &RowsFace::clone},
        Member<RowsFace>{.name = L"Close", .id = 10, .run = &RowsFace::close},
    };
    return table;
}

void RowsFace::fields(Call& call) {
    answerCollection(call, fields_);
}

void RowsFace::eof(Call& call) {
    call.answer(sql::Value(rows_.eof()));
}

void RowsFace::bof(Call& call) {
    call.answer(sql::Value(rows_.bof()));
}

void RowsFace::recordCount(Call& call) {
    call.answer(sql::Value(static_cast<std::int64_t>(rows_.recordCount())));
}

void RowsFace::state(Call& call) {
    call.answer(sql::Value(rows_.isOpen() ? openSet : closedSet));
}

void RowsFace::moveFirst(Call&) {
    rows_.moveFirst();
}

void RowsFace::moveLast(Call&) {
    rows_.moveLast();
}

void RowsFace::moveNext(Call&) {
    rows_.moveNext();
}

void RowsFace::movePrevious(Call&) {
    rows_.movePrevious();
}

void RowsFace::clone(Call& call) {
    call.answer(objectVariant(makeObject<RowsFace>(rows_.clone())));
}

void RowsFace::close(Call&) {
    rows_ = sql::Recordset();
    fields_ = fieldsOf(rows_);
}

}  // namespace velmora::com
