#include "velmora/adapters/com/grid_face.h"

#include <array>
#include <string>
#include <utility>

namespace velmora::com {

namespace {

// As the host's grids number it.
constexpr std::int32_t alignedLeft = 0;
constexpr std::int32_t alignedRight = 1;

/// One column, as the grid shows it.
class ColumnFace final : public AutomationObject<ColumnFace> {
  public:
    ColumnFace(screen::GridColumn column, std::string dataField)
        : column_(std::move(column)), dataField_(std::move(dataField)) {}
    static std::span<const Member<ColumnFace>> members();

  private:
    void caption(Call& call) { call.answer(sql::Value(column_.caption)); }
    void dataField(Call& call) { call.answer(sql::Value(dataField_)); }
    void width(Call& call) { call.answer(sql::Value(column_.width)); }
    void visible(Call& call) { call.answer(sql::Value(column_.visible)); }
    void numberFormat(Call& call) { call.answer(sql::Value(column_.mask)); }
    void alignment(Call& call) { call.answer(sql::Value(column_.right ? alignedRight : alignedLeft)); }

    screen::GridColumn column_;
    std::string dataField_;
};

std::span<const Member<ColumnFace>> ColumnFace::members() {
    static constexpr std::array table{
        Member<ColumnFace>{.name = L"Caption", .id = DISPID_VALUE, .how = asGet, .run = &ColumnFace::caption},
        Member<ColumnFace>{.name = L"DataField", .id = 1, .how = asGet, .run = &ColumnFace::dataField},
        Member<ColumnFace>{.name = L"Width", .id = 2, .how = asGet, .run = &ColumnFace::width},
        Member<ColumnFace>{.name = L"Visible", .id = 3, .how = asGet, .run = &ColumnFace::visible},
        Member<ColumnFace>{.name = L"NumberFormat", .id = 4, .how = asGet, .run = &ColumnFace::numberFormat},
        Member<ColumnFace>{.name = L"Alignment", .id = 5, .how = asGet, .run = &ColumnFace::alignment},
    };
    return table;
}

/// The name of the column of the set that a column of the grid shows; empty without a set.
std::string dataFieldOf(const screen::DataGrid& grid, const screen::GridColumn& column) {
    const auto position = static_cast<std::size_t>(column.field);
    if (!grid.recordset().isOpen() || position >= grid.recordset().columns().size()) {
        return {};
    }
    return grid.recordset().columns()[position].name;
}

Ref<Collection> facesOf(const screen::DataGrid& grid) {
    std::vector<CollectionItem> items;
    for (const screen::GridColumn& column : grid.columns()) {
        const auto face = makeObject<ColumnFace>(column, dataFieldOf(grid, column));
        items.push_back({.name = column.caption, .object = objectVariant(face)});
    }
    return makeObject<Collection>(std::move(items));
}

}  // namespace

GridFace::GridFace(const screen::DataGrid& grid, Variant rows) : columns_(facesOf(grid)), rows_(std::move(rows)) {}

std::span<const Member<GridFace>> GridFace::members() {
    static constexpr std::array table{
        Member<GridFace>{.name = L"Columns", .id = 1, .how = asGet, .fewest = 0, .most = 1, .run = &GridFace::columns},
        Member<GridFace>{.name = L"DataSource", .id = 2, .how = asGet, .run = &GridFace::dataSource},
    };
    return table;
}

void GridFace::columns(Call& call) {
    answerCollection(call, columns_);
}

void GridFace::dataSource(Call& call) {
    call.answer(rows_);
}

}  // namespace velmora::com
