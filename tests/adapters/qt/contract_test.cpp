#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <map>
#include <stdexcept>

#include "velmora/adapters/qt/text.h"

#include "qt_hand.h"
#include "toolkit_contract.h"

namespace velmora::test {

namespace {

using screen::Key;
using toolkit::RowMove;

Qt::Key qtKey(Key key) {
    static const std::map<Key, Qt::Key> keys{
        {Key::enter, Qt::Key_Return}, {Key::escape, Qt::Key_Escape}, {Key::tab, Qt::Key_Tab}, {Key::f1, Qt::Key_F1},
        {Key::f2, Qt::Key_F2},        {Key::f3, Qt::Key_F3},         {Key::f4, Qt::Key_F4},   {Key::f5, Qt::Key_F5},
        {Key::f6, Qt::Key_F6},        {Key::f7, Qt::Key_F7},         {Key::f8, Qt::Key_F8},   {Key::f9, Qt::Key_F9}};
    return keys.at(key);
}

Qt::Key qtKey(RowMove move) {
    static const std::map<RowMove, Qt::Key> keys{
        {RowMove::up, Qt::Key_Up},         {RowMove::down, Qt::Key_Down},
        {RowMove::pageUp, Qt::Key_PageUp}, {RowMove::pageDown, Qt::Key_PageDown},
        {RowMove::first, Qt::Key_Home},    {RowMove::last, Qt::Key_End}};
    return keys.at(move);
}

class QtUser final : public ToolkitUser, private velmora::testing::QtHand {
  public:
    void play(screen::Form& form, const std::function<void()>& part) override {
        QTimer reader;
        QObject::connect(&reader, &QTimer::timeout, [this] { readErrorBox(); });
        reader.start(5);
        show(form, part);
    }

    void key(Key key, bool shift) override {
        if (key == Key::padDecimal) {
            QtHand::key(Qt::Key_Period, Qt::KeypadModifier);
        } else if (key == Key::tab && shift) {
            QtHand::key(Qt::Key_Backtab, Qt::ShiftModifier);
        } else {
            QtHand::key(qtKey(key), shift ? Qt::ShiftModifier : Qt::NoModifier);
        }
    }
    void type(std::u32string_view characters) override {
        for (const char32_t character : characters) {
            if (character == U' ') {
                QtHand::key(Qt::Key_Space);
            } else {
                QtHand::type(QString::fromUcs4(&character, 1));
            }
        }
    }
    void backspace() override { QtHand::key(Qt::Key_Backspace); }
    void alt(char letter) override {
        QtHand::key(static_cast<Qt::Key>(Qt::Key_A + (letter - 'a')), Qt::AltModifier);
        // A button pressed by its letter is shown pressed before it clicks.
        QTest::qWait(150);
    }
    void row(RowMove move) override { QtHand::key(qtKey(move)); }

    void click(screen::Control& control) override {
        QWidget& widget = widgetOf(control);
        // A check box is as wide as its row; the box itself is at its left.
        const QPoint at = dynamic_cast<QCheckBox*>(&widget) != nullptr ? QPoint(8, widget.height() / 2) : QPoint();
        QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
    }
    void clickItem(screen::Toolbar& bar, int item) override {
        QLayout* row = widgetOf(bar).layout();
        QTest::mouseClick(row->itemAt(item - 1)->widget(), Qt::LeftButton);
    }
    void clickCell(screen::DataGrid& grid, std::size_t row, std::size_t column) override {
        auto& table = dynamic_cast<QTableView&>(widgetOf(grid));
        int section = 0;
        for (std::size_t i = 0; i < column; ++i) {
            section += grid.columns()[i].visible ? 1 : 0;
        }
        const QModelIndex index = table.model()->index(static_cast<int>(row), section);
        table.scrollTo(index);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(index).center());
    }

    bool sees(const screen::Control& control) override {
        QApplication::processEvents();
        return screen_->top()->viewOf(control)->widget().isVisible();
    }
    bool looksEnabled(const screen::Control& control) override { return widgetOf(control).isEnabled(); }
    std::string reads(const screen::Control& control) override {
        const QWidget* widget = &widgetOf(control);
        if (const auto* edit = dynamic_cast<const QLineEdit*>(widget)) {
            return qt::fromQt(edit->text());
        }
        if (const auto* memo = dynamic_cast<const QPlainTextEdit*>(widget)) {
            return qt::fromQt(memo->toPlainText().replace("\n", "\r\n"));
        }
        if (const auto* list = dynamic_cast<const QComboBox*>(widget)) {
            return qt::fromQt(list->currentText());
        }
        if (const auto* check = dynamic_cast<const QCheckBox*>(widget)) {
            return check->isChecked() ? "on" : "off";
        }
        if (const auto* button = dynamic_cast<const QPushButton*>(widget)) {
            return qt::fromQt(button->text());
        }
        throw std::logic_error("nothing to read on " + control.fullName());
    }
    bool keyboardIsIn(const screen::Control& control) override { return widgetOf(control).hasFocus(); }
    std::vector<std::string> errorsRead() override { return errors_; }

  private:
    void readErrorBox() {
        auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box != nullptr && box->isVisible()) {
            errors_.push_back(qt::fromQt(box->text()));
            QTest::keyClick(box, Qt::Key_Return);
        }
    }

    std::vector<std::string> errors_;
};

std::unique_ptr<ToolkitUser> makeUser() {
    return std::make_unique<QtUser>();
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Qt, ToolkitContract, ::testing::Values(ToolkitUnderTest{"Qt", makeUser}));

}  // namespace velmora::test
