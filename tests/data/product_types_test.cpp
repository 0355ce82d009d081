#include "velmora/data/product_types.h"

#include <vector>

#include <gtest/gtest.h>

namespace velmora::data {
namespace {

using Types = std::vector<int>;

template <typename Column, typename Value>
Types typesWith(Column ProductType::*column, Value value) {
    Types types;
    for (const ProductType& type : productTypes) {
        if (type.*column == value) {
            types.push_back(type.number);
        }
    }
    return types;
}

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

TEST(ProductTypes, ATypeOutsideTheListIsNoWheelAndHasNoWords) {
    for (const int type : {-1, static_cast<int>(productTypes.size()), 99}) {
        EXPECT_EQ(findProductType(type), nullptr);
        EXPECT_EQ(productTypeName(type), "");
        const ProductType& row = productType(type);
        EXPECT_LT(row.number, 0);
        EXPECT_EQ(row.hubs, Hubs::noWheel);
        EXPECT_FALSE(row.hasHub() || row.chainList || row.hubVoid || row.cutFromPlate);
        EXPECT_EQ(row.chainColumns, ChainColumns::null);
        EXPECT_EQ(row.description, OrderDescription::none);
    }
}

TEST(ProductTypes, ShapeHubsAndToothing) {
    EXPECT_EQ(typesWith(&ProductType::shape, ProductShape::oneRim), (Types{0, 1, 2, 3, 8, 9}));
    EXPECT_EQ(typesWith(&ProductType::shape, ProductShape::twoRims), (Types{4, 5, 6, 7}));
    EXPECT_EQ(typesWith(&ProductType::shape, ProductShape::threeRims), (Types{12, 14}));
    EXPECT_EQ(typesWith(&ProductType::shape, ProductShape::variable), (Types{10, 11}));
    EXPECT_EQ(typesWith(&ProductType::shape, ProductShape::rack), (Types{13}));
    EXPECT_EQ(typesWith(&ProductType::hubs, Hubs::none), (Types{1, 6, 7, 9, 14}));
    EXPECT_EQ(typesWith(&ProductType::hubs, Hubs::one), (Types{0, 4, 5, 8, 12}));
    EXPECT_EQ(typesWith(&ProductType::hubs, Hubs::twoAlike), (Types{2, 3}));
    EXPECT_EQ(typesWith(&ProductType::hubs, Hubs::twoUnlike), (Types{10, 11}));
    EXPECT_EQ(typesWith(&ProductType::toothing, Toothing::gear), (Types{8, 9}));
    EXPECT_EQ(typesWith(&ProductType::toothing, Toothing::smooth), (Types{3, 11}));
}

TEST(ProductTypes, TypesThatAreTreatedAlike) {
    EXPECT_EQ(typesWith(&ProductType::chainList, true), (Types{4, 5, 6, 7, 12, 14}));
    EXPECT_EQ(typesWith(&ProductType::gapTyped, true), (Types{5, 7}));
    EXPECT_EQ(typesWith(&ProductType::widthsFromChain, true), (Types{4, 12, 14}));
    EXPECT_EQ(typesWith(&ProductType::hubVoid, true), (Types{1, 14}));
    EXPECT_EQ(typesWith(&ProductType::cutFromPlate, true), (Types{1, 10, 11}));
    EXPECT_EQ(typesWith(&ProductType::secondHubLoaded, true), (Types{10}));
    EXPECT_EQ(typesWith(&ProductType::chainColumns, ChainColumns::null), (Types{0, 1, 2, 3}));
    EXPECT_EQ(typesWith(&ProductType::chainColumns, ChainColumns::notWritten), (Types{8, 9, 13}));
    EXPECT_EQ(typesWith(&ProductType::materials, OrderMaterials::discAndHub), (Types{0, 2, 3, 4, 5, 10, 12}));
    EXPECT_EQ(typesWith(&ProductType::description, OrderDescription::none), (Types{11, 14}));
    EXPECT_EQ(typesWith(&ProductType::totalWidth, TotalWidth::rim), (Types{1}));
    EXPECT_EQ(typesWith(&ProductType::totalWidth, TotalWidth::rimAndHub), (Types{0}));
    EXPECT_EQ(typesWith(&ProductType::totalWidth, TotalWidth::rimAndTwoHubs), (Types{2, 3}));
    EXPECT_EQ(typesWith(&ProductType::totalWidth, TotalWidth::rimAndUnlikeHubs), (Types{10, 11}));
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
        const bool hub = type.hasHub();
        EXPECT_EQ(type.chainColumns == ChainColumns::secondHub, type.hubs == Hubs::twoUnlike) << type.name;
        EXPECT_TRUE(!type.secondHubLoaded || type.chainColumns == ChainColumns::secondHub) << type.name;
        EXPECT_TRUE(!type.hubVoid || !hub) << type.name;
        EXPECT_TRUE(type.materials != OrderMaterials::discAndHub || hub) << type.name;
        EXPECT_EQ(type.materials == OrderMaterials::bar, type.shape == ProductShape::rack) << type.name;
    }
}

}  // namespace
}  // namespace velmora::data
