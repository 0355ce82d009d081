#include "velmora/apps/desktop/title_note.h"

#include <QApplication>
#include <QTimer>

#include <gmock/gmock.h>

#include "velmora/adapters/qt/form_window.h"
#include "velmora/adapters/qt/qt_screen.h"

namespace velmora::desktop {
namespace {

int titleArgumentCount = 1;
char titleProgram[] = "test";
char* titleArguments[] = {titleProgram, nullptr};

TEST(TitleNote, StandsBehindTheTitleOfEveryWindow) {
    QApplication application(titleArgumentCount, titleArguments);
    qt::QtScreen screen;
    screen::Form form("frm");
    screen::TextBox box(form, "txt");
    form.setCaption("Propuestas");
    form.setLayout(screen::layout::plain(box));
    form.setTabOrder({&box});
    QStringList titles;
    const auto show = [&] {
        QTimer::singleShot(0, [&] {
            titles << screen.top()->windowTitle();
            form.setCaption("Propuesta 7");
            titles << screen.top()->windowTitle();
            QTimer::singleShot(0, [&] {
                titles << QApplication::activeModalWidget()->windowTitle();
                QApplication::activeModalWidget()->close();
            });
            screen.show({.text = "Datos Grabados", .title = "Aviso"});
            form.unload();
        });
        screen.showModal(form);
    };
    {
        const TitleNote note(QStringLiteral(" — DEMO"));
        show();
    }
    EXPECT_EQ(titles, QStringList({"Propuestas — DEMO", "Propuesta 7 — DEMO", "Aviso — DEMO"}));
    QWidget later;
    later.setWindowTitle(QStringLiteral("Otra"));
    EXPECT_EQ(later.windowTitle(), QStringLiteral("Otra"));
}

}  // namespace
}  // namespace velmora::desktop
