#pragma once
// A text field of several lines.

#include <QPlainTextEdit>

#include "velmora/adapters/qt/field_view.h"

namespace velmora::qt {

class MemoView : public FieldView {
  public:
    MemoView(ViewHost& host, screen::TextBox& box, const screen::Layout& layout, QWidget* parent);

    QWidget& widget() override { return *edit_; }
    std::vector<QWidget*> inputs() override { return {edit_, edit_->viewport()}; }
    bool key(const KeyStroke& stroke) override;
    bool otherEvent(QEvent& event) override;

  protected:
    void setReadOnly(bool locked) override;
    std::string typedText() const override;
    void showText() override;
    void selectAll() override;
    void deselect() override;
    void erase() override;
    void insert(char32_t character) override;
    void breakLine() override;
    void replaceSelection(const std::string& text) override;

  private:
    QPlainTextEdit* edit_;
};

}  // namespace velmora::qt
