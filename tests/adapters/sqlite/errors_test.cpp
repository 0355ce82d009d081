#include "velmora/adapters/sqlite/errors.h"

#include <cerrno>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/types.h>

#include "velmora/adapters/sqlite/database.h"

#include "support/temporary_folder.h"

namespace velmora::sqlite {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// Calls of the engine to the system that are refused, as by a broken disk, while the object lives.
class RefusedCalls {
  public:
    RefusedCalls(const std::vector<std::string>& names, int error) {
        answer() = error;
        for (const std::string& name : names) {
            if (const sqlite3_syscall_ptr own = system_->xGetSystemCall(system_, name.c_str())) {
                own_[name] = own;
                system_->xSetSystemCall(system_, name.c_str(), reinterpret_cast<sqlite3_syscall_ptr>(&refuse));
            }
        }
    }
    ~RefusedCalls() {
        for (const auto& [name, own] : own_) {
            system_->xSetSystemCall(system_, name.c_str(), own);
        }
    }
    RefusedCalls(const RefusedCalls&) = delete;
    RefusedCalls& operator=(const RefusedCalls&) = delete;

  private:
    /// Of any of them: no value that is given is looked at.
    static long refuse() {
        errno = answer();
        return -1;
    }
    static int& answer() {
        static int error = 0;
        return error;
    }

    sqlite3_vfs* system_ = sqlite3_vfs_find(nullptr);
    std::map<std::string, sqlite3_syscall_ptr> own_;
};

const std::vector<std::string> writing{"write", "pwrite", "pwrite64"};
const std::vector<std::string> reading{"read", "pread", "pread64"};

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
            const RefusedCalls refused(writing, error);
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
    const RefusedCalls refused(reading, EIO);
    EXPECT_THAT(wordsOf([&] { connection->execute("select * from T"); }),
                HasSubstr("El disco de la base de datos da errores"));
}

TEST_F(RefusedBySystem, AFileThatCannotBeLookedAtIsNotSaidToHaveMoved) {
    const RefusedCalls refused({"stat"}, EIO);
    const std::string words = wordsOf([&] { connection->execute("insert into T values (1)"); });
    EXPECT_THAT(words, HasSubstr("El disco de la base de datos da errores"));
    EXPECT_THAT(words, HasSubstr(file));
    EXPECT_THAT(words, Not(HasSubstr("movido")));
}

}  // namespace
}  // namespace velmora::sqlite
