#include "velmora/platform/toolkit/search_rows.h"

#include <algorithm>

#include "velmora/platform/runtime/text.h"

namespace velmora::toolkit {

SearchRows::SearchRows(const screen::SearchWindow& window) : window_(window) {
    const std::vector<sql::Column>& columns = window.rows.columns();
    const std::string wanted = runtime::UCase(window.searchColumn);
    const auto found =
        std::ranges::find_if(columns, [&](const sql::Column& c) { return runtime::UCase(c.name) == wanted; });
    if (found != columns.end()) {
        searched_ = static_cast<std::size_t>(found - columns.begin());
    }
}

void SearchRows::restart(std::string_view filter) {
    wanted_ = SearchWords(filter);
    matches_.clear();
    scanned_ = 0;
    complete_ = failure_ != nullptr;
}

std::vector<std::size_t> SearchRows::readOn() {
    std::vector<std::size_t> found;
    try {
        while (!complete_ && found.size() < chunk) {
            if (window_.rows.peek(scanned_) == nullptr) {
                complete_ = true;
                break;
            }
            if (wanted_(shown(scanned_, searched_))) {
                found.push_back(scanned_);
            }
            ++scanned_;
        }
    } catch (...) {
        failure_ = std::current_exception();
        complete_ = true;
    }
    return found;
}

void SearchRows::take(const std::vector<std::size_t>& found) {
    matches_.insert(matches_.end(), found.begin(), found.end());
}

std::string SearchRows::text(std::size_t match, std::size_t column) const {
    if (failure_ || match >= matches_.size()) {
        return {};
    }
    try {
        return shown(matches_[match], column + 1);
    } catch (...) {
        failure_ = std::current_exception();
        return {};
    }
}

std::string SearchRows::shown(std::size_t row, std::size_t column) const {
    const sql::Row* values = window_.rows.peek(row);
    if (values == nullptr || column >= values->size() || (*values)[column].isNull()) {
        return {};
    }
    return (*values)[column].toText();
}

}  // namespace velmora::toolkit
