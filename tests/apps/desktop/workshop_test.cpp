#include "velmora/apps/desktop/workshop.h"

#include <QTemporaryDir>
#include <fstream>

#include <gmock/gmock.h>

#include "velmora/adapters/sqlite/database.h"

namespace velmora::desktop {
namespace {

using ::testing::HasSubstr;

class DesktopWorkshop : public ::testing::Test {
  protected:
    std::string path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)).toStdString(); }

    std::string refusal(const std::string& file) const {
        try {
            openWorkshop(file, clock_);
        } catch (const NoWorkshop& e) {
            return e.what();
        }
        return {};
    }

    QTemporaryDir folder_;
    system::SystemClock clock_;
};

TEST_F(DesktopWorkshop, ANewDatabaseIsMadeWithItsFolderAndTheDemonstrationRows) {
    const std::string file = path("nuevo/taller ñ/velmora.db");
    const auto made = openWorkshop(file, clock_);
    const std::int32_t proposals = made->connection().execute("select count(*) from DPI")[0].toLong();
    EXPECT_GT(proposals, 100);
    EXPECT_EQ(&made->session().Connection(), &made->connection());
}

TEST_F(DesktopWorkshop, AnExistingDatabaseIsOpenedAsItIs) {
    const std::string file = path("velmora.db");
    { openWorkshop(file, clock_)->connection().execute("delete from DPI"); }
    EXPECT_EQ(openWorkshop(file, clock_)->connection().execute("select count(*) from DPI")[0].toLong(), 0);
}

TEST_F(DesktopWorkshop, AFileThatIsNoDatabaseIsRefusedAndLeftAlone) {
    const std::string file = path("carta.db");
    const std::string letter = "Estimado cliente: le adjuntamos nuestra mejor propuesta para el piñon de 38 dientes.";
    std::ofstream(file) << letter;
    EXPECT_THAT(refusal(file), HasSubstr(file));
    std::string left;
    std::getline(std::ifstream(file), left);
    EXPECT_EQ(left, letter);
}

TEST_F(DesktopWorkshop, AnotherProgramsDatabaseIsRefused) {
    const std::string file = path("otra.db");
    { sqlite::openDatabase(file)->execute("CREATE TABLE NOTAS (ID int)"); }
    EXPECT_THAT(refusal(file), HasSubstr("no tiene la tabla DPI"));
}

TEST_F(DesktopWorkshop, AFolderIsNoDatabase) {
    EXPECT_THAT(refusal(folder_.path().toStdString()), HasSubstr("No se puede abrir la base de datos"));
}

TEST_F(DesktopWorkshop, APlaceWhereNoFolderCanBeMadeIsRefused) {
    std::ofstream(path("fichero")) << "x";
    EXPECT_FALSE(refusal(path("fichero/dentro/velmora.db")).empty());
}

TEST_F(DesktopWorkshop, ADatabaseThatAnotherOneHoldsIsRefused) {
    const std::string file = path("velmora.db");
    const auto first = openWorkshop(file, clock_);
    first->connection().beginTrans();
    EXPECT_THAT(refusal(file), HasSubstr("No se puede abrir la base de datos"));
    first->connection().rollbackTrans();
    EXPECT_EQ(refusal(file), "");
}

}  // namespace
}  // namespace velmora::desktop
