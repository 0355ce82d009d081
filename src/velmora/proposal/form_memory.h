#pragma once
// A snapshot of the main form that can be restored.

#include <string>
#include <string_view>
#include <vector>

#include "velmora/estimate/field_map.h"

namespace velmora::proposal {

/// Stores the contents and state of every control, which fields the user has typed into, and the chosen materials; not
/// the history's grid and the focus.
class FormMemory {
  public:
    explicit FormMemory(estimate::FieldMap& fields);

    /// The snapshot as a text of several lines, for a file; the chosen materials are not in it.
    std::string written() const;
    /// Takes over what such a text says of the controls that this form has; the others keep what the snapshot has.
    void read(std::string_view text);

    /// Restores the snapshot without raising events of controls, so nothing is recalculated. Toolkits are notified of
    /// each change.
    void restore() const;

  private:
    struct Shown {
        screen::Control* control = nullptr;
        bool enabled = false;
        bool visible = false;
        bool tabStop = false;
        std::string tag;
        std::string toolTip;
        screen::Color backColor = screen::colors::white;
        screen::Color foreColor = screen::colors::black;
        std::string text;  ///< of a field or a list, or the caption of other controls
        std::vector<std::string> items;
        int listIndex = -1;
        bool checked = false;
    };

    static void remember(screen::Control& control, Shown& shown);
    static void readProperty(Shown& shown, std::string_view name, const std::string& value);
    static void putBack(const Shown& shown);

    estimate::FieldMap& f_;
    std::vector<Shown> controls_;
    estimate::TypedFields typed_;
    sql::Recordset disc_;
    sql::Recordset hub_;
    sql::Recordset rack_;
};

/// A text as FormMemory writes that of a control.
std::string writtenControl(std::string_view control, const std::string& text);
/// The text of one control, by its full name, in what FormMemory has written; empty when it is not there.
std::string writtenText(std::string_view written, std::string_view control);

}  // namespace velmora::proposal
