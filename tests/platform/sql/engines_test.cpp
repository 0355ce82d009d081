#include "velmora/platform/sql/engines.h"

#include <stdexcept>
#include <utility>

#include <gmock/gmock.h>

namespace velmora::sql {

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// Opens nothing, but tells what it was to open.
class Noted {
  public:
    Engines::Open as(std::string name) {
        return [this, name = std::move(name)](const std::string& target) {
            opened.emplace_back(name, target);
            return std::unique_ptr<Connection>();
        };
    }
    std::vector<std::pair<std::string, std::string>> opened;
};

DbError refusal(const Engines& engines, const char* source) {
    try {
        engines.open(source);
    } catch (const DbError& error) {
        return error;
    }
    return DbError(0, "opened");
}

}  // namespace

TEST(Engines, OpenWhatStandsBehindTheFirstColon) {
    Noted noted;
    Engines engines;
    engines.add("sqlite", noted.as("sqlite"));
    engines.add("odbc", noted.as("odbc"));
    engines.open("sqlite:/tmp/taller.db");
    engines.open("sqlite::memory:");
    engines.open("ODBC:Driver={X};Server=tcp:host,1433");
    engines.open("sqlite:");
    EXPECT_THAT(noted.opened,
                ElementsAre(std::pair("sqlite", "/tmp/taller.db"), std::pair("sqlite", ":memory:"),
                            std::pair("odbc", "Driver={X};Server=tcp:host,1433"), std::pair("sqlite", "")));
    EXPECT_THAT(engines.names(), ElementsAre("odbc", "sqlite"));
}

TEST(Engines, AnUnknownNameIsRefusedWithTheKnownOnes) {
    Noted noted;
    Engines engines;
    EXPECT_THAT(refusal(engines, "odbc:x").description(), HasSubstr("ninguno"));
    engines.add("sqlite", noted.as("sqlite"));
    engines.add("memory", noted.as("memory"));
    const DbError error = refusal(engines, "odbc:DSN=taller;PWD=secreto");
    EXPECT_EQ(error.number(), provider::failure);
    EXPECT_EQ(error.details().sqlState, "IM002");
    EXPECT_THAT(error.description(),
                AllOf(HasSubstr("'odbc'"), HasSubstr("memory, sqlite"), Not(HasSubstr("secreto"))));
    EXPECT_TRUE(noted.opened.empty());
}

TEST(Engines, ASourceWithoutANameIsRefused) {
    Noted noted;
    Engines engines;
    engines.add("sqlite", noted.as("sqlite"));
    for (const char* source : {"", "taller.db", ":memory:", "DSN=taller;PWD=secreto", "PWD=secreto:1;DSN=taller"}) {
        EXPECT_THAT(refusal(engines, source).description(),
                    AllOf(HasSubstr("no dice el motor"), HasSubstr("sqlite"), Not(HasSubstr("secreto"))))
            << source;
    }
    EXPECT_TRUE(noted.opened.empty());
}

TEST(Engines, ANameIsRegisteredOnce) {
    Noted noted;
    Engines engines;
    engines.add("sqlite", noted.as("first"));
    EXPECT_THROW(engines.add("sqlite", noted.as("second")), std::logic_error);
    engines.open("sqlite:x");
    EXPECT_THAT(noted.opened, ElementsAre(std::pair("first", "x")));
}

}  // namespace velmora::sql
