#include "velmora/adapters/sqlite/catalog.h"

#include <algorithm>

#include "velmora/adapters/sqlite/tokenizer.h"

namespace velmora::sqlite {

const TableColumn* Table::column(std::string_view wanted) const {
    const std::string folded = foldName(wanted);
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const TableColumn& column) { return foldName(column.name) == folded; });
    return found == columns.end() ? nullptr : &*found;
}

}  // namespace velmora::sqlite
