#include "velmora/platform/toolkit/sketch_texts.h"

#include "velmora/platform/runtime/text.h"

namespace velmora::toolkit {

namespace {

bool beginsWithLetter(const std::string& text) {
    const std::u32string characters = runtime::toCodePoints(text);
    if (characters.empty()) {
        return false;
    }
    const std::string first = runtime::toUtf8(characters.front());
    return runtime::UCase(first) != runtime::LCase(first);
}

}  // namespace

LabelTexts labelTextsOf(const screen::Sketch& sketch) {
    LabelTexts texts;
    for (const screen::Sketch::PlacedLabel& label : sketch.labels()) {
        if (label.box->isVisible()) {
            texts[label.label] = label.box->text();
        }
    }
    return texts;
}

std::string shownText(const screen::Dimension& dimension, const LabelTexts& labels) {
    const auto label = labels.find(dimension.label);
    std::string value = label == labels.end() ? std::string() : label->second;
    if (dimension.caption.empty() || beginsWithLetter(value)) {
        return value;
    }
    return value.empty() ? dimension.caption : dimension.caption + " " + value;
}

std::string spokenMeasures(const screen::Sketch& sketch) {
    std::string all;
    for (const screen::Sketch::PlacedLabel& label : sketch.labels()) {
        if (label.box->isVisible()) {
            const std::string& name = label.box->accessibleName();
            all.append(all.empty() ? "" : "; ").append(name).append(name.empty() ? "" : " ").append(label.box->text());
        }
    }
    return all;
}

}  // namespace velmora::toolkit
