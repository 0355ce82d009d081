#pragma once
// What stands on the main form at one moment, to be put back as it was.

#include <string>
#include <vector>

#include "velmora/estimate/field_map.h"

namespace velmora::proposal {

/// Remembers what every control holds and shows, which fields the user has typed into, and the materials chosen; the
/// history's grid and the focus are no part of it.
class FormMemory {
  public:
    explicit FormMemory(estimate::FieldMap& fields);

    /// Puts everything back without raising an event of a control: nothing is worked out anew. Toolkits are told of
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
        std::string text;  ///< of a field or a list; the caption of what bears one
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
