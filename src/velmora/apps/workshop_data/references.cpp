#include "velmora/apps/workshop_data/references.h"

#include <utility>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::workshop_data {

namespace {

std::string folded(std::string_view code) {
    return runtime::UCase(runtime::Trim(code));
}

std::string textOrNothing(const sql::Value& value) {
    return value.isNull() ? std::string() : value.toText();
}

}  // namespace

References::References(sql::Connection& connection, const Table& table) {
    for (const Column& column : table.columns) {
        if (column.reference != nullptr && !tables_.contains(column.reference->table)) {
            tables_.emplace(column.reference->table, readRows(connection, *column.reference));
        }
    }
}

References::Rows References::readRows(sql::Connection& connection, const Reference& reference) {
    const std::string detail = reference.detail.empty() ? "" : "," + std::string(reference.detail);
    sql::Recordset set =
        connection.execute("SELECT " + std::string(reference.key) + "," + std::string(reference.code) + "," +
                           std::string(reference.name) + detail + " FROM " + std::string(reference.table));
    Rows rows;
    for (; !set.eof(); set.moveNext()) {
        if (set[0].isNull()) {
            continue;
        }
        const std::int32_t key = set[0].toLong();
        Named named{.code = textOrNothing(set[1]), .name = textOrNothing(set[2]), .detail = {}};
        if (!detail.empty() && !set[3].isNull()) {
            named.detail = set[3].toLong();
        }
        rows.byCode.emplace(folded(named.code), key);
        rows.byKey.emplace(key, std::move(named));
    }
    return rows;
}

const References::Rows* References::rowsOf(const Reference& reference) const {
    const auto found = tables_.find(reference.table);
    return found == tables_.end() ? nullptr : &found->second;
}

std::optional<std::int32_t> References::keyOf(const Reference& reference, std::string_view code) const {
    const Rows* rows = rowsOf(reference);
    if (rows == nullptr) {
        return std::nullopt;
    }
    const auto found = rows->byCode.find(folded(code));
    return found == rows->byCode.end() ? std::nullopt : std::optional(found->second);
}

std::string References::codeOf(const Reference& reference, std::int32_t key) const {
    const Rows* rows = rowsOf(reference);
    const auto found = rows == nullptr ? decltype(rows->byKey.end()){} : rows->byKey.find(key);
    return rows == nullptr || found == rows->byKey.end() ? runtime::CStr(std::int64_t{key}) : found->second.code;
}

std::string References::nameOf(const Reference& reference, std::string_view code) const {
    const auto key = keyOf(reference, code);
    return key ? rowsOf(reference)->byKey.at(*key).name : std::string();
}

std::optional<std::int32_t> References::detailOf(const Reference& reference, std::string_view code) const {
    const auto key = keyOf(reference, code);
    return key ? rowsOf(reference)->byKey.at(*key).detail : std::nullopt;
}

}  // namespace velmora::workshop_data
