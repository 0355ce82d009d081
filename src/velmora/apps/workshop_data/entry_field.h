#pragma once
// The control in which one column of a row is typed: a text, a list or a box to tick, and what a reference names.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "velmora/apps/workshop_data/references.h"
#include "velmora/apps/workshop_data/tables.h"
#include "velmora/platform/screen/control.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/session/kestra_util.h"

namespace velmora::workshop_data {

class EntryField {
  public:
    /// Named txtCampo(i), cboCampo(i) or chkCampo(i), and txtNombre(i) for what a reference names. All must outlive the
    /// field. `changed` is called when the user changes it.
    EntryField(screen::Form& form, const Column& column, int index, session::KestraUtil& util,
               std::function<void()> changed);

    const Column& column() const { return column_; }
    screen::Control& control() const { return *control_; }

    /// As a stored value is shown, or as it was typed.
    std::string text() const;
    /// Shows a stored value, or what a new row begins with. Does not call `changed`.
    void show(const std::string& text, const References& references);
    /// What the user chose in a search window.
    void enter(const std::string& text);
    /// Shows again what a reference names.
    void nameReference(const References& references);

    /// The field, and behind it what it names.
    std::vector<screen::Layout> layout() const;

  private:
    void makeText(screen::Form& form, int index, session::KestraUtil& util);
    void makeList(screen::Form& form, int index);
    void makeBox(screen::Form& form, int index);
    void tellChange() const;

    const Column& column_;
    std::function<void()> changed_;
    std::unique_ptr<screen::TextBox> text_;
    std::unique_ptr<screen::ComboBox> list_;
    std::unique_ptr<screen::CheckBox> box_;
    std::unique_ptr<screen::TextBox> name_;
    screen::Control* control_ = nullptr;
    std::string unticked_;  ///< the text of the box when it is not ticked: "No", or empty as long as nothing is stored
    bool showing_ = false;
};

}  // namespace velmora::workshop_data
