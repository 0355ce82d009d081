#pragma once
// What a toolkit does for the logic: show forms and questions, search, and the pointer.

#include <cstddef>
#include <optional>
#include <string>

#include "velmora/platform/runtime/errors.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/sql/recordset.h"

namespace velmora::screen {

enum class Icon { none, critical, question, exclamation, information };
enum class Buttons { ok, yesNo, yesNoCancel };
enum class Answer { ok, yes, no, cancel };

struct MessageBox {
    std::string text;
    Icon icon = Icon::none;
    Buttons buttons = Buttons::ok;
    std::string title = {};
    int defaultButton = 1;  ///< 1-based; what Enter presses
};

/// A window to look for a row: two columns shown, a filter box over the rows that filters on one of them as the user
/// types (case and accents as the data compare). The caller frees the rows.
struct SearchWindow {
    std::string title;
    std::string searchColumn;  ///< name of the column that the filter box searches
    std::string firstCaption;
    std::string secondCaption;
    int firstWidth = 0;  ///< twips
    int secondWidth = 0;
    sql::Recordset rows;  ///< column 0 is the key; 1 and 2 are shown
};

enum class Pointer { normal, hourglass };

class Screen {
  public:
    virtual ~Screen() = default;

    /// Shows the form over what is there and returns when it is unloaded. Calls nest.
    virtual void showModal(Form& form) = 0;
    virtual Answer show(const MessageBox& box) = 0;
    /// The 0-based row chosen; none when the window was left without a choice.
    virtual std::optional<std::size_t> search(const SearchWindow& window) = 0;
    virtual void setPointer(Pointer pointer) = 0;
    /// Lets pending events of the toolkit run.
    virtual void processEvents() = 0;
};

}  // namespace velmora::screen
