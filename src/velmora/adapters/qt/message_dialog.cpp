#include "velmora/adapters/qt/message_dialog.h"

#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>

#include "velmora/adapters/qt/text.h"

namespace velmora::qt {

namespace {

using screen::Answer;

QMessageBox::Icon iconOf(screen::Icon icon) {
    switch (icon) {
        case screen::Icon::critical:
            return QMessageBox::Critical;
        case screen::Icon::question:
            return QMessageBox::Question;
        case screen::Icon::exclamation:
            return QMessageBox::Warning;
        case screen::Icon::information:
            return QMessageBox::Information;
        case screen::Icon::none:
            break;
    }
    return QMessageBox::NoIcon;
}

std::vector<Answer> answersOf(screen::Buttons buttons) {
    switch (buttons) {
        case screen::Buttons::yesNo:
            return {Answer::yes, Answer::no};
        case screen::Buttons::yesNoCancel:
            return {Answer::yes, Answer::no, Answer::cancel};
        case screen::Buttons::ok:
            break;
    }
    return {Answer::ok};
}

QString captionOf(Answer answer) {
    switch (answer) {
        case Answer::yes:
            return QStringLiteral("&Sí");
        case Answer::no:
            return QStringLiteral("&No");
        case Answer::cancel:
            return QStringLiteral("&Cancelar");
        case Answer::ok:
            break;
    }
    return QStringLiteral("&Aceptar");
}

QMessageBox::ButtonRole roleOf(Answer answer) {
    switch (answer) {
        case Answer::yes:
            return QMessageBox::YesRole;
        case Answer::no:
            return QMessageBox::NoRole;
        case Answer::cancel:
            return QMessageBox::RejectRole;
        case Answer::ok:
            break;
    }
    return QMessageBox::AcceptRole;
}

}  // namespace

MessageDialog::MessageDialog(const screen::MessageBox& box, QWidget* parent) : QMessageBox(parent) {
    setIcon(iconOf(box.icon));
    setWindowTitle(box.title.empty() ? QStringLiteral("VELMORA") : toQt(box.title));
    setTextFormat(Qt::PlainText);
    setText(toQt(box.text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    int number = 0;
    for (const Answer answer : answersOf(box.buttons)) {
        const QString caption = captionOf(answer);
        QPushButton* button = addButton(caption, roleOf(answer));
        choices_.push_back({button, answer, caption.at(1).toUpper()});
        if (++number == box.defaultButton) {
            setDefaultButton(button);
        }
        // Chosen C-240: Esc presses the last button, the mildest one: OK, No, Cancel. A box with Yes and No that could
        // not be left by Esc would hold a user who expects it everywhere.
        setEscapeButton(button);
    }
}

Answer MessageDialog::ask() {
    exec();
    const auto chosen = std::ranges::find(choices_, clickedButton(), &Choice::button);
    return chosen == choices_.end() ? choices_.back().answer : chosen->answer;
}

void MessageDialog::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text().toUpper();
    const auto chosen = std::ranges::find_if(choices_, [&](const Choice& c) { return typed == c.letter; });
    if (chosen != choices_.end() && !event->modifiers().testFlag(Qt::ControlModifier)) {
        chosen->button->click();
        return;
    }
    QMessageBox::keyPressEvent(event);
}

}  // namespace velmora::qt
