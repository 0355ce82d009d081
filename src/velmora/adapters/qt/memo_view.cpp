#include "velmora/adapters/qt/memo_view.h"

#include <QTextBlock>
#include <algorithm>

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

namespace {

// The model ends lines with carriage return and line feed, as they are stored.
std::string modelText(const QPlainTextEdit& edit) {
    return fromQt(edit.toPlainText().replace(QLatin1String("\n"), QLatin1String("\r\n")));
}

QString shownText(const screen::TextBox& box) {
    return toQt(box.text()).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

class SizedTextEdit : public QPlainTextEdit {
  public:
    SizedTextEdit(int lines, int digits, QWidget* parent) : QPlainTextEdit(parent), lines_(lines), digits_(digits) {}
    QSize sizeHint() const override { return {widthOf(digits_ > 0 ? digits_ : 30), heightHint()}; }
    QSize minimumSizeHint() const override { return {widthOf(digits_ > 0 ? digits_ : 12), heightHint()}; }

  private:
    int widthOf(int digits) const { return fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits + 16; }
    int heightHint() const { return fontMetrics().lineSpacing() * lines_ + 10; }
    int lines_;
    int digits_;
};

}  // namespace

MemoView::MemoView(ViewHost& host, screen::TextBox& box, const screen::Layout& layout, QWidget* parent)
    : FieldView(host, box, layout.role), edit_(new SizedTextEdit(std::max(layout.lines, 1), layout.width, parent)) {
    edit_->setFocusPolicy(Qt::TabFocus);
    edit_->setTabChangesFocus(true);
    edit_->document()->setDocumentMargin(2);
    edit_->setSizePolicy(layout.width > 0 ? QSizePolicy::Fixed : QSizePolicy::Expanding,
                         layout.stretch > 0 ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    connect(edit_, &QPlainTextEdit::textChanged, this, [this] { edited(); });
}

bool MemoView::key(const KeyStroke& stroke) {
    type(stroke);
    return true;
}

bool MemoView::otherEvent(QEvent& event) {
    if (event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick) {
        box().clearSelection();
        if (event.type() == QEvent::MouseButtonDblClick) {
            clickedTwice(event);
        }
    }
    return false;
}

void MemoView::setReadOnly(bool locked) {
    edit_->setReadOnly(locked);
}

std::string MemoView::typedText() const {
    return modelText(*edit_);
}

void MemoView::showText() {
    if (modelText(*edit_) != box().text() && edit_->toPlainText() != shownText(box())) {
        edit_->setPlainText(shownText(box()));
    }
}

void MemoView::selectAll() {
    edit_->selectAll();
}

void MemoView::deselect() {
    QTextCursor cursor = edit_->textCursor();
    cursor.clearSelection();
    edit_->setTextCursor(cursor);
}

void MemoView::erase() {
    edit_->textCursor().deletePreviousChar();
    edit_->ensureCursorVisible();
}

void MemoView::insert(char32_t character) {
    edit_->insertPlainText(QString::fromUcs4(&character, 1));
    edit_->ensureCursorVisible();
}

void MemoView::replaceSelection(const std::string& text) {
    edit_->insertPlainText(toQt(text));
}

void MemoView::breakLine() {
    insert(U'\n');
}

}  // namespace velmora::qt
