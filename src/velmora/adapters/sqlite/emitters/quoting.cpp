#include "velmora/adapters/sqlite/emitters/quoting.h"

namespace velmora::sqlite {

std::string quotedName(std::string_view name) {
    std::string quoted = "\"";
    for (const char c : name) {
        quoted += c;
        if (c == '"') {
            quoted += c;
        }
    }
    return quoted += '"';
}

std::string quotedText(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text) {
        quoted += c;
        if (c == '\'') {
            quoted += c;
        }
    }
    return quoted += '\'';
}

std::string quotedTable(const Table& table) {
    return quotedName(table.schema) + "." + quotedName(table.name);
}

std::string engineIndexName(std::string_view table, std::string_view index) {
    return std::string(table).append(".").append(index);
}

}  // namespace velmora::sqlite
