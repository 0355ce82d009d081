#include "velmora/finding/found_rows.h"

#include <gmock/gmock.h>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/screen/form.h"

namespace velmora::finding {
namespace {

Found some() {
    return {.proposals = {{.number = 321,
                           .created = runtime::Date{},
                           .customer = "Harinas",
                           .reference = "P-1",
                           .piece = "Disco 38 x 12,7",
                           .units = 3.0,
                           .total = 1300.5,
                           .state = "Orden 57"},
                          {.number = 320}}};
}

TEST(FoundRows, AGridShowsThem) {
    screen::Form form("frm");
    screen::DataGrid grid(form, "grid");
    grid.bind(foundRows(some()));
    grid.setColumns(foundColumns());
    ASSERT_EQ(grid.rowCount(), 2u);
    EXPECT_EQ(grid.cellText(0, 0), "000321");
    EXPECT_EQ(grid.cellText(0, 1), runtime::Format(runtime::Date{}, "dd/mm/yyyy"));
    EXPECT_EQ(grid.cellText(0, 2), "Harinas");
    EXPECT_EQ(grid.cellText(0, 3), "P-1");
    EXPECT_EQ(grid.cellText(0, 4), "Disco 38 x 12,7");
    EXPECT_EQ(grid.cellText(0, 5), "3");
    EXPECT_EQ(grid.cellText(0, 6), "1.300,50");
    EXPECT_EQ(grid.cellText(0, 7), "Orden 57");
    EXPECT_EQ(grid.cellText(1, 1), "");
    EXPECT_EQ(grid.cellText(1, 6), "");
}

TEST(FoundRows, ASentenceTellsHowManyAndWhatWasLeftOut) {
    Found found = some();
    EXPECT_EQ(foundSentence(found, readWanted("disco")), "2 propuestas.");
    found.isCut = true;
    EXPECT_EQ(foundSentence(found, {}), "Las últimas 2 propuestas.");
    EXPECT_EQ(foundSentence(found, readWanted("disco")), "Las primeras 2 propuestas.");
    found = {};
    EXPECT_EQ(foundSentence(found, {}), "Todavía no hay ninguna propuesta.");
    found.reachedAll = false;
    EXPECT_EQ(foundSentence(found, readWanted("disco")),
              "Ninguna propuesta encontrada. El texto se ha buscado en las últimas 20.000.");
}

}  // namespace
}  // namespace velmora::finding
