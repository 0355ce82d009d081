#pragma once
// What a toolkit provides to the logic: forms, message boxes, the search window, the pointer, events.

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
    int defaultButton = 1;  ///< 1-based; the button that Enter presses
};

/// A window to search for a row: two columns are shown, and a filter box filters one of them while the user types (case
/// and accents compared as by the database). The caller releases the rows.
struct SearchWindow {
    std::string title;
    std::string searchColumn;  ///< name of the column that the filter box filters
    std::string firstCaption;
    std::string secondCaption;
    int firstWidth = 0;  ///< twips
    int secondWidth = 0;
    sql::Recordset rows;  ///< column 0 is the key; 1 and 2 are shown
};

enum class Pointer { normal, hourglass };

/// Progress of a long operation and the user's request to cancel it. This base class shows nothing and is never
/// cancelled: for screens without a user.
class Progress {
  public:
    Progress() = default;
    virtual ~Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// `fraction` from 0 to 1; nullopt when the end is not known. May run events of the toolkit.
    virtual void show(std::string_view /*text*/, std::optional<double> /*fraction*/) {}
    virtual bool cancelled() { return false; }
};

class Screen {
  public:
    virtual ~Screen() = default;

    /// Shows the form modally and returns when it is unloaded. Calls nest.
    virtual void showModal(Form& form) = 0;
    virtual Answer show(const MessageBox& box) = 0;
    /// The 0-based row that was chosen; nullopt when the window was closed without a choice.
    virtual std::optional<std::size_t> search(const SearchWindow& window) = 0;
    virtual void setPointer(Pointer pointer) = 0;
    /// What is under way and takes long, such as waiting for another user's lock: shown in the status line of the
    /// topmost form at once, until it is told an empty text.
    virtual void tellWork(std::string_view /*text*/) {}
    /// Runs pending events of the toolkit.
    virtual void processEvents() = 0;
    /// A progress window with a Cancel button; it appears only when the work takes longer than about a second.
    virtual std::unique_ptr<Progress> progress(std::string_view /*title*/) { return std::make_unique<Progress>(); }
};

}  // namespace velmora::screen
