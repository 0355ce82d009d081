#include "velmora/adapters/documents/cell_format.h"

#include <gtest/gtest.h>

namespace velmora::documents {
namespace {

TEST(CellFormat, MasksBecomeNumberFormats) {
    struct Case {
        const char* mask;
        MaskKind kind;
        const char* format;
    };
    for (const Case& c : {
             Case{"", MaskKind::none, ""},
             Case{"000000", MaskKind::number, "000000"},
             Case{"0.00", MaskKind::number, "0.00"},
             Case{"#0.00", MaskKind::number, "#0.00"},
             Case{"#,##0.0000", MaskKind::number, "#,##0.0000"},
             Case{"#,###,##0.00", MaskKind::number, "#,###,##0.00"},
             Case{"#,##0.00 €", MaskKind::number, "#,##0.00\" €\""},
             Case{"n\"º 000", MaskKind::number, "\"nº \"000"},
             Case{"dd/mm/yyyy", MaskKind::date, "dd/mm/yyyy"},
             Case{"dd/mm/yyyy hh:nn:ss", MaskKind::date, "dd/mm/yyyy hh:mm:ss"},
             Case{"Yes/No", MaskKind::yesNo, "\"Sí\";\"Sí\";\"No\""},
         }) {
        EXPECT_EQ(kindOf(c.mask), c.kind) << c.mask;
        EXPECT_EQ(numberFormat(c.mask), c.format) << c.mask;
    }
}

TEST(CellFormat, ACommaAtTheEndDoesNotDivideByAThousand) {
    EXPECT_EQ(numberFormat("#,##0,"), "#,##0");
    EXPECT_EQ(numberFormat("0,.00"), "0.00");
}

}  // namespace
}  // namespace velmora::documents
