#include "velmora/adapters/com/set_reading.h"

#include <cstdint>
#include <utility>

#include "velmora/platform/runtime/errors.h"

namespace velmora::com {

namespace {

/// What one call of GetRows copies: enough to make the call itself not count, few enough not to hold a list twice.
constexpr std::int32_t rowsAtOnce = 256;
constexpr std::int32_t stateClosed = 0;

Variant indexVariant(std::size_t index) {
    return Variant::longNumber(static_cast<std::int32_t>(index));
}

/// Access to the elements of an array; the array stays where it is.
class LockedArray {
  public:
    explicit LockedArray(SAFEARRAY* array) : array_(array) {
        if (SafeArrayAccessData(array_, &data_) < 0) {
            runtime::raise(runtime::typeMismatch);
        }
    }
    ~LockedArray() { SafeArrayUnaccessData(array_); }
    LockedArray(const LockedArray&) = delete;
    LockedArray& operator=(const LockedArray&) = delete;
    const VARIANT* variants() const { return static_cast<const VARIANT*>(data_); }

  private:
    SAFEARRAY* array_;
    void* data_ = nullptr;
};

std::size_t extentOf(SAFEARRAY* array, UINT dimension) {
    LONG first = 0;
    LONG last = -1;
    if (SafeArrayGetLBound(array, dimension, &first) < 0 || SafeArrayGetUBound(array, dimension, &last) < 0) {
        runtime::raise(runtime::typeMismatch);
    }
    return last < first ? 0 : static_cast<std::size_t>(last - first) + 1;
}

/// Adds the rows of a block: an array of which the first index is the field and the second the row. The first index
/// changes fastest in memory.
void addBlock(const Variant& block, std::size_t fields, std::vector<sql::Row>& rows) {
    if (block.type() != (VT_ARRAY | VT_VARIANT)) {
        runtime::raise(runtime::typeMismatch);
    }
    SAFEARRAY* array = block.raw().parray;
    if (array == nullptr || SafeArrayGetDim(array) != 2 || extentOf(array, 1) != fields) {
        runtime::raise(runtime::typeMismatch);
    }
    const std::size_t count = extentOf(array, 2);
    const LockedArray cells(array);
    for (std::size_t row = 0; row < count; ++row) {
        sql::Row& values = rows.emplace_back();
        values.reserve(fields);
        for (std::size_t field = 0; field < fields; ++field) {
            values.push_back(Variant::valueOf(cells.variants()[row * fields + field]));
        }
    }
}

bool isAtEnd(const LateObject& set) {
    return set.get("EOF").value().toBool();
}

void readInBlocks(const LateObject& set, std::size_t fields, std::vector<sql::Row>& rows) {
    while (!isAtEnd(set)) {
        const std::size_t before = rows.size();
        addBlock(set.call("GetRows", {Variant::longNumber(rowsAtOnce)}), fields, rows);
        if (rows.size() == before) {
            runtime::raise(runtime::typeMismatch);  // a set that is not at its end and gives no row
        }
    }
}

/// The fields are asked for at each row: those of some sets stay at the row at which they were asked for.
void readOneByOne(const LateObject& set, std::size_t count, std::vector<sql::Row>& rows) {
    for (; !isAtEnd(set); set.call("MoveNext")) {
        rows.push_back(currentRow(set.getObject("Fields"), count));
    }
}

}  // namespace

bool isClosed(const LateObject& set) {
    if (!set) {
        return true;
    }
    if (set.has("State")) {
        return set.get("State").value().toLong() == stateClosed;
    }
    return set.getObject("Fields").get("Count").value().toLong() == 0;
}

LateObject itemOf(const LateObject& collection, const Variant& index) {
    return objectIn(collection.getOrDefault("Item", {index}));
}

std::vector<sql::Column> columnsOf(const LateObject& fields) {
    const auto count = static_cast<std::size_t>(fields.get("Count").value().toLong());
    std::vector<sql::Column> columns;
    for (std::size_t i = 0; i < count; ++i) {
        columns.push_back({itemOf(fields, indexVariant(i)).get("Name").value().toText()});
    }
    return columns;
}

sql::Row currentRow(const LateObject& fields, std::size_t count) {
    sql::Row row;
    row.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        row.push_back(itemOf(fields, indexVariant(i)).getOrDefault("Value").value());
    }
    return row;
}

std::optional<ReadSet> readSet(const LateObject& set) {
    if (isClosed(set)) {
        return std::nullopt;
    }
    ReadSet read{.columns = columnsOf(set.getObject("Fields")), .rows = {}};
    if (set.has("GetRows")) {
        readInBlocks(set, read.columns.size(), read.rows);
    } else {
        readOneByOne(set, read.columns.size(), read.rows);
    }
    return read;
}

}  // namespace velmora::com
