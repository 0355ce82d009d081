#include "velmora/tracking/export.h"

#include <gmock/gmock.h>

#include "tracking_form.h"

namespace velmora::tracking {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What the spreadsheet component received, and the state of the form meanwhile.
struct Export {
    std::string title;
    std::vector<std::string> captions;
    std::vector<std::string> numbers;
    bool formEnabled = true;
    bool pointerWaits = false;
    int released = 0;
    int yields = 0;  ///< how often the screen was let catch up before
};

class ExportTest : public TrackingTest {
  protected:
    class Spreadsheet final : public components::Spreadsheet {
      public:
        explicit Spreadsheet(ExportTest& test) : test_(test) {}
        ~Spreadsheet() override { ++test_.seen.released; }
        void setTitulo(std::string_view sTitulo) override { test_.seen.title = sTitulo; }
        void GridToExcel(sql::Recordset& rows, const screen::DataGrid& grid) override {
            for (const screen::GridColumn& column : grid.columns()) {
                test_.seen.captions.push_back(column.caption);
            }
            for (; !rows.eof(); rows.moveNext()) {
                test_.seen.numbers.push_back(rows["DPI_Id"].toText());
            }
            test_.seen.yields = test_.shop.screen.yields;
            test_.seen.formEnabled = test_.form->enabled();
            test_.seen.pointerWaits = test_.shop.screen.pointers.back() == screen::Pointer::hourglass;
            if (test_.fails) {
                throw runtime::RuntimeError(70, "Permiso denegado");
            }
        }

      private:
        ExportTest& test_;
    };

    void withComponent() {
        shop.components.add("LIMBAR.jLimbar", [this] {
            ++made;
            return std::make_unique<Spreadsheet>(*this);
        });
    }
    void openWithRows() {
        store("DPI_Fecha", "'10/01/2026'");
        store("DPI_Fecha", "'11/01/2026'");
        store("DPI_Fecha", "'12/01/2026'");
        open();
        listAll();
    }
    void expectBackAsItWas() {
        EXPECT_TRUE(form->enabled());
        EXPECT_THAT(shop.screen.pointers, ElementsAre(screen::Pointer::hourglass, screen::Pointer::normal));
        EXPECT_THAT(shop.screen.messages, IsEmpty());
        EXPECT_THAT(shop.errors, IsEmpty());
    }

    Export seen;
    int made = 0;
    bool fails = false;
};

TEST_F(ExportTest, TheComponentGetsTitleRowsAndColumns) {
    withComponent();
    openWithRows();
    press(fields().cmdExcel);
    EXPECT_EQ(seen.title, "Registro de presupuestos especiales");
    EXPECT_THAT(seen.numbers, ElementsAre("3", "2", "1"));
    EXPECT_THAT(seen.captions, ElementsAre("Tipo", "Presupuesto", "Fecha Presupuesto", "Fecha Aceptación", "Orden",
                                           "Unidades", "Importe Unidad", "Cliente", "Nombre"));
    EXPECT_FALSE(seen.formEnabled);
    EXPECT_TRUE(seen.pointerWaits);
    EXPECT_EQ(seen.released, 1);
    expectBackAsItWas();
}

TEST_F(ExportTest, ThePointerIsOnTheScreenBeforeTheWorkAndOffAfterIt) {
    withComponent();
    openWithRows();
    shop.screen.yields = 0;
    press(fields().cmdExcel);
    EXPECT_EQ(seen.yields, 1);
    EXPECT_EQ(shop.screen.yields, 2);
}

TEST_F(ExportTest, TheCurrentRowAndThePanelStay) {
    withComponent();
    openWithRows();
    fields().dbgDPI.moveToRow(1);
    set(fields().txtPesu(customerOrder), "TECLEADO");
    press(fields().cmdExcel);
    EXPECT_EQ(fields().rsDpi->position(), 1u);
    EXPECT_EQ(detail(customerOrder), "TECLEADO") << "no row was shown anew";
    EXPECT_THAT(seen.numbers, ElementsAre("3", "2", "1")) << "all rows, from the first";
}

TEST_F(ExportTest, AnEmptyListMakesNoComponent) {
    withComponent();
    open();
    press(fields().cmdExcel);
    EXPECT_EQ(made, 0);
    expectBackAsItWas();
}

TEST_F(ExportTest, AMissingComponentIsNotTold) {
    openWithRows();
    press(fields().cmdExcel);
    expectBackAsItWas();
}

TEST_F(ExportTest, AFailingComponentIsNotToldAndReleased) {
    withComponent();
    openWithRows();
    fails = true;
    press(fields().cmdExcel);
    EXPECT_EQ(seen.released, 1);
    expectBackAsItWas();
}

TEST_F(ExportTest, AClosedListLeavesTheFormDisabledAndThePointerWaiting) {
    withComponent();
    openWithRows();
    fields().rsDpi = sql::Recordset();
    press(fields().cmdExcel);
    EXPECT_EQ(made, 0);
    EXPECT_FALSE(form->enabled());
    EXPECT_THAT(shop.screen.pointers, ElementsAre(screen::Pointer::hourglass));
}

TEST_F(ExportTest, AnOpenListNeverDoes) {
    openWithRows();
    shop.connection.refuse("from DPI");
    press(fields().cmdfiltro);
    shop.errors.clear();
    press(fields().cmdExcel);
    expectBackAsItWas();
}

}  // namespace
}  // namespace velmora::tracking
