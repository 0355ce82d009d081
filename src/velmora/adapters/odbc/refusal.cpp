#include "velmora/adapters/odbc/refusal.h"

#include <algorithm>
#include <array>

#include "velmora/adapters/odbc/connection_text.h"

namespace velmora::odbc {

namespace {

constexpr std::string_view noSuchDatabase = "La base de datos no existe o el usuario no tiene permiso para abrirla.";
constexpr std::string_view wrongLogin = "El servidor no acepta el usuario o la contraseña.";
constexpr std::string_view notAdmitted =
    "El servidor no admite la conexión: compruebe el usuario, la contraseña y sus permisos.";
constexpr std::string_view noSuchServer = "No hay ningún servidor con ese nombre.";
constexpr std::string_view noAnswer = "El servidor no está en marcha o no responde.";
constexpr std::string_view noDriver = "No hay ningún controlador ni origen de datos ODBC con ese nombre.";
constexpr std::string_view badDriver = "No se puede cargar el controlador ODBC.";

/// What tells a reason. Drivers add a general record, in front of the server's own or behind it: the table is in order
/// of how much a record says.
struct Sign {
    int native;              ///< the server's or the driver's number; 0: any
    std::string_view state;  ///< beginning of SQLSTATE
    std::string_view reason;
};

constexpr std::array signs{
    Sign{4060, "", noSuchDatabase},
    Sign{911, "", noSuchDatabase},
    Sign{916, "", noSuchDatabase},
    Sign{18456, "", wrongLogin},
    Sign{18452, "", wrongLogin},
    Sign{18486, "", wrongLogin},
    Sign{18487, "", "La contraseña del usuario ha caducado."},
    Sign{18488, "", "La contraseña del usuario ha caducado."},
    Sign{0, "28000", wrongLogin},
    Sign{20013, "", noSuchServer},
    Sign{0, "IM002", noDriver},
    Sign{0, "IM", badDriver},
    Sign{0, "HYT", noAnswer},
    // A server that refuses in a statement's terms, without a number: it was reached, and the database is there.
    Sign{0, "42", notAdmitted},
    Sign{0, "37", notAdmitted},
    Sign{0, "08", noAnswer},
    Sign{0, "01000", badDriver},
};

bool fits(const Sign& sign, const Diagnostic& diagnostic) {
    return (sign.native == 0 || sign.native == diagnostic.native) && diagnostic.state.starts_with(sign.state);
}

/// The first sign that a record fits, and that record.
struct Reason {
    std::string_view words = "No se puede abrir la conexión.";
    Diagnostic told{.state = "08001", .native = 0, .text = {}};
};

Reason reasonOf(const std::vector<Diagnostic>& diagnostics) {
    for (const Sign& sign : signs) {
        const auto found = std::ranges::find_if(diagnostics, [&](const Diagnostic& each) { return fits(sign, each); });
        if (found != diagnostics.end()) {
            return {.words = sign.reason, .told = *found};
        }
    }
    return {};
}

std::string allOf(const std::vector<Diagnostic>& diagnostics) {
    std::string words;
    for (const Diagnostic& each : diagnostics) {
        words += (words.empty() ? "" : "; ") + each.text;
    }
    return words;
}

}  // namespace

sql::DbError refusalOf(const std::vector<Diagnostic>& diagnostics, const std::string& connectionText) {
    const Reason reason = reasonOf(diagnostics);
    const std::string said = withoutPasswordOf(connectionText, allOf(diagnostics));
    return {sql::provider::failure,
            std::string(reason.words) + (said.empty() ? "" : "\n" + said),
            {.sqlState = reason.told.state, .nativeCode = reason.told.native}};
}

}  // namespace velmora::odbc
