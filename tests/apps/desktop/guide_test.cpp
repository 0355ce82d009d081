#include "velmora/apps/desktop/guide.h"

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>

#include "support/fake_services.h"
#include "support/proposal_workshop.h"
#include "support/temporary_folder.h"

namespace velmora::desktop {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class GuideTest : public ::testing::Test {
  protected:
    std::string programs() const { return folder.file("bin"); }
    std::string write(const char* place) const {
        const fs::path file = folder.path() / place;
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "x";
        return file.string();
    }

    support::ProposalWorkshop workshop;
    support::FakeServices services;
    platform::Desk desk{workshop.screen, workshop.components, services, workshop.clock};
    support::TemporaryFolder folder;
};

TEST_F(GuideTest, OfAnInstallationIsOpenedBeforeThatOfABuild) {
    const std::string built = write("guide/guia.pdf");
    EXPECT_EQ(guideFile(programs()), built);
    const std::string installed = write("share/doc/velmora/guia.pdf");
    openGuide(desk, programs());
    EXPECT_THAT(services.opened, ElementsAre(installed));
    EXPECT_THAT(workshop.screen.messages, IsEmpty());
}

TEST_F(GuideTest, ThatIsMissingIsSaid) {
    openGuide(desk, programs());
    EXPECT_THAT(services.opened, IsEmpty());
    EXPECT_THAT(workshop.screen.messageTexts(),
                ElementsAre("No se encuentra la guía: no está instalada con el programa."));
}

TEST_F(GuideTest, ThatNoProgramOpensIsNamed) {
    const std::string installed = write("share/doc/velmora/guia.pdf");
    services.openingCode = 31;
    openGuide(desk, programs());
    EXPECT_THAT(workshop.screen.messageTexts(), ElementsAre("No hay un programa que abra la guía:\n" + installed));
}

}  // namespace
}  // namespace velmora::desktop
