#include "velmora/data/product_types.h"

#include <vector>

#include <gtest/gtest.h>

namespace velmora::data {
namespace {

std::vector<int> typesOf(bool (*belongs)(int)) {
    std::vector<int> types;
    for (int type = -1; type <= 15; ++type) {
        if (belongs(type)) {
            types.push_back(type);
        }
    }
    return types;
}

using Types = std::vector<int>;

TEST(ProductTypes, StandInTheOrderThatIsStored) {
    const std::vector<std::string_view> names = {"Piñon Especial",
                                                 "Disco",
                                                 "Piñon 2 Cubos",
                                                 "Poleas Lisas",
                                                 "Piñon Doble",
                                                 "Piñon de Dos Cadenas",
                                                 "Disco Doble",
                                                 "Disco de Dos Cadenas",
                                                 "Engranaje Recto",
                                                 "Disco Engranaje Recto",
                                                 "Piñon 2 Cubos Variable",
                                                 "Poleas Lisas 2 Cubos Variable",
                                                 "Piñon Triple",
                                                 "Cremallera",
                                                 "Disco Triple"};
    ASSERT_EQ(productTypes.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(productTypes[i].number, static_cast<int>(i));
        EXPECT_EQ(productTypes[i].name, names[i]);
        EXPECT_EQ(productTypeName(static_cast<int>(i)), names[i]);
    }
}

TEST(ProductTypes, ATypeOutsideTheListHasAnEmptyNameAndNoGroup) {
    for (const int type : {-1, 15, 99}) {
        EXPECT_EQ(findProductType(type), nullptr);
        EXPECT_EQ(productTypeName(type), "");
        EXPECT_FALSE(hasChainList(type) || hasHub(type) || isDiscWithoutHub(type) || isTwoHubs(type) || isGear(type) ||
                     isRack(type) || hasTeeth(type));
    }
}

TEST(ProductTypes, GroupsHoldTheTypesThatAreTreatedAlike) {
    EXPECT_EQ(typesOf(hasChainList), (Types{4, 5, 6, 7, 12, 14}));
    EXPECT_EQ(typesOf(isDouble), (Types{4, 5, 6, 7}));
    EXPECT_EQ(typesOf(isTriple), (Types{12, 14}));
    EXPECT_EQ(typesOf(isDiscWithoutHub), (Types{1, 6, 7, 9, 14}));
    EXPECT_EQ(typesOf(hasHub), (Types{0, 2, 3, 4, 5, 8, 10, 11, 12}));
    EXPECT_EQ(typesOf(isTwoHubs), (Types{2, 3, 10, 11}));
    EXPECT_EQ(typesOf(isVariable), (Types{10, 11}));
    EXPECT_EQ(typesOf(isGear), (Types{8, 9}));
    EXPECT_EQ(typesOf(isRack), (Types{13}));
    EXPECT_EQ(typesOf(hasTeeth), (Types{0, 1, 2, 4, 5, 6, 7, 8, 9, 10, 12, 13, 14}));
}

TEST(ProductTypes, EachTypeHasItsMeasuresFrame) {
    for (const ProductType& type : productTypes) {
        const MeasuresFrame expected = isDouble(type.number)     ? MeasuresFrame::fraPDM
                                       : isTriple(type.number)   ? MeasuresFrame::fraTriple
                                       : isVariable(type.number) ? MeasuresFrame::fraDobleVar
                                       : isRack(type.number)     ? MeasuresFrame::fraCremallera
                                                                 : MeasuresFrame::frame2;
        EXPECT_EQ(type.frame, expected) << type.name;
    }
}

}  // namespace
}  // namespace velmora::data
