#include "velmora/adapters/win32/view_factory.h"

#include "velmora/adapters/win32/button_view.h"
#include "velmora/adapters/win32/check_box_view.h"
#include "velmora/adapters/win32/combo_box_view.h"
#include "velmora/adapters/win32/field_view.h"
#include "velmora/adapters/win32/frame_view.h"
#include "velmora/adapters/win32/grid_view.h"
#include "velmora/adapters/win32/label_view.h"
#include "velmora/adapters/win32/sketch_view.h"
#include "velmora/adapters/win32/toolbar_view.h"

namespace velmora::win32 {

std::unique_ptr<ControlView> makeView(ViewHost& host, const screen::Layout& layout) {
    screen::Control* control = layout.control;
    if (auto* box = dynamic_cast<screen::TextBox*>(control)) {
        return std::make_unique<FieldView>(host, *box, layout);
    }
    if (auto* box = dynamic_cast<screen::ComboBox*>(control)) {
        return std::make_unique<ComboBoxView>(host, *box, layout);
    }
    if (auto* box = dynamic_cast<screen::CheckBox*>(control)) {
        return std::make_unique<CheckBoxView>(host, *box);
    }
    if (auto* label = dynamic_cast<screen::Label*>(control)) {
        return std::make_unique<LabelView>(host, *label, layout.role, layout.width);
    }
    if (auto* frame = dynamic_cast<screen::Frame*>(control)) {
        return std::make_unique<FrameView>(host, *frame);
    }
    if (auto* button = dynamic_cast<screen::Button*>(control)) {
        return std::make_unique<ButtonView>(host, *button, layout.role);
    }
    if (auto* bar = dynamic_cast<screen::Toolbar*>(control)) {
        return std::make_unique<ToolbarView>(host, *bar);
    }
    if (auto* grid = dynamic_cast<screen::DataGrid*>(control)) {
        return std::make_unique<GridView>(host, *grid, layout);
    }
    return std::make_unique<SketchView>(host, dynamic_cast<screen::Sketch&>(*control), layout);
}

}  // namespace velmora::win32
