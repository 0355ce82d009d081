#include "velmora/adapters/odbc/refusal.h"

#include <gmock/gmock.h>

namespace velmora::odbc {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

TEST(Refusal, EachReasonHasItsWordsWhateverElseTheDriverSays) {
    struct Case {
        const char* name;
        std::vector<Diagnostic> diagnostics;
        const char* words;
    };
    const Diagnostic general{.state = "08001", .native = 0, .text = "Unable to connect to data source"};
    const std::vector<Case> cases{
        {"no driver", {{"01000", 0, "Can't open lib 'Nada' : file not found"}}, "No se puede cargar el controlador"},
        {"no data source", {{"IM002", 0, "Data source name not found"}}, "No hay ningún controlador ni origen"},
        {"a library that is none", {{"IM004", 0, "SQLAllocHandle failed"}}, "No se puede cargar el controlador"},
        {"nobody listens", {{"08S01", 20009, "Adaptive Server is unavailable"}, general}, "El servidor no está"},
        {"no such host", {general, {"01000", 20013, "Unknown host machine name."}}, "No hay ningún servidor"},
        {"no answer", {{"HYT00", 0, "Login timeout expired"}}, "El servidor no está en marcha o no responde"},
        {"wrong login", {{"28000", 18456, "Login failed for user 'a'."}}, "El servidor no acepta el usuario"},
        {"wrong login, old state", {{"42000", 18456, "Login failed"}, general}, "El servidor no acepta el usuario"},
        {"no such user", {{"42000", 33557097, "role does not exist"}, general}, "El servidor no admite la conexión"},
        {"no such database", {{"08004", 911, "database does not exist"}, general}, "La base de datos no existe"},
        {"database closed to the login",
         {{"42000", 4060, "Cannot open database"}, {"28000", 18456, "Login failed"}},
         "La base de datos no existe o el usuario no tiene permiso"},
        {"expired", {{"42000", 18488, "Must be changed"}}, "La contraseña del usuario ha caducado"},
        {"unknown", {{"HY000", 14, "connect failed"}}, "No se puede abrir la conexión.\nconnect failed"},
        {"nothing said", {}, "No se puede abrir la conexión."},
    };
    for (const Case& each : cases) {
        const sql::DbError error = refusalOf(each.diagnostics, "UID=a");
        EXPECT_THAT(error.description(), StartsWith(each.words)) << each.name;
        EXPECT_EQ(error.number(), sql::provider::failure) << each.name;
        for (const Diagnostic& diagnostic : each.diagnostics) {
            EXPECT_THAT(error.description(), HasSubstr(diagnostic.text)) << each.name;
        }
    }
}

TEST(Refusal, ThePasswordIsNotRepeated) {
    const sql::DbError error =
        refusalOf({{"HY000", 0, "cannot parse DRIVER=x;PWD=geheim;UID=a"}}, "DRIVER=x;PWD=geheim;UID=a");
    EXPECT_THAT(error.description(), Not(HasSubstr("geheim")));
    EXPECT_THAT(error.description(), HasSubstr("PWD=***;UID=a"));
}

}  // namespace
}  // namespace velmora::odbc
