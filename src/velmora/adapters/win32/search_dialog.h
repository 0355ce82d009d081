#pragma once
// The window to search for a row: a filter box over two columns.

#include <exception>
#include <memory>
#include <optional>

#include "velmora/adapters/win32/grid_table.h"
#include "velmora/platform/toolkit/search_rows.h"

namespace velmora::win32 {

/// Filters while the user types; the arrow keys move in the list while the box keeps the keyboard; Enter or a double
/// click chooses the row; Esc closes the window.
class SearchDialog : public NativeWindow {
  public:
    SearchDialog(const screen::SearchWindow& window, HWND owner);
    ~SearchDialog() override;

    std::optional<std::size_t> choose();
    /// The error that ended the reading of the rows, if any.
    std::exception_ptr failure() const { return rows_.failure(); }

  protected:
    LRESULT receive(UINT message, WPARAM word, LPARAM value) override;

  private:
    void build(const screen::SearchWindow& window);
    void arrange();
    void paint();
    bool filterMessage(const MSG& message);
    void search();
    void readOn();
    void take();
    void close() { closed_ = true; }
    void step(int by);
    void scrolled();
    std::optional<LRESULT> listMessage(UINT message, WPARAM word, LPARAM value);

    Theme theme_;
    toolkit::SearchRows rows_;
    HWND box_ = nullptr;
    HWND accept_ = nullptr;
    HWND cancel_ = nullptr;
    std::unique_ptr<GridTable> table_;
    std::unique_ptr<Interception> tableMessages_;
    Box boxFrame_;
    Box captionBox_;
    Box tableFrame_;
    Box countBox_;
    bool closed_ = false;
    std::optional<std::size_t> chosen_;
};

}  // namespace velmora::win32
