#include "velmora/adapters/qt/combo_box_view.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <QTimer>

#include "velmora/adapters/qt/text.h"
#include "velmora/adapters/qt/theme.h"
#include "velmora/platform/screen/form.h"

namespace velmora::qt {

/// A combo box of a given width that reports when its list is about to open.
class ListBox : public QComboBox {
  public:
    ListBox(int digits, QWidget* parent) : QComboBox(parent), digits_(digits) {
        setSizePolicy(digits > 0 ? QSizePolicy::Fixed : QSizePolicy::Expanding, QSizePolicy::Fixed);
        setFocusPolicy(Qt::TabFocus);
        setMaxVisibleItems(20);
    }

    std::function<void()> aboutToOpen;

    void showPopup() override {
        if (aboutToOpen) {
            aboutToOpen();
        }
        const int wanted = view()->sizeHintForColumn(0) + 28;
        view()->setMinimumWidth(std::max(width(), wanted));
        QComboBox::showPopup();
    }
    QSize sizeHint() const override { return {widthHint(24), QComboBox::sizeHint().height()}; }
    QSize minimumSizeHint() const override { return {widthHint(10), QComboBox::minimumSizeHint().height()}; }

  private:
    int widthHint(int otherwise) const {
        const int digits = digits_ > 0 ? digits_ : otherwise;
        return fontMetrics().horizontalAdvance(QLatin1Char('0')) * digits + 30;
    }
    int digits_;
};

ComboBoxView::ComboBoxView(ViewHost& host, screen::ComboBox& box, const screen::Layout& layout, QWidget* parent)
    : ControlView(host, box), box_(box), list_(new ListBox(layout.width, parent)) {
    if (box.style() == screen::ComboBox::Style::editable) {
        list_->setEditable(true);
        list_->setInsertPolicy(QComboBox::NoInsert);
        list_->setCompleter(nullptr);
        list_->lineEdit()->setFocusPolicy(Qt::NoFocus);
        connect(list_, &QComboBox::editTextChanged, this, [this](const QString& text) { edited(text); });
    }
    connect(list_, &QComboBox::activated, this, [this](int index) { chosen(index); });
    list_->aboutToOpen = [this] {
        if (itemsPending_) {
            bringItems();
        }
    };
}

QWidget& ComboBoxView::widget() {
    return *list_;
}

QWidget& ComboBoxView::focusTarget() {
    return *list_;
}

std::vector<QWidget*> ComboBoxView::inputs() {
    if (list_->lineEdit() != nullptr) {
        return {list_, list_->lineEdit()};
    }
    return {list_};
}

// While a list is being filled, each entry sends a notification; the widget is updated once, when filling is done.
void ComboBoxView::update(screen::Property property) {
    switch (property) {
        case screen::Property::items:
            if (!itemsPending_) {
                itemsPending_ = true;
                QTimer::singleShot(0, this, [this] {
                    if (itemsPending_) {
                        bringItems();
                    }
                });
            }
            break;
        case screen::Property::listIndex:
        case screen::Property::text:
            if (!itemsPending_) {
                bringChoice();
            }
            break;
        default:
            ControlView::update(property);
    }
}

void ComboBoxView::updateAll() {
    ControlView::updateAll();
    bringItems();
}

void ComboBoxView::bringItems() {
    itemsPending_ = false;
    QStringList texts;
    for (const std::string& item : box_.items()) {
        texts.append(toQt(item));
    }
    fromModel_ = true;
    list_->clear();
    list_->addItems(texts);
    fromModel_ = false;
    bringChoice();
}

void ComboBoxView::bringChoice() {
    fromModel_ = true;
    if (list_->currentIndex() != box_.listIndex()) {
        list_->setCurrentIndex(box_.listIndex());
    }
    if (list_->isEditable() && list_->currentText() != toQt(box_.text())) {
        list_->setEditText(toQt(box_.text()));
    }
    fromModel_ = false;
}

void ComboBoxView::chosen(int index) {
    host().feed([&] { box_.choose(index); });
    bringChoice();
}

void ComboBoxView::edited(const QString& text) {
    if (!fromModel_) {
        host().feed([&] { box_.setText(fromQt(text)); });
        bringChoice();
    }
}

bool ComboBoxView::key(const KeyStroke& stroke) {
    if (!toolkit::editsText(stroke.character)) {
        // F4 opens the list, as is usual.
        if (stroke.key == screen::Key::f4) {
            list_->showPopup();
        }
        return true;
    }
    // A plain list selects entries by typing itself.
    if (!list_->isEditable()) {
        return false;
    }
    if (stroke.character == toolkit::backspace) {
        list_->lineEdit()->backspace();
    } else {
        list_->lineEdit()->insert(QString::fromUcs4(&stroke.character, 1));
    }
    return true;
}

// The mouse wheel over a list without the focus scrolls the window and does not change the value.
bool ComboBoxView::otherEvent(QEvent& event) {
    if (event.type() == QEvent::Wheel && box_.form().activeControl() != &box_) {
        event.ignore();
        return true;
    }
    return false;
}

void ComboBoxView::updateColors() {
    theme::paintField(*list_, box_, screen::Role::entered);
    if (list_->lineEdit() != nullptr) {
        list_->lineEdit()->setPalette(list_->palette());
    }
    QPalette popup = list_->view()->palette();
    popup.setColor(QPalette::Base, QColor(theme::entered));
    list_->view()->setPalette(popup);
}

}  // namespace velmora::qt
