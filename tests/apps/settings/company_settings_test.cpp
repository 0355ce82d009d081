#include "velmora/apps/settings/company_settings.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace velmora::settings {
namespace {

TEST(CompanySettingsTest, ACompanyComesBackAsItWasSaved) {
    const support::TemporaryFolder folder;
    const auto file = companyFileOf((folder.path() / "taller.db").string());
    EXPECT_EQ(readCompany(file), paper::Company());
    const paper::Company company{.name = "Talleres Ñ, S.L.",
                                 .taxNumber = "B00000000",
                                 .address = "Calle del Torno, 3\n50001 Zaragoza",
                                 .telephone = "976 000 000",
                                 .email = "taller@ejemplo.invalid",
                                 .logo = std::string("\x89PNG\0\r\n=", 8),
                                 .terms = "Portes debidos.\nPago a 30 días.",
                                 .validityDays = 30};
    writeCompany(file, company);
    EXPECT_EQ(readCompany(file), company);
    writeCompany(file, {});
    EXPECT_EQ(readCompany(file), paper::Company());
}

TEST(CompanySettingsTest, TheFileLiesBesideTheDatabase) {
    EXPECT_EQ(companyFileOf("/tmp/no such folder/taller.db"), "/tmp/no such folder/taller.db.ajustes");
}

TEST(CompanySettingsTest, AServersFileIsTheSameForAllWhoConnectToItsDatabase) {
    const auto one = companyFileOfServer("/c", "DRIVER=x;SERVER=s1;Database=Taller;UID=ana;PWD=secret");
    EXPECT_EQ(one, companyFileOfServer("/c", "Driver=y;server=S1;DATABASE=taller;UID=luis;PWD=other"));
    EXPECT_NE(one, companyFileOfServer("/c", "DRIVER=x;SERVER=s1;Database=Otro"));
    EXPECT_EQ(one.string().find("secret"), std::string::npos);
}

}  // namespace
}  // namespace velmora::settings
