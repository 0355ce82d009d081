#pragma once
// A snapshot of the main form that can be restored.

#include <string>
#include <vector>

#include "velmora/estimate/field_map.h"

namespace velmora::proposal {

/// Stores the contents and state of every control, which fields the user has typed into, and the chosen materials; not
/// the history's grid and the focus.
class FormMemory {
  public:
    explicit FormMemory(estimate::FieldMap& fields);

    /// Restores the snapshot without raising events of controls, so nothing is recalculated. Toolkits are notified of
    /// each change.
    void restore() const;

  private:
    struct Shown {
        screen::Control* control;
        bool enabled;
        bool visible;
        std::string tag;
        std::string toolTip;
        screen::Color backColor;
        screen::Color foreColor;
        std::string text;  ///< of a field or a list, or the caption of other controls
        std::vector<std::string> items;
        int listIndex = -1;
        bool checked = false;
    };

    static Shown shownBy(screen::Control& control);
    static void putBack(const Shown& shown);

    estimate::FieldMap& f_;
    std::vector<Shown> controls_;
    estimate::TypedFields typed_;
    sql::Recordset disc_;
    sql::Recordset hub_;
    sql::Recordset rack_;
};

}  // namespace velmora::proposal
