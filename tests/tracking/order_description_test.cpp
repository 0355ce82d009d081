#include "velmora/tracking/order_description.h"

#include <gtest/gtest.h>

#include "velmora/data/product_types.h"

#include "acceptance_shop.h"

namespace velmora::tracking {
namespace {

class OrderDescriptionTest : public ::testing::Test {
  protected:
    std::string described(Columns columns) {
        const std::string id = std::to_string(addProposal(*database, columns));
        return orderDescription(database->execute("select dpi.* from DPI where dpi_id = " + id));
    }

    std::unique_ptr<sql::Connection> database = makeShopDatabase();
};

TEST_F(OrderDescriptionTest, EveryTypeHasItsWords) {
    struct Row {
        const char* type;
        const char* description;
    };
    const Row rows[] = {
        {"0", "Piñon Especial Z 38 Paso 12,7 AC 7,75 Rodillo 8,51 Eje 24"},
        {"1", "Disco Z 38 Paso 12,7 AC 7,75 Rodillo 8,51 Eje 24"},
        {"2", "Piñon de dos cubos Z 38 Paso 12,7 AC 7,75 Rodillo 8,51 Eje 24"},
        {"3", "Polea Lisa Z 38 Paso 12,7 AC 7,75 Rodillo 8,51 Eje 24"},
        {"4", "Piñon ISO 1/2\" Doble de Z 38 Eje 24"},
        {"5", "Piñon ISO 1/2\" de dos cadenas de Z 38 Eje 24"},
        {"6", "Disco ISO 1/2\" Doble de Z 38 Eje 24"},
        {"7", "Disco ISO 1/2\" de dos cadenas de Z 38 Eje 24"},
        {"8", "Engranaje Recto Z 38 Paso 12,7 AC 7,75 Rodillo 8,51 Eje 24"},
        {"9", "Disco Engranaje recto Z 38 Paso 12,7 AC 7,75 Rodillo 8,51 Eje 24"},
        {"10", "Piñon de dos cubos Z 38 Paso 12,7 AC 7,75 Rodillo 8,51 Eje 24"},
        {"11", ""},
        {"12", "Piñon ISO 1/2\" Triple de Z 38 Eje 24"},
        {"14", ""},
        {"15", ""},
        {"-1", ""},
    };
    // The rack, which has a test of its own, is missing; the last two are no types.
    ASSERT_EQ(std::size(rows), data::productTypes.size() - 1 + 2);
    for (const Row& row : rows) {
        EXPECT_EQ(described({{"DPI_Tipo", row.type}, {"DPI_PDM_Texto", "N'ISO 1/2\"'"}}), row.description) << row.type;
        const std::string coupled =
            described({{"DPI_Tipo", row.type}, {"DPI_PDM_Texto", "N'ISO 1/2\"'"}, {"Dpi_Acopla", "1"}});
        EXPECT_EQ(coupled, *row.description == '\0' ? "" : std::string("Mec. ") + row.description) << row.type;
    }
}

TEST_F(OrderDescriptionTest, ARackIsToldByItsMeasures) {
    const Columns rack{{"DPI_Tipo", "13"},      {"Dpi_Modulo", "2.5"},    {"DPI_Alt", "30"},
                       {"DPI_AnchoCubo", "25"}, {"DPI_Llanta", "1000.5"}, {"DPI_Pas", "7.854"}};
    EXPECT_EQ(described(rack), "Cremallera  Paso 7,854 Modulo 2,5 (30x25x1000,5)");
    Columns named = rack;
    named["DPI_PDM_Texto"] = "N'M2,5'";
    EXPECT_EQ(described(named), "Cremallera M2,5 Paso 7,854 Modulo 2,5 (30x25x1000,5)");
    named["Dpi_Acopla"] = "1";
    EXPECT_EQ(described(named), "Cremallera M2,5 Paso 7,854 Modulo 2,5 (30x25x1000,5)") << "a rack is no coupling";
}

TEST_F(OrderDescriptionTest, OnlyACouplingOfOneIsMechanical) {
    EXPECT_EQ(described({{"DPI_Tipo", "1"}, {"Dpi_Acopla", "2"}}).substr(0, 5), "Disco");
}

TEST_F(OrderDescriptionTest, NumbersStandInTheirDefaultForm) {
    EXPECT_EQ(described({{"DPI_Z", "17.50"}, {"DPI_Pas", "1234.5"}, {"DPI_AC", "0"}, {"DPI_Rodillo", "0.1"}}),
              "Piñon Especial Z 17,5 Paso 1234,5 AC 0 Rodillo 0,1 Eje 24");
}

TEST_F(OrderDescriptionTest, ANullIsNothing) {
    EXPECT_EQ(described({{"DPI_Rodillo", "NULL"}, {"DPI_Eje", "NULL"}}),
              "Piñon Especial Z 38 Paso 12,7 AC 7,75 Rodillo  Eje ");
    EXPECT_EQ(described({{"DPI_Tipo", "4"}, {"DPI_PDM_Texto", "NULL"}}), "Piñon  Doble de Z 38 Eje 24");
}

TEST_F(OrderDescriptionTest, ANullIsNoError) {
    EXPECT_NO_THROW(described({{"DPI_Z", "NULL"}}));
}

}  // namespace
}  // namespace velmora::tracking
