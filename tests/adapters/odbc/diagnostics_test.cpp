#include "velmora/adapters/odbc/diagnostics.h"

#include <gmock/gmock.h>

#include "velmora/adapters/odbc/utf16.h"

namespace velmora::odbc {
namespace {

namespace provider = sql::provider;

TEST(Diagnostics, TheServersNumberTellsWhatTheStateDoesNot) {
    struct Case {
        const char* state;
        int native;
        long number;
    };
    constexpr std::array cases{
        Case{"42000", 1205, provider::timeout},    Case{"42000", 1222, provider::timeout},
        Case{"42000", 102, provider::syntax},      Case{"42S02", 208, provider::missingTable},
        Case{"42S22", 207, provider::syntax},      Case{"23000", 2627, provider::constraint},
        Case{"23000", 515, provider::constraint},  Case{"22001", 8152, provider::truncation},
        Case{"42000", 2628, provider::truncation}, Case{"42000", 245, provider::conversion},
        Case{"42000", 8114, provider::conversion}, Case{"25000", 3903, provider::noTransaction},
        Case{"42S02", 0, provider::missingTable},  Case{"23505", 0, provider::constraint},
        Case{"22018", 0, provider::conversion},    Case{"HYT00", 0, provider::timeout},
        Case{"08S01", 20006, provider::failure},   Case{"HY000", 99999, provider::failure},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(providerNumber({.state = each.state, .native = each.native, .text = {}}), each.number)
            << each.state << " " << each.native;
    }
}

TEST(Diagnostics, ALossCountsBeforeAllElseAndAWarningLast) {
    const Diagnostic warning{.state = "01000", .native = 5701, .text = "database changed"};
    const Diagnostic refusal{.state = "42000", .native = 102, .text = "syntax"};
    const Diagnostic loss{.state = "08S01", .native = 20006, .text = "write failed"};
    EXPECT_EQ(errorOf({warning, refusal}, "x").number(), provider::syntax);
    EXPECT_EQ(errorOf({warning, refusal, loss}, "x").details().sqlState, "08S01");
    EXPECT_EQ(errorOf({warning}, "x").description(), "database changed");
    EXPECT_EQ(errorOf({}, "x").details().statement, "x");
}

TEST(Diagnostics, ADeadlocksVictimIsToldToTryAgain) {
    EXPECT_THAT(errorOf({{.state = "42000", .native = 1205, .text = "deadlock victim"}}, "x").description(),
                ::testing::HasSubstr("Vuelva a intentarlo"));
}

TEST(Diagnostics, WhoWaitedInVainForARowIsToldToTryAgain) {
    const sql::DbError error = errorOf({{.state = "42000", .native = 1222, .text = "Lock request time out"}}, "x");
    EXPECT_EQ(error.number(), sql::provider::timeout);
    EXPECT_THAT(error.description(), ::testing::HasSubstr("Vuelva a intentarlo"));
}

TEST(Diagnostics, AMissingRightIsToldBeforeTheServersWords) {
    EXPECT_EQ(
        errorOf({{.state = "42000", .native = 229, .text = "The SELECT permission was denied"}}, "x").description(),
        "El usuario de la base de datos no tiene permiso.\nThe SELECT permission was denied");
}

TEST(Utf16, TextComesBackAndWhatIsNoneIsReplaced) {
    for (const std::string text : {"", "Piñón €", "\U0001F529 tornillo", "\xEF\xBF\xBD"}) {
        EXPECT_EQ(toUtf8(toUtf16(text)), text);
    }
    EXPECT_EQ(toUtf16("\U0001F529").size(), 2u);
    EXPECT_EQ(toUtf16("a\xFF"), u"a\uFFFD");
    EXPECT_EQ(toUtf8(std::u16string{u'a', char16_t{0xD83D}}), "a\uFFFD");
    EXPECT_EQ(toUtf8(std::u16string{char16_t{0xDD29}, u'a'}), "\uFFFDa");
}

}  // namespace
}  // namespace velmora::odbc
