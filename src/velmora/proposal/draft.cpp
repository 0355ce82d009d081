#include "velmora/proposal/draft.h"

#include <array>

#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"
#include "velmora/proposal/field_names.h"
#include "velmora/proposal/form_memory.h"

namespace velmora::proposal {

namespace {

constexpr std::array chosen{&estimate::FieldMap::cboTipoPre,     &estimate::FieldMap::cboDobles,
                            &estimate::FieldMap::cboHerramienta, &estimate::FieldMap::cboMatDisco,
                            &estimate::FieldMap::cboMatCubo,     &estimate::FieldMap::cboMatCre};

/// Stands in a draft like a control: what the form showed before anything was typed.
constexpr const char* nothingTyped = "beginning";
constexpr const char* lastLine = "[end]\n";

bool isTyped(estimate::FieldMap& fields) {
    bool any = false;
    fields.forEachTextBox([&](estimate::TextBox& box) { any = any || fields.typed.contain(box); });
    return any;
}

}  // namespace

std::string Draft::entered() const {
    std::string all;
    f_.forEachTextBox([&](estimate::TextBox& box) { all += box.text() + "\n"; });
    for (const auto list : chosen) {
        all += (f_.*list).text() + "\n";
    }
    return all + (f_.chkAcopla.checked() ? "1" : "0");
}

void Draft::settle() {
    seen_ = stored_.changes();
    settled_ = entered();
}

std::optional<std::string> Draft::unsaved() {
    if (seen_ != stored_.changes()) {
        settle();
        return std::nullopt;
    }
    // On an empty proposal a type that was only chosen is not worth a question.
    if (entered() == settled_ || (f_.proposal.isNew() && !isTyped(f_))) {
        return std::nullopt;
    }
    return FormMemory(f_).written() + writtenControl(nothingTyped, settled_) + lastLine;
}

bool Draft::isWhole(std::string_view draft) {
    return draft.ends_with(lastLine);
}

bool Draft::beganWithThis(std::string_view draft) const {
    return writtenText(draft, nothingTyped) == entered();
}

std::string Draft::numberIn(std::string_view draft) {
    return writtenText(draft, "txtPesu(" + std::to_string(money::proposal) + ")");
}

std::string Draft::describe(std::string_view draft) {
    const auto measureIn = [&](measure::Index field) {
        return writtenText(draft, "Text1(" + std::to_string(field) + ")");
    };
    std::string words = writtenText(draft, "cboTipoPre");
    const auto add = [&](const std::string& caption, const std::string& text) {
        if (!text.empty() && text != "0,00") {
            words += ", " + caption + text;
        }
    };
    add("Z ", measureIn(measure::teeth));
    add("paso ", measureIn(measure::pitch));
    add("", writtenText(draft, "txtPesu(" + std::to_string(money::customerName) + ")"));
    add("propuesta ", numberIn(draft));
    return words;
}

void Draft::restore(std::string_view draft) {
    const auto put = [&] {
        FormMemory memory(f_);
        memory.read(draft);
        memory.restore();
    };
    put();
    for (const auto list :
         {&estimate::FieldMap::cboMatDisco, &estimate::FieldMap::cboMatCubo, &estimate::FieldMap::cboMatCre}) {
        if ((f_.*list).listIndex() >= 0) {
            (f_.*list).onClick();
        }
    }
    // The rows of the materials have overwritten prices and cuts.
    put();
    // Another field has the focus now.
    f_.forEachTextBox([](estimate::TextBox& box) {
        if (box.backColor() == screen::colors::yellow) {
            box.setBackColor(screen::colors::white);
        }
    });
}

}  // namespace velmora::proposal
