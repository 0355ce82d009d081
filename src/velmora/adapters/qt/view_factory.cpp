#include "velmora/adapters/qt/view_factory.h"

#include "velmora/adapters/qt/button_view.h"
#include "velmora/adapters/qt/check_box_view.h"
#include "velmora/adapters/qt/combo_box_view.h"
#include "velmora/adapters/qt/frame_view.h"
#include "velmora/adapters/qt/grid_view.h"
#include "velmora/adapters/qt/label_view.h"
#include "velmora/adapters/qt/memo_view.h"
#include "velmora/adapters/qt/sketch_view.h"
#include "velmora/adapters/qt/text_box_view.h"
#include "velmora/adapters/qt/toolbar_view.h"

namespace velmora::qt {

std::unique_ptr<ControlView> makeView(ViewHost& host, const screen::Layout& layout, QWidget* parent) {
    screen::Control* control = layout.control;
    if (auto* box = dynamic_cast<screen::TextBox*>(control)) {
        if (box->multiLine()) {
            return std::make_unique<MemoView>(host, *box, layout, parent);
        }
        return std::make_unique<TextBoxView>(host, *box, layout, parent);
    }
    if (auto* box = dynamic_cast<screen::ComboBox*>(control)) {
        return std::make_unique<ComboBoxView>(host, *box, layout, parent);
    }
    if (auto* box = dynamic_cast<screen::CheckBox*>(control)) {
        return std::make_unique<CheckBoxView>(host, *box, parent);
    }
    if (auto* label = dynamic_cast<screen::Label*>(control)) {
        return std::make_unique<LabelView>(host, *label, parent, layout.role, layout.width);
    }
    if (auto* frame = dynamic_cast<screen::Frame*>(control)) {
        return std::make_unique<FrameView>(host, *frame, parent);
    }
    if (auto* button = dynamic_cast<screen::Button*>(control)) {
        return std::make_unique<ButtonView>(host, *button, parent, layout.role);
    }
    if (auto* bar = dynamic_cast<screen::Toolbar*>(control)) {
        return std::make_unique<ToolbarView>(host, *bar, parent);
    }
    if (auto* grid = dynamic_cast<screen::DataGrid*>(control)) {
        return std::make_unique<GridView>(host, *grid, layout, parent);
    }
    return std::make_unique<SketchView>(host, dynamic_cast<screen::Sketch&>(*control), layout, parent);
}

}  // namespace velmora::qt
