#include "velmora/apps/desktop/long_statement.h"

#include <QApplication>
#include <QLabel>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

#include "velmora/adapters/sqlite/database.h"

#include "support/temporary_folder.h"

namespace velmora::desktop {
namespace {

/// Presses Cancel in the window of a long statement when there is one, and keeps what it said.
struct Canceller {
    QTimer timer;
    QString title;
    QString text;

    Canceller() {
        QObject::connect(&timer, &QTimer::timeout, [this] { look(); });
        timer.start(20);
    }
    void look() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            auto* dialog = qobject_cast<QProgressDialog*>(window);
            if (dialog != nullptr && dialog->isVisible() && title.isEmpty()) {
                title = dialog->windowTitle();
                text = dialog->labelText();
                dialog->findChild<QPushButton*>()->click();
            }
        }
    }
};

TEST(LongStatement, IsShownAndEndsWithItsButton) {
    int arguments = 3;
    char program[] = "test_desktop";
    char platform[] = "-platform";
    char offscreen[] = "offscreen";
    char* words[] = {program, platform, offscreen, nullptr};
    const QApplication application(arguments, words);
    const support::TemporaryFolder folder;
    sqlite::Options options;
    options.longRun = [] { return std::make_unique<LongStatement>(); };
    options.longRunAfter = std::chrono::milliseconds(50);
    const auto connection = sqlite::openDatabase(folder.file("taller.db"), std::move(options));
    connection->execute("CREATE TABLE T (k int IDENTITY (1, 1) PRIMARY KEY, n int)");
    connection->execute("insert into T (n) values (1)");
    for (int rows = 1; rows < 1024; rows *= 2) {
        connection->execute("insert into T (n) select k from T");
    }
    Canceller canceller;
    try {
        connection->execute("select a.n from T a, T b, T c, T d where a.n + b.n + c.n + d.n < 0 order by a.n desc");
        FAIL() << "nobody waits for that";
    } catch (const sql::DbError& error) {
        EXPECT_EQ(error.description(), "La consulta se ha cancelado.");
    }
    EXPECT_EQ(canceller.title, "Consulta en marcha");
    EXPECT_TRUE(canceller.text.contains("cancelarla"));
    for (QWidget* window : QApplication::topLevelWidgets()) {
        EXPECT_EQ(qobject_cast<QProgressDialog*>(window), nullptr) << "the window is gone";
    }
    EXPECT_TRUE(connection->execute("select top 1 k from T").hasRows());
}

}  // namespace
}  // namespace velmora::desktop
