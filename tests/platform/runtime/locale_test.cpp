// The runtime gives the same results whatever the locale of the process.

#include <clocale>
#include <locale>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "velmora/platform/runtime/dates.h"
#include "velmora/platform/runtime/numbers.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::runtime {
namespace {

/// Sets the global locale of C++ and C for the duration of its lifetime.
class ProcessLocale {
  public:
    explicit ProcessLocale(const char* name) : former_(std::locale::global(std::locale(name))) {}
    ~ProcessLocale() { std::locale::global(former_); }
    ProcessLocale(const ProcessLocale&) = delete;
    ProcessLocale& operator=(const ProcessLocale&) = delete;

  private:
    std::locale former_;
};

void expectUsualAnswers() {
    EXPECT_EQ(CDbl("1.234,56"), 1234.56);
    EXPECT_EQ(CDbl("1.5"), 15);
    EXPECT_EQ(CStr(1234.56), "1234,56");
    EXPECT_EQ(CStr(1e20), "1E+20");
    EXPECT_EQ(CStr(std::int64_t{1234567}), "1234567");
    EXPECT_EQ(shortest(1234.56), "1234.56");
    EXPECT_EQ(Format(1234567.895, "#,##0.00"), "1.234.567,90");
    EXPECT_EQ(Format("12,5", "000000"), "000013");
    EXPECT_EQ(Val("12.5"), 12.5);
    EXPECT_EQ(Round(2.675, 2), 2.67);
    EXPECT_EQ(Redondear(2.675, 2), 2.68);
    EXPECT_EQ(Round(4503599627370.123, 3), 4503599627370.123);
    EXPECT_EQ(CStr(1.5e-9), "1,5E-09");
    EXPECT_EQ(CLng("2,5"), 2);
    EXPECT_EQ(UCase("piñón"), "PIÑÓN");
    EXPECT_EQ(CDate("31/12/24"), Date::of(2024, 12, 31));
    EXPECT_EQ(CStr(Date::of(2024, 12, 31, 9, 5)), "31/12/2024 9:05:00");
}

TEST(ProcessLocale, OfSpainChangesNothing) {
    ASSERT_NO_THROW(std::locale("es_ES.UTF-8")) << "this machine lacks the locale es_ES.UTF-8";
    const ProcessLocale spain("es_ES.UTF-8");
    ASSERT_STREQ(std::localeconv()->decimal_point, ",") << "the locale was not taken";
    expectUsualAnswers();
}

TEST(ProcessLocale, OfCChangesNothing) {
    const ProcessLocale classic("C");
    ASSERT_STREQ(std::localeconv()->decimal_point, ".");
    expectUsualAnswers();
}

TEST(ProcessLocale, OfTheEnvironmentChangesNothing) {
    ASSERT_NO_THROW(std::locale("")) << "the locale that the environment names does not exist";
    const ProcessLocale environment("");
    expectUsualAnswers();
}

}  // namespace
}  // namespace velmora::runtime
