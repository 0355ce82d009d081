#pragma once
// A one-line field.

#include "velmora/adapters/qt/field_edit.h"
#include "velmora/adapters/qt/field_view.h"

namespace velmora::qt {

class TextBoxView : public FieldView {
  public:
    TextBoxView(ViewHost& host, screen::TextBox& box, const screen::Layout& layout, QWidget* parent);

    QWidget& widget() override { return *edit_; }
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
    /// Passes composed text through the filter character by character; false when there is none.
    bool committedText(const QString& text);
    /// Inserts at the caret or in place of the selection what the field takes of a text.
    void insertWhole(const QString& text);
    void openMenu(const QContextMenuEvent& event);

    FieldEdit* edit_;
};

}  // namespace velmora::qt
