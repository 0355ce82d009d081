#pragma once
// What a toolkit does for the logic: show forms and questions, search, and the pointer.

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

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

/// How far a long work has come, and whether the user has had enough of it. This one shows nothing and is never
/// cancelled: for screens at which nobody waits.
class Progress {
  public:
    Progress() = default;
    virtual ~Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// `fraction` from 0 to 1; none when the end is not known. May let the toolkit's events run.
    virtual void show(std::string_view /*text*/, std::optional<double> /*fraction*/) {}
    virtual bool cancelled() { return false; }
};

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
    /// A window with a button to cancel, which comes up only when the work takes longer than about a second.
    virtual std::unique_ptr<Progress> progress(std::string_view /*title*/) { return std::make_unique<Progress>(); }
};

}  // namespace velmora::screen
