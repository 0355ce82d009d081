#include "velmora/apps/walk/steps.h"

#include <map>
#include <sstream>

namespace velmora::walk {

namespace {

Key named(const QString& name) {
    if (name.startsWith(u'^') && name.size() == 2) {
        return {.code = name.at(1).unicode(), .modifiers = Qt::ControlModifier};
    }
    if (name.startsWith(u'!') && name.size() == 2) {
        return {.code = name.at(1).unicode(), .text = name.mid(1).toLower(), .modifiers = Qt::AltModifier};
    }
    if (name.startsWith(u'+') && name.size() > 1) {
        Key key = named(name.mid(1));
        key.modifiers = Qt::ShiftModifier;
        return key;
    }
    if (name == QLatin1String("Esc")) {
        return {.code = Qt::Key_Escape};
    }
    const int function = name.startsWith(u'F') ? name.mid(1).toInt() : 0;
    if (function < 1 || function > 12) {
        throw NoStep("no key: " + name.toStdString());
    }
    return {.code = Qt::Key_F1 + function - 1};
}

Key single(QChar character) {
    static const std::map<QChar, Key> signs{
        {QChar(u'⏎'), {.code = Qt::Key_Return}},
        {QChar(u'↓'), {.code = Qt::Key_Down}},
        {QChar(u'↑'), {.code = Qt::Key_Up}},
        {QChar(u'↹'), {.code = Qt::Key_Tab}},
        {QChar(u'␣'), {.code = Qt::Key_Space, .text = QStringLiteral(" ")}},
    };
    const auto found = signs.find(character);
    return found != signs.end() ? found->second : Key{.code = Qt::Key_unknown, .text = QString(character)};
}

void addKeys(const QString& text, std::vector<Step>& steps) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype end = text.at(i) == u'{' ? text.indexOf(u'}', i) : -1;
        if (end > i) {
            steps.emplace_back(named(text.mid(i + 1, end - i - 1)));
            i = end;
        } else {
            steps.emplace_back(single(text.at(i)));
        }
    }
}

void addStep(const std::string& line, std::vector<Step>& steps) {
    const std::size_t blank = line.find(' ');
    const std::string command = line.substr(0, blank);
    const std::string rest = blank == std::string::npos ? std::string() : line.substr(blank + 1);
    if (rest.empty()) {
        throw NoStep("no step: " + line);
    }
    if (command == "keys") {
        addKeys(QString::fromStdString(rest), steps);
    } else if (command == "picture") {
        steps.emplace_back(ScreenPicture{rest});
    } else if (command == "window") {
        steps.emplace_back(WindowPicture{rest});
    } else if (command == "paper") {
        steps.emplace_back(Paper{rest});
    } else {
        throw NoStep("no step: " + line);
    }
}

}  // namespace

std::vector<Step> stepsOf(const std::string& text) {
    std::vector<Step> steps;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && !line.starts_with('#')) {
            addStep(line, steps);
        }
    }
    return steps;
}

}  // namespace velmora::walk
