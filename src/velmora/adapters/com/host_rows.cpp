#include "velmora/adapters/com/host_rows.h"

namespace velmora::com {

void HostRows::updateBinary(std::size_t position, std::size_t column, sql::Bytes content) {
    sql::Row& shown = read_.rows[position];
    engine_->updateBinary(statement_, shown, column, content);
    shown[column] = std::move(content);
}

}  // namespace velmora::com
