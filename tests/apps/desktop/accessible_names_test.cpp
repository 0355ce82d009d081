// What a screen reader reads on every form: each control that a person can use has a name, and no two controls of one
// form that a person can tell apart have the same kind, name and group.

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QWidget>
#include <algorithm>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "velmora/adapters/qt/form_window.h"
#include "velmora/adapters/qt/qt_screen.h"

#include "every_form.h"

namespace velmora::desktop {
namespace {

bool isInteractive(QAccessible::Role role) {
    static const std::set<QAccessible::Role> roles{
        QAccessible::EditableText, QAccessible::ComboBox, QAccessible::CheckBox,   QAccessible::Button,
        QAccessible::PushButton,   QAccessible::Table,    QAccessible::ButtonMenu, QAccessible::Graphic};
    return roles.contains(role);
}

/// The controls that a person can use, each as "path of its frames / role name".
class Dump {
  public:
    explicit Dump(const screen::Form& form) {
        for (const screen::Control* control : form.controls()) {
            codes_.insert(control->fullName());
        }
    }

    std::vector<std::string> unnamed;  ///< without a name, or with the name that only the program knows
    std::map<std::string, int> count;

    void take(QAccessibleInterface& node, const std::string& path) {
        const QString name = node.text(QAccessible::Name);
        const QAccessible::Role role = node.role();
        const auto* object = node.object();
        if (isInteractive(role)) {
            const std::string place = path + " / " + std::to_string(role) + " ";
            if (name.trimmed().isEmpty() || codes_.contains(name.toStdString())) {
                unnamed.push_back(place + name.toStdString() +
                                  (object != nullptr ? object->metaObject()->className() : "?"));
            }
            if (!node.state().invisible) {
                ++count[place + name.toStdString()];
            }
            if (role == QAccessible::Table || role == QAccessible::ComboBox) {
                return;  // rows and entries are not controls of the form
            }
        }
        const std::string inner = role == QAccessible::Grouping ? path + " / " + name.toStdString() : path;
        for (int i = 0; i < node.childCount(); ++i) {
            if (QAccessibleInterface* child = node.child(i)) {
                take(*child, inner);
            }
        }
    }

  private:
    std::set<std::string> codes_;
};

class AccessibleNames : public ::testing::Test {
  protected:
    static Dump dumpOf(qt::QtScreen& screen, screen::Form& form, const std::string& name) {
        qt::FormWindow window(screen, form, nullptr);
        window.show();
        QApplication::processEvents();
        Dump dump(form);
        dump.take(*QAccessible::queryAccessibleInterface(&window), name);
        return dump;
    }

  private:
    int count_ = 1;
    char name_[13] = "test_desktop";
    char* arguments_[2] = {name_, nullptr};
    QApplication application_{count_, arguments_};
};

TEST_F(AccessibleNames, AControlWithoutANameAndTwoOfOneNameAreFound) {
    screen::Form form("frm");
    screen::TextBox unnamed(form, "Text1", 3);
    screen::TextBox first(form, "first");
    screen::TextBox second(form, "second");
    form.setLayout(screen::layout::column(screen::layout::plain(unnamed), screen::layout::field("Paso", first, 8),
                                          screen::layout::field("Paso", second, 8)));
    qt::QtScreen screen;
    const Dump dump = dumpOf(screen, form, "frm");
    EXPECT_EQ(dump.unnamed.size(), 1U);
    EXPECT_EQ(std::ranges::count(dump.count, 2, [](const auto& entry) { return entry.second; }), 1);
}

TEST_F(AccessibleNames, EveryControlOfEveryFormHasANameOfItsOwn) {
    EveryForm every;
    int interactive = 0;
    for (const WindowPicture& picture : every.forms()) {
        const auto form = picture.make();
        const Dump dump = dumpOf(every.screen(), *form, picture.name);
        for (const std::string& place : dump.unnamed) {
            ADD_FAILURE() << "without a name: " << place;
        }
        for (const auto& [place, times] : dump.count) {
            ++interactive;
            EXPECT_EQ(times, 1) << place;
        }
    }
    EXPECT_GT(interactive, 300);
}

}  // namespace
}  // namespace velmora::desktop
