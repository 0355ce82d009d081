#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QTableView>
#include <QToolTip>
#include <algorithm>

#include <gmock/gmock.h>

#include "qt_bench.h"
#include "sample_form.h"

namespace velmora::testing {
namespace {

using ::testing::ElementsAre;

/// Rows created on demand; records how far they were read.
class CountedRows : public sql::RowSource {
  public:
    CountedRows(std::size_t rows, std::size_t& farthest, bool& counted)
        : rows_(rows), farthest_(farthest), counted_(counted) {}

    const std::vector<sql::Column>& columns() const override { return columns_; }
    bool hasRow(std::size_t position) override {
        farthest_ = std::max(farthest_, std::min(position, rows_));
        return position < rows_;
    }
    const sql::Row& row(std::size_t position) override {
        row_ = {static_cast<std::int64_t>(position), "Fila"};
        return row_;
    }
    std::size_t rowCount() override {
        counted_ = true;
        return rows_;
    }
    std::unique_ptr<sql::RowSource> reopen() const override {
        return std::make_unique<CountedRows>(rows_, farthest_, counted_);
    }

  private:
    std::size_t rows_;
    std::size_t& farthest_;
    bool& counted_;
    std::vector<sql::Column> columns_{{"ID"}, {"TEXTO"}};
    sql::Row row_;
};

class Grid : public QtBench {
  protected:
    Grid() {
        form.history.setColumns({{.field = 0, .caption = "Id", .right = true},
                                 {.field = 1, .caption = "Oculta", .visible = false},
                                 {.field = 1, .caption = "Texto", .width = 3000},
                                 {.field = 1, .caption = "", .button = true}});
    }
    void bind(std::size_t rows) {
        form.history.bind(sql::Recordset(std::make_unique<CountedRows>(rows, farthest, counted)));
    }
    QTableView& table() const { return dynamic_cast<QTableView&>(widgetOf(form.history)); }
    QString count() const { return table().parentWidget()->findChild<QLabel*>()->text(); }
    void clickCell(int row, int column) const {
        const QModelIndex index = table().model()->index(row, column);
        table().scrollTo(index);
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, table().visualRect(index).center());
    }

    std::size_t farthest = 0;
    bool counted = false;
    SampleForm form;
};

TEST_F(Grid, AHugeSetIsNeitherCountedNorReadWhenItOpens) {
    bind(100000);
    play(form, [&] {
        EXPECT_LT(farthest, 1000u);
        EXPECT_FALSE(counted);
        EXPECT_EQ(count(), "Fila 1 de más de 256 filas");
        table().scrollToBottom();
        QApplication::processEvents();
        EXPECT_GT(table().model()->rowCount(), 256);
        EXPECT_LT(farthest, 2000u);
    });
}

TEST_F(Grid, TheEndKeyGoesToTheLastRowOfTheSet) {
    bind(1310720);
    play(form, [&] {
        form.moveFocus(form.history);
        key(Qt::Key_End);
        EXPECT_EQ(form.history.recordset().position(), std::optional<std::size_t>(1310719));
        EXPECT_EQ(table().currentIndex().row(), 1310719);
        EXPECT_EQ(count(), "Fila 1.310.720 de 1.310.720 filas");
    });
}

TEST_F(Grid, HiddenColumnsAreLeftOut) {
    bind(3);
    play(form, [&] {
        EXPECT_EQ(table().model()->columnCount(), 3);
        EXPECT_EQ(table().model()->headerData(1, Qt::Horizontal).toString(), "Texto");
        EXPECT_EQ(count(), "Fila 1 de 3 filas");
    });
}

TEST_F(Grid, ATextThatItsColumnCutsOffIsToldWholeUnderTheMouse) {
    bind(3);
    play(form, [&] {
        const auto hover = [&] {
            const QPoint at = table().visualRect(table().model()->index(1, 1)).center();
            QHelpEvent event(QEvent::ToolTip, at, table().viewport()->mapToGlobal(at));
            QApplication::sendEvent(table().viewport(), &event);
        };
        table().setColumnWidth(1, 200);
        hover();
        EXPECT_FALSE(QToolTip::isVisible());
        table().setColumnWidth(1, 24);
        hover();
        EXPECT_EQ(QToolTip::text(), "Fila");
        QToolTip::hideText();
    });
}

TEST_F(Grid, TheArrowKeysMoveTheRecordset) {
    bind(10);
    int moves = 0;
    sql::Recordset rows = form.history.recordset();
    const sql::Subscription listening = rows.onMoveComplete([&] { ++moves; });
    play(form, [&] {
        form.moveFocus(form.history);
        key(Qt::Key_Down);
        key(Qt::Key_Down);
        EXPECT_EQ(rows.position(), std::optional<std::size_t>(2));
        EXPECT_EQ(moves, 2);
    });
}

TEST_F(Grid, AMoveOfTheRecordsetMovesTheCurrentRow) {
    bind(1000);
    play(form, [&] {
        sql::Recordset rows = form.history.recordset();
        rows.moveTo(700);
        EXPECT_EQ(table().currentIndex().row(), 700);
        rows.moveFirst();
        EXPECT_EQ(table().currentIndex().row(), 0);
    });
}

TEST_F(Grid, ACellButtonFirstMovesTheRowThenTellsItsColumn) {
    bind(10);
    std::vector<std::pair<int, std::size_t>> pressed;
    form.history.onButtonClick = [&](int column) {
        pressed.emplace_back(column, *form.history.recordset().position());
    };
    play(form, [&] {
        clickCell(2, 2);
        clickCell(1, 1);
        EXPECT_THAT(pressed, ElementsAre(std::pair<int, std::size_t>(3, 2)));
        EXPECT_EQ(form.history.recordset().position(), std::optional<std::size_t>(1));
        EXPECT_EQ(form.activeControl(), &form.history);
    });
}

TEST_F(Grid, ADoubleClickDoesWhatTheButtonOfTheRowDoesOnce) {
    bind(10);
    std::vector<std::pair<int, std::size_t>> pressed;
    form.history.onButtonClick = [&](int column) {
        pressed.emplace_back(column, *form.history.recordset().position());
    };
    const auto doubleClickCell = [&](int row, int column) {
        clickCell(row, column);
        const QPoint place = table().visualRect(table().model()->index(row, column)).center();
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, place);
    };
    play(form, [&] {
        doubleClickCell(4, 0);
        EXPECT_THAT(pressed, ElementsAre(std::pair<int, std::size_t>(3, 4)));
    });
}

TEST_F(Grid, RowsGrowWithTheLetters) {
    bind(10);
    play(form, [&] {
        const auto heights = [&] { return std::pair(table().rowHeight(0), table().horizontalHeader()->height()); };
        const int ordinary = heights().first;
        EXPECT_GE(ordinary, 24);
        const QFont before = QApplication::font();
        QFont large = before;
        large.setPointSizeF(before.pointSizeF() * 2);
        QApplication::setFont(large);
        QApplication::processEvents();
        EXPECT_GE(heights().first, table().fontMetrics().height() + 6);
        EXPECT_GT(heights().first, ordinary + 8);
        EXPECT_EQ(heights().first, heights().second);
        QApplication::setFont(before);
        QApplication::processEvents();
        EXPECT_EQ(heights(), std::pair(ordinary, ordinary));
    });
}

TEST_F(Grid, ACellWithoutAValueIsNoButton) {
    form.history.setColumns({{.field = 0, .caption = "Id"}, {.field = 1, .caption = "Orden", .button = true}});
    form.history.bind(sql::Recordset(sql::rowsInMemory({{"ID"}, {"ORDEN"}}, {{1, sql::Value{}}, {2, 24123}})));
    std::vector<std::size_t> pressed;
    form.history.onButtonClick = [&](int) { pressed.push_back(*form.history.recordset().position()); };
    play(form, [&] {
        clickCell(0, 1);
        EXPECT_TRUE(pressed.empty());
        EXPECT_EQ(form.history.recordset().position(), 0u);
        clickCell(1, 1);
        EXPECT_THAT(pressed, ElementsAre(1u));
    });
}

TEST_F(Grid, APressMeantForARowThatGivesItsPlaceToAnotherDoesNothing) {
    std::vector<std::size_t> pressed;
    form.history.onButtonClick = [&](int) { pressed.push_back(*form.history.recordset().position()); };
    const auto listThreeFrom = [this](int first) {
        std::vector<sql::Row> rows;
        for (int i = first; i < first + 3; ++i) {
            rows.push_back({i, "Fila"});
        }
        form.history.bind(sql::Recordset(sql::rowsInMemory({{"ID"}, {"TEXTO"}}, std::move(rows))));
    };
    listThreeFrom(10);
    play(form, [&] {
        form.id(0).onLostFocus = [&] { listThreeFrom(11); };
        clickCell(2, 2);
        EXPECT_EQ(form.activeControl(), &form.history);
        EXPECT_TRUE(pressed.empty()) << "12 stood there, and now 13";
        EXPECT_EQ(form.history.recordset().position(), 0u);
        clickCell(2, 2);
        EXPECT_THAT(pressed, ElementsAre(2u)) << "what is seen now is pressed";
        form.moveFocus(form.id(0));
        clickCell(1, 2);
        EXPECT_THAT(pressed, ElementsAre(2u, 1u)) << "listed anew, and the same row stands there";
    });
}

TEST_F(Grid, KeysReachTheGridAfterTheForm) {
    bind(10);
    std::vector<std::string> seen;
    form.onKeyDown = [&](screen::KeyDown& event) {
        seen.push_back("form");
        if (event.key == screen::Key::f9) {
            event.key = screen::Key::none;
        }
    };
    form.history.onKeyDown = [&](screen::KeyDown&) { seen.push_back("grid"); };
    play(form, [&] {
        form.moveFocus(form.history);
        key(Qt::Key_F3);
        key(Qt::Key_F9);
        EXPECT_THAT(seen, ElementsAre("form", "grid", "form"));
    });
}

TEST_F(Grid, AnEmptyAndAnUnboundGridHaveNoRow) {
    bind(0);
    play(form, [&] {
        EXPECT_EQ(count(), "0 filas");
        form.history.bind({});
        EXPECT_EQ(count(), "0 filas");
        EXPECT_FALSE(table().currentIndex().isValid());
    });
}

TEST_F(Grid, ARowThatCannotBeReadIsToldOnceAndTheGridStandsEmpty) {
    class Broken : public sql::RowSource {
      public:
        const std::vector<sql::Column>& columns() const override { return columns_; }
        bool hasRow(std::size_t position) override {
            if (position > 0) {
                throw runtime::RuntimeError(5, "sin conexión");
            }
            return true;
        }
        const sql::Row& row(std::size_t) override { return row_; }
        std::size_t rowCount() override { return 1; }
        std::unique_ptr<sql::RowSource> reopen() const override { return std::make_unique<Broken>(); }

      private:
        std::vector<sql::Column> columns_{{"ID"}, {"TEXTO"}};
        sql::Row row_{1, "x"};
    };
    const int before = screen_->boxesShown();
    play(form, [&] {
        whenBoxOpens([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        form.history.bind(sql::Recordset(std::make_unique<Broken>()));
        QTest::qWait(60);
    });
    EXPECT_EQ(screen_->boxesShown() - before, 2);  // the form, and one box
}

}  // namespace
}  // namespace velmora::testing
