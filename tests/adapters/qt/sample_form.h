#pragma once
// A form with every kind of control, arranged like the densest form of the program, for tests of the toolkit.

#include <string>
#include <vector>

#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/screen/sketch.h"

namespace velmora::testing {

class SampleForm : public screen::Form {
  public:
    SampleForm();

    screen::Frame fraIdentity{*this, "fraIdentity"};
    screen::Frame fraType{*this, "fraType"};
    screen::Frame fraMeasures{*this, "fraMeasures"};
    screen::Frame fraOther{*this, "fraOther"};
    screen::Frame fraSketch{*this, "fraSketch"};
    screen::Frame fraMaterials{*this, "fraMaterials"};
    screen::Frame fraHub{*this, "fraHub"};
    screen::Frame fraTotals{*this, "fraTotals"};
    screen::Frame fraHistory{*this, "fraHistory"};

    screen::ControlArray<screen::TextBox> id{*this, "id", {{0, 6}}};
    screen::ControlArray<screen::TextBox> measure{*this, "measure", {{0, 17}}};
    screen::ControlArray<screen::TextBox> other{*this, "other", {{0, 3}}};
    screen::ControlArray<screen::TextBox> label{*this, "label", {{0, 6}}};
    screen::ControlArray<screen::TextBox> disc{*this, "disc", {{0, 7}}};
    screen::ControlArray<screen::TextBox> hub{*this, "hub", {{0, 7}}};
    screen::ControlArray<screen::TextBox> total{*this, "total", {{0, 9}}};
    screen::TextBox remarks{*this, "remarks"};
    screen::ComboBox type{*this, "type"};
    screen::ComboBox tool{*this, "tool"};
    screen::ComboBox discMaterial{*this, "discMaterial"};
    screen::ComboBox hubMaterial{*this, "hubMaterial"};
    screen::ComboBox filter{*this, "filter"};
    screen::CheckBox coupling{*this, "coupling"};
    screen::Label rimCaption{*this, "rimCaption"};
    screen::Sketch sketch{*this, "sketch"};
    screen::DataGrid history{*this, "history"};
    screen::Button save{*this, "save"};
    screen::Button print{*this, "print"};
    screen::Button duplicate{*this, "duplicate"};
    screen::Button remove{*this, "remove"};
    screen::Button labour{*this, "labour"};
    screen::Button documents{*this, "documents"};
    screen::Button leave{*this, "leave"};

    /// What happened, in order: "lost measure(0)", "got measure(1)", "key enter", "click save".
    std::vector<std::string> log;

  private:
    void fill();
    void arrange();
    void wire();
    void paintFields();
};

}  // namespace velmora::testing
