#include "velmora/adapters/sqlite/errors.h"

#include <cerrno>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include <gmock/gmock.h>

#include "velmora/adapters/sqlite/database.h"

#include "adapters/sqlite/refused_calls.h"
#include "support/temporary_folder.h"

namespace velmora::sqlite {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class RefusedBySystem : public ::testing::Test {
  protected:
    RefusedBySystem() { connection->execute("CREATE TABLE T (a int)"); }

    std::string wordsOf(const std::function<void()>& deed) const {
        try {
            deed();
        } catch (const sql::DbError& error) {
            EXPECT_EQ(error.number(), sql::provider::failure);
            return error.description();
        }
        ADD_FAILURE() << "nothing was refused";
        return {};
    }

    support::TemporaryFolder folder;
    std::string file = folder.file("taller.db");
    std::unique_ptr<sql::Connection> connection = openDatabase(file);
};

TEST_F(RefusedBySystem, AWriteIsToldInTheWordsOfItsReason) {
    const std::map<int, const char*> words{{EROFS, "solo lectura"},
                                           {EIO, "El disco de la base de datos da errores"},
                                           {ENOSPC, "No queda espacio en el disco"},
                                           {EDQUOT, "No queda espacio en el disco"},
                                           {EFBIG, "tamaño máximo"}};
    for (const auto& [error, expected] : words) {
        SCOPED_TRACE(error);
        {
            const test::RefusedCalls refused(test::writing, error);
            EXPECT_THAT(wordsOf([&] { connection->execute("insert into T values (1)"); }), HasSubstr(expected));
            connection->beginTrans();
            connection->execute("insert into T values (2)");
            EXPECT_THAT(wordsOf([&] { connection->commitTrans(); }), HasSubstr(expected)) << "of a commit";
        }
        connection->execute("insert into T values (3)");
    }
    EXPECT_EQ(connection->execute("select count(*) from T")[0], sql::Value(5)) << "one behind each trouble";
}

TEST_F(RefusedBySystem, AReadIsToldAsAFaultOfTheDiskNotAsDamage) {
    connection->execute("insert into T values (1)");
    connection.reset();
    connection = openDatabase(file);
    const test::RefusedCalls refused(test::reading, EIO);
    EXPECT_THAT(wordsOf([&] { connection->execute("select * from T"); }),
                HasSubstr("El disco de la base de datos da errores"));
}

TEST_F(RefusedBySystem, AFileThatCannotBeLookedAtIsNotSaidToHaveMoved) {
    const test::RefusedCalls refused({"stat"}, EIO);
    const std::string words = wordsOf([&] { connection->execute("insert into T values (1)"); });
    EXPECT_THAT(words, HasSubstr("El disco de la base de datos da errores"));
    EXPECT_THAT(words, HasSubstr(file));
    EXPECT_THAT(words, Not(HasSubstr("movido")));
}

}  // namespace
}  // namespace velmora::sqlite
