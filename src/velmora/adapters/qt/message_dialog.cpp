#include "velmora/adapters/qt/message_dialog.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <algorithm>

#include "velmora/adapters/qt/text.h"
#include "velmora/platform/toolkit/message_choices.h"
#include "velmora/platform/toolkit/mnemonics.h"
#include "velmora/platform/version.h"

namespace velmora::qt {

namespace {

using screen::Answer;

constexpr double smallLetters = 0.85;  ///< of the ordinary ones

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
    setWindowTitle(toQt(box.title.empty() ? toolkit::programTitle : box.title));
    setTextFormat(Qt::PlainText);
    setText(toQt(box.text).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    int number = 0;
    for (const toolkit::Choice& choice : toolkit::choicesOf(box.buttons)) {
        QPushButton* button = addButton(toQt(choice.caption), roleOf(choice.answer));
        choices_.push_back({button, choice.answer, toolkit::mnemonicOf(choice.caption)});
        if (++number == box.defaultButton) {
            setDefaultButton(button);
        }
        if (choice.answer == toolkit::answerOfEscape(box.buttons)) {
            setEscapeButton(button);
        }
    }
}

MessageDialog::MessageDialog(const toolkit::ErrorReport& report, QWidget* parent)
    : MessageDialog({.text = report.words, .icon = screen::Icon::critical}, parent) {
    if (!report.number.empty()) {
        setInformativeText(toQt(report.number));
        if (auto* number = findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"))) {
            QFont small = number->font();
            small.setPointSizeF(small.pointSizeF() * smallLetters);
            number->setFont(small);
        }
    }
    addStep(toolkit::copyDetailsCaption, [details = toQt(report.details + "\nVELMORA " + platform::version())] {
        QGuiApplication::clipboard()->setText(details);
    });
    if (report.folder && QFileInfo(toQt(*report.folder)).isDir()) {
        addStep(toolkit::openFolderCaption,
                [folder = toQt(*report.folder)] { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); });
    }
}

void MessageDialog::addStep(std::string_view caption, const std::function<void()>& step) {
    QPushButton* button = addButton(toQt(caption), QMessageBox::ActionRole);
    // The box closes at a button's own signal, which is cut off.
    button->disconnect();
    QObject::connect(button, &QPushButton::clicked, this, step);
}

Answer MessageDialog::ask() {
    exec();
    const auto chosen = std::ranges::find(choices_, clickedButton(), &Choice::button);
    return chosen == choices_.end() ? choices_.back().answer : chosen->answer;
}

void MessageDialog::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text().toUpper();
    const auto chosen =
        std::ranges::find_if(choices_, [&](const Choice& c) { return typed == QString::fromUcs4(&c.letter, 1); });
    if (chosen != choices_.end() && !event->modifiers().testFlag(Qt::ControlModifier)) {
        chosen->button->click();
        return;
    }
    QMessageBox::keyPressEvent(event);
}

}  // namespace velmora::qt
