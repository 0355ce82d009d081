#include "velmora/apps/desktop/options.h"

#include <fstream>
#include <vector>

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace velmora::desktop {
namespace {

std::variant<Options, int> read(std::vector<const char*> arguments) {
    arguments.insert(arguments.begin(), "velmora");
    return readOptions(static_cast<int>(arguments.size()), arguments.data());
}

TEST(DesktopOptions, WithoutAnyTheStartWindowOpensOnTheUsersDatabase) {
    const auto options = std::get<Options>(read({}));
    EXPECT_EQ(options.opening, Opening::start);
    EXPECT_TRUE(options.database.empty());
    EXPECT_TRUE(options.pictures.empty());
}

TEST(DesktopOptions, EachWindowHasItsName) {
    EXPECT_EQ(std::get<Options>(read({"--open", "propuestas"})).opening, Opening::proposals);
    EXPECT_EQ(std::get<Options>(read({"--open", "seguimiento"})).opening, Opening::tracking);
    EXPECT_EQ(std::get<Options>(read({"--open", "parametros"})).opening, Opening::parameters);
    const auto one = std::get<Options>(read({"--open", "propuesta=1240", "--db", "taller.db"}));
    EXPECT_EQ(one.opening, Opening::proposal);
    EXPECT_EQ(one.proposal, 1240);
    EXPECT_EQ(one.database, "taller.db");
}

TEST(DesktopOptions, ADatabaseIsAFileOrAServersNotBoth) {
    EXPECT_EQ(std::get<Options>(read({"--dsn", "Server=taller"})).server, "Server=taller");
    EXPECT_TRUE(std::holds_alternative<int>(read({"--dsn", "Server=taller", "--db", "taller.db"})));
}

TEST(DesktopOptions, AFileAloneIsTheDatabaseWhenItExists) {
    const support::TemporaryFolder folder;
    const std::string file = folder.file("taller del año.db");
    EXPECT_TRUE(std::holds_alternative<int>(read({file.c_str()})));
    std::ofstream(file) << "x";
    EXPECT_EQ(std::get<Options>(read({file.c_str()})).database, file);
    EXPECT_EQ(std::get<Options>(read({"--open", "seguimiento", file.c_str()})).database, file);
    EXPECT_TRUE(std::holds_alternative<int>(read({file.c_str(), "--db", "otro.db"})));
    EXPECT_TRUE(std::holds_alternative<int>(read({file.c_str(), "--dsn", "Server=taller"})));
    EXPECT_TRUE(std::holds_alternative<int>(read({file.c_str(), file.c_str()})));
}

TEST(DesktopOptions, WhatANewDatabaseHoldsCanBeToldInsteadOfAsked) {
    EXPECT_EQ(std::get<Options>(read({})).data, std::nullopt);
    EXPECT_EQ(std::get<Options>(read({"--data", "demo"})).data, NewRows::demonstration);
    EXPECT_EQ(std::get<Options>(read({"--data", "empty"})).data, NewRows::empty);
    EXPECT_TRUE(std::holds_alternative<int>(read({"--data", "otra"})));
}

TEST(DesktopOptions, WhatNoWindowIsCalledIsRefused) {
    for (const char* wrong : {"clientes", "propuesta", "propuesta=", "propuesta=0", "propuesta=12x", ""}) {
        const auto result = read({"--open", wrong});
        ASSERT_TRUE(std::holds_alternative<int>(result)) << wrong;
        EXPECT_NE(std::get<int>(result), 0) << wrong;
    }
}

TEST(DesktopOptions, ARefusalIsToldInSpanish) {
    const auto told = [](std::vector<const char*> arguments) {
        ::testing::internal::CaptureStderr();
        read(std::move(arguments));
        const std::string text = ::testing::internal::GetCapturedStderr();
        return text.substr(0, text.find('\n'));
    };
    EXPECT_EQ(told({"--colour"}), "velmora: no se conoce --colour");
    EXPECT_EQ(told({"--pictures"}), "velmora: a --pictures le falta su valor");
    EXPECT_EQ(told({"--db", "a.db", "--dsn", "Server=b"}), "velmora: --db no va con --dsn");
    EXPECT_EQ(told({"--open", "clientes"}), "velmora: --open: ventana desconocida: clientes");
}

TEST(DesktopOptions, HelpEndsTheProgramWell) {
    EXPECT_EQ(std::get<int>(read({"--help"})), 0);
}

}  // namespace
}  // namespace velmora::desktop
