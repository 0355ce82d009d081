#include "velmora/adapters/qt/memo_view.h"

#include <QTextBlock>

#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"

namespace velmora::qt {

namespace {

constexpr char32_t backspace = 8;

// The model ends a line with carriage return and line feed, as the database keeps it.
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
    : ControlView(host, box),
      box_(box),
      role_(layout.role),
      edit_(new SizedTextEdit(std::max(layout.lines, 1), layout.width, parent)) {
    edit_->setFocusPolicy(Qt::TabFocus);
    edit_->setTabChangesFocus(true);
    edit_->document()->setDocumentMargin(2);
    edit_->setSizePolicy(layout.width > 0 ? QSizePolicy::Fixed : QSizePolicy::Expanding,
                         layout.stretch > 0 ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    connect(edit_, &QPlainTextEdit::textChanged, this, [this] { edited(); });
}

void MemoView::update(screen::Property property) {
    switch (property) {
        case screen::Property::text:
            bringText();
            break;
        case screen::Property::locked:
            edit_->setReadOnly(box_.locked());
            updateColors();
            break;
        default:
            ControlView::update(property);
    }
}

void MemoView::updateAll() {
    ControlView::updateAll();
    update(screen::Property::locked);
    bringText();
}

void MemoView::bringText() {
    fromModel_ = true;
    if (modelText(*edit_) != box_.text() && edit_->toPlainText() != shownText(box_)) {
        edit_->setPlainText(shownText(box_));
    }
    if (box_.allSelected()) {
        edit_->selectAll();
    }
    fromModel_ = false;
}

void MemoView::edited() {
    if (fromModel_) {
        return;
    }
    changed_ = true;
    const std::string text = modelText(*edit_);
    host().feed([&] { box_.setText(text); });
    bringText();
}

bool MemoView::key(const KeyStroke& stroke) {
    if (box_.locked()) {
        return true;
    }
    if (stroke.key == screen::Key::enter) {
        edit_->insertPlainText(QStringLiteral("\n"));
        return true;
    }
    if (stroke.character == 0) {
        return true;
    }
    screen::KeyPress press{stroke.character};
    box_.onKeyPress(press);
    if (press.character == 0) {
        return true;
    }
    box_.clearSelection();
    if (press.character == backspace) {
        edit_->textCursor().deletePreviousChar();
    } else {
        edit_->insertPlainText(QString::fromUcs4(&press.character, 1));
    }
    edit_->ensureCursorVisible();
    return true;
}

bool MemoView::otherEvent(QEvent& event) {
    if (event.type() == QEvent::MouseButtonPress) {
        box_.clearSelection();
    }
    return false;
}

void MemoView::focusGained() {
    changed_ = false;
    updateColors();
}

void MemoView::focusLeft() {
    commitPending_ = commitPending_ || changed_;
    changed_ = false;
    box_.clearSelection();
    QTextCursor cursor = edit_->textCursor();
    cursor.clearSelection();
    edit_->setTextCursor(cursor);
    updateColors();
}

void MemoView::finish() {
    if (commitPending_) {
        commitPending_ = false;
        box_.onCommit();
    }
}

void MemoView::updateColors() {
    theme::paintField(*edit_, box_, box_.locked() ? screen::Role::calculated : role_);
}

}  // namespace velmora::qt
