#include "velmora/platform/runtime/errors.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "velmora/platform/runtime/numbers.h"

#include "golden.h"

namespace velmora::runtime {
namespace {

TEST(Errors, DescriptionsAreTheSpanishWordsOfTheLanguage) {
    const std::pair<long, const char*> rows[]{
        {5, "Argumento o llamada a procedimiento no válida"},
        {6, "Desbordamiento"},
        {9, "El subíndice está fuera del intervalo"},
        {11, "División por cero"},
        {13, "No coinciden los tipos"},
        {91, "Variable de objeto o bloque With no establecido"},
        {94, "Uso no válido de Null"},
        {340, "El elemento de la matriz de controles no existe"},
        {429, "El componente ActiveX no puede crear el objeto"},
        {-2147220504, "Error definido por la aplicación o el objeto"},
        {1000, "Error definido por la aplicación o el objeto"},
    };
    for (const auto& [number, description] : rows) {
        EXPECT_EQ(errorDescription(number), description) << number;
    }
}

TEST(Errors, RaiseCarriesNumberDescriptionAndSource) {
    try {
        raise(divisionByZero);
        FAIL() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), 11);
        EXPECT_EQ(error.description(), "División por cero");
        EXPECT_EQ(error.source(), "VELMORA");
        EXPECT_STREQ(error.what(), "División por cero");
    }
}

TEST(ErrorTrap, GoesOnWithTheNextStatementAndLeavesTheTargetAsItWas) {
    ErrorTrap trap;
    double target = 7;
    bool reached = false;
    trap([&] { target = CDbl("abc"); });
    trap([&] { reached = true; });
    EXPECT_EQ(target, 7);
    EXPECT_TRUE(reached);
}

TEST(ErrorTrap, KeepsTheErrorUntilItIsCleared) {
    ErrorTrap trap;
    EXPECT_FALSE(trap.failed());
    trap([] { raise(typeMismatch); });
    trap([] {});
    ASSERT_TRUE(trap.failed());
    EXPECT_EQ(trap.error()->number(), 13);
    trap.clear();
    EXPECT_FALSE(trap.failed());
    EXPECT_FALSE(trap.error().has_value());
}

TEST(ErrorTrap, ReportsTheLastOfSeveralErrors) {
    ErrorTrap trap;
    trap([] { raise(typeMismatch); });
    trap([] { raise(divisionByZero); });
    EXPECT_EQ(trap.error()->number(), 11);
}

TEST(ErrorTrap, SkipsTheBlockOfAConditionThatFails) {
    ErrorTrap trap;
    EXPECT_FALSE(trap.condition([] { return CDbl("") > 0; }));
    EXPECT_TRUE(trap.failed());
    EXPECT_TRUE(trap.condition([] { return CDbl("1") > 0; }));
    EXPECT_FALSE(trap.condition([] { return CDbl("-1") > 0; }));
}

TEST(ErrorTrap, LetsDefectsOfOurOwnThrough) {
    ErrorTrap trap;
    EXPECT_THROW(trap([] { throw std::logic_error("defect"); }), std::logic_error);
    EXPECT_FALSE(trap.failed());
}

}  // namespace
}  // namespace velmora::runtime
