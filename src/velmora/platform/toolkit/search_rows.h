#pragma once
// The rows of a search window that match its filter box, read when they are scrolled into view.

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/toolkit/search_words.h"

namespace velmora::toolkit {

class SearchRows {
  public:
    /// Number of matches read at once.
    static constexpr std::size_t chunk = 100;

    /// The window must outlive this object. Until a filter is set every row matches.
    explicit SearchRows(const screen::SearchWindow& window);

    /// Forgets the matches found so far. `filter` is the text of the filter box.
    void restart(std::string_view filter);

    /// Reads on until the next chunk of matches is complete, and returns them; they take effect with `take`, so that a
    /// table can announce new rows before they exist. An error of the set is kept, and the reading ends.
    std::vector<std::size_t> readOn();
    void take(const std::vector<std::size_t>& found);

    /// Matches known so far.
    std::size_t count() const { return matches_.size(); }
    bool isComplete() const { return complete_; }
    /// Position of a match in the set.
    std::size_t sourceRow(std::size_t match) const { return matches_[match]; }
    /// The text of a match; `column` 0 or 1 of the window. Empty when it could not be read.
    std::string text(std::size_t match, std::size_t column) const;
    /// The error that ended the reading, if any.
    std::exception_ptr failure() const { return failure_; }

  private:
    std::string shown(std::size_t row, std::size_t column) const;

    const screen::SearchWindow& window_;
    SearchWords wanted_{{}};
    std::size_t searched_ = 2;
    std::vector<std::size_t> matches_;
    std::size_t scanned_ = 0;
    bool complete_ = false;
    mutable std::exception_ptr failure_;
};

}  // namespace velmora::toolkit
