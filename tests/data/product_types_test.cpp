#include <vector>

#include <gtest/gtest.h>

#include "velmora/data/product_numbers.h"

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

TEST(ProductTypes, ARowSaysWhatTheTypeIs) {
    for (const ProductType& type : productTypes) {
        EXPECT_FALSE(type.name.empty()) << type.number;
        EXPECT_FALSE(type.measuresCaption.empty()) << type.name;
        EXPECT_FALSE(type.rimCaption.empty()) << type.name;
        EXPECT_EQ(type.hubs == Hubs::noWheel, type.shape == ProductShape::rack) << type.name;
        EXPECT_EQ(type.hubs == Hubs::twoUnlike, type.shape == ProductShape::variable) << type.name;
        EXPECT_EQ(type.toothing == Toothing::rack, type.shape == ProductShape::rack) << type.name;
        EXPECT_EQ(type.storedMeasuresCaption.empty(), type.toothing != Toothing::gear) << type.name;
    }
}

TEST(ProductTypes, ATypeWithAChainKeepsItAndNamesItInTheOrder) {
    for (const ProductType& type : productTypes) {
        const bool keepsChain = type.chainColumns == ChainColumns::chainWithSketchGap ||
                                type.chainColumns == ChainColumns::chainWithTypedGap;
        EXPECT_EQ(keepsChain, type.chainList) << type.name;
        if (type.description != OrderDescription::none) {
            EXPECT_EQ(type.description == OrderDescription::chain, type.chainList) << type.name;
        }
        EXPECT_EQ(type.wordsAfterChain.empty(), type.description != OrderDescription::chain) << type.name;
        EXPECT_EQ(type.firstWords.empty(), type.description == OrderDescription::none) << type.name;
        EXPECT_TRUE(type.chainList || !(type.gapTyped || type.widthsFromChain)) << type.name;
    }
}

TEST(ProductTypes, OnlyAPieceWithHubsHasThemStoredPricedAndCut) {
    for (const ProductType& type : productTypes) {
        const bool hub = type.hubs >= Hubs::one;
        EXPECT_EQ(type.chainColumns == ChainColumns::secondHub, type.hubs == Hubs::twoUnlike) << type.name;
        EXPECT_TRUE(!type.secondHubLoaded || type.chainColumns == ChainColumns::secondHub) << type.name;
        EXPECT_TRUE(!type.hubVoid || !hub) << type.name;
        EXPECT_TRUE(type.materials != OrderMaterials::discAndHub || hub) << type.name;
        EXPECT_EQ(type.materials == OrderMaterials::bar, type.shape == ProductShape::rack) << type.name;
    }
}

TEST(ProductTypes, GroupsOfSingleRules) {
    EXPECT_EQ(typesOf(hubIsVoid), (Types{1, 14}));
    EXPECT_EQ(typesOf(hasTwinHubs), (Types{2, 3}));
    EXPECT_EQ(typesOf(isSmoothPulley), (Types{3, 11}));
    EXPECT_EQ(typesOf(isDoubleDisc), (Types{6, 7}));
    EXPECT_EQ(typesOf(isCutFromPlate), (Types{1, 10, 11}));
}

}  // namespace
}  // namespace velmora::data
