#pragma once
// A form with a control of every kind that writes down what happens to it.

#include <string>
#include <vector>

#include "velmora/platform/screen/control_array.h"
#include "velmora/platform/screen/data_grid.h"
#include "velmora/platform/screen/form.h"
#include "velmora/platform/screen/sketch.h"

namespace velmora::test {

class ContractForm : public screen::Form {
  public:
    ContractForm();

    screen::ControlArray<screen::TextBox> field{*this, "field", {{0, 2}}};
    screen::TextBox memo{*this, "memo"};
    screen::ComboBox list{*this, "list"};
    screen::CheckBox check{*this, "check"};
    screen::Button save{*this, "save"};
    screen::Toolbar bar{*this, "bar"};
    screen::DataGrid grid{*this, "grid"};
    screen::Frame frame{*this, "frame"};
    screen::TextBox framed{*this, "framed"};
    screen::Frame first{*this, "first"};
    screen::TextBox inFirst{*this, "inFirst"};
    screen::Frame second{*this, "second"};
    screen::TextBox inSecond{*this, "inSecond"};

    /// What happened, in order: "key enter", "press 13", "change field(0)=7", "lost field(0)", "got field(1)", "click
    /// save", "cell 1", "gridkey f8", "item 3", "row 2".
    std::vector<std::string> log;

    /// What the form does with a key, after it has written it down; by default nothing.
    std::function<void(screen::KeyDown&)> keyHandler;

  private:
    void fill();
    void arrange();
    void watch(screen::TextBox& box);
    void note(std::string event) { log.push_back(std::move(event)); }

    sql::Subscription moves_;
};

/// enter, escape, f5, character …
std::string nameOf(screen::Key key);

}  // namespace velmora::test
