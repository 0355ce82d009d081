#include "velmora/apps/desktop/workshop.h"

#include <QTemporaryDir>
#include <fstream>

#include <gmock/gmock.h>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/apps/engines/known_engines.h"
#include "velmora/data/new_database.h"

namespace velmora::desktop {
namespace {

using ::testing::HasSubstr;

class DesktopWorkshop : public ::testing::Test {
  protected:
    std::string path(const char* name) const { return folder_.filePath(QString::fromUtf8(name)).toStdString(); }

    std::string refusal(const std::string& file) const {
        try {
            openWorkshop(engines_, file, clock_);
        } catch (const NoWorkshop& e) {
            return e.what();
        }
        return {};
    }

    QTemporaryDir folder_;
    system::SystemClock clock_;
    const sql::Engines engines_ = engines::knownEngines(clock_);
};

TEST_F(DesktopWorkshop, ANewDatabaseIsMadeWithItsFolderAndTheDemonstrationRows) {
    const std::string file = path("nuevo/taller ñ/velmora.db");
    const auto made = openWorkshop(engines_, file, clock_);
    const std::int32_t proposals = made->connection().execute("select count(*) from DPI")[0].toLong();
    EXPECT_GT(proposals, 100);
    EXPECT_EQ(&made->session().Connection(), &made->connection());
}

TEST_F(DesktopWorkshop, AnExistingDatabaseIsOpenedAsItIs) {
    const std::string file = path("velmora.db");
    { openWorkshop(engines_, file, clock_)->connection().execute("delete from DPI"); }
    EXPECT_EQ(openWorkshop(engines_, file, clock_)->connection().execute("select count(*) from DPI")[0].toLong(), 0);
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
    const auto first = openWorkshop(engines_, file, clock_);
    first->connection().beginTrans();
    EXPECT_THAT(refusal(file), HasSubstr("No se puede abrir la base de datos"));
    first->connection().rollbackTrans();
    EXPECT_EQ(refusal(file), "");
}

/// An engine in the server's place: what a connection string names is a file.
class DesktopServer : public DesktopWorkshop {
  protected:
    DesktopServer() {
        serverEngines_.add("odbc", [this](const std::string& text) {
            opened_ = text;
            return sqlite::openDatabase(path("servidor.db"));
        });
    }
    std::string serverRefusal(const sql::Engines& engines) const {
        try {
            openServer(engines, "Server=taller;PWD=secreto");
        } catch (const NoWorkshop& e) {
            return e.what();
        }
        return {};
    }

    sql::Engines serverEngines_;
    std::string opened_;
};

TEST_F(DesktopServer, ADatabaseWithOurTablesIsOpenedAsItIs) {
    { data::createDatabase(*sqlite::openDatabase(path("servidor.db"))); }
    const auto workshop = openServer(serverEngines_, "Server=taller;PWD=secreto");
    EXPECT_EQ(opened_, "Server=taller;PWD=secreto");
    EXPECT_EQ(workshop->connection().execute("select count(*) from DPI")[0].toLong(), 0);
}

TEST_F(DesktopServer, NoTablesAreMadeInADatabaseThatIsNotOurs) {
    EXPECT_THAT(serverRefusal(serverEngines_), HasSubstr("no tiene la tabla DPI"));
    EXPECT_THROW(sqlite::openDatabase(path("servidor.db"))->execute("select count(*) from DPI"), sql::DbError);
}

TEST_F(DesktopServer, WithoutAnEngineForItTheKnownOnesAreTold) {
    const sql::Engines none;
    EXPECT_THAT(serverRefusal(none), HasSubstr("No hay ningún motor de datos 'odbc'. Motores conocidos: ninguno."));
    EXPECT_THAT(serverRefusal(none), testing::Not(HasSubstr("secreto")));
}

}  // namespace
}  // namespace velmora::desktop
