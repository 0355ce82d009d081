#include "velmora/adapters/odbc/link.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "velmora/adapters/odbc/connection_text.h"
#include "velmora/adapters/odbc/diagnostics.h"
#include "velmora/adapters/odbc/utf16.h"

namespace velmora::odbc {

namespace {

constexpr std::u16string_view tsqlServer = u"Microsoft SQL Server";

// Differs D-290: statements hold dates day first; with the setting of a login in another language, 10 January would be
// read as 1 October without an error.
constexpr std::string_view sessionSettings = "SET DATEFORMAT dmy";

SQLPOINTER asPointer(std::uintptr_t value) {
    // The interface passes whole numbers as pointers.
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    return reinterpret_cast<SQLPOINTER>(value);
}

/// A reason why a connection is refused, by what the driver or the server says, and the words for it.
struct Refusal {
    int native;              ///< the server's number; 0: any
    std::string_view state;  ///< SQLSTATE; empty: any
    std::string_view words;
};

/// The first row that fits counts.
constexpr std::array refusals{
    Refusal{4060, "", "La base de datos no existe o el usuario no puede abrirla."},
    Refusal{911, "", "La base de datos no existe."},
    Refusal{916, "", "El usuario no tiene permiso para abrir la base de datos."},
    Refusal{18456, "", "El servidor no acepta el usuario o la contraseña."},
    Refusal{0, "28000", "El servidor no acepta el usuario o la contraseña."},
    Refusal{0, "IM002", "No hay ningún controlador ni origen de datos ODBC con ese nombre."},
    Refusal{0, "IM003", "No se puede cargar el controlador ODBC."},
    Refusal{0, "HYT00", "El servidor no responde."},
    Refusal{0, "08", "No se puede conectar con el servidor."},
    Refusal{0, "01000", "No se puede cargar el controlador ODBC."},
};

/// Everything that driver and server said, without the password.
std::string wordsOf(const std::vector<Diagnostic>& diagnostics, const std::string& connectionText) {
    std::string words;
    for (const Diagnostic& each : diagnostics) {
        words += (words.empty() ? "" : "; ") + each.text;
    }
    return withoutPasswordOf(connectionText, words);
}

/// What to tell of a connection that was refused. Drivers put a general reason before or behind the server's own.
sql::DbError refusalOf(const std::vector<Diagnostic>& diagnostics, const std::string& connectionText) {
    std::string_view reason = "No se puede abrir la conexión.";
    sql::DbError::Details details = errorOf(diagnostics, "").details();
    for (const Refusal& row : refusals) {
        const auto fits = [&](const Diagnostic& d) {
            return (row.native == 0 || d.native == row.native) && d.state.starts_with(row.state);
        };
        const auto found = std::ranges::find_if(diagnostics, fits);
        if (found != diagnostics.end()) {
            reason = row.words;
            details = {.sqlState = found->state, .nativeCode = found->native};
            break;
        }
    }
    return {sql::provider::failure, std::string(reason) + " (" + wordsOf(diagnostics, connectionText) + ")", details};
}

std::u16string infoOf(SQLHANDLE connection, SQLUSMALLINT what) {
    std::array<char16_t, 256> text{};
    SQLSMALLINT bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetInfoW(connection, what, text.data(), sizeof text, &bytes))) {
        return {};
    }
    const auto length = std::min(static_cast<std::size_t>(bytes) / sizeof(char16_t), text.size() - 1);
    return {text.data(), length};
}

}  // namespace

Link::Link(const std::string& connectionText, const Options& options) : handle_(environment()) {
    connect(connectionText, options);
    if (infoOf(handle_.get(), SQL_DBMS_NAME) == tsqlServer) {
        server_ = Server::tsql;
        if (!options.loginStatement.empty()) {
            send(options.loginStatement);
        }
        send(sessionSettings);
    }
}

Link::~Link() {
    SQLDisconnect(handle_.get());
}

void Link::connect(const std::string& connectionText, const Options& options) {
    SQLSetConnectAttrW(handle_.get(), SQL_ATTR_LOGIN_TIMEOUT,
                       asPointer(static_cast<std::uintptr_t>(options.loginTimeout.count())), 0);
    std::u16string text = toUtf16(connectionText);
    const SQLRETURN answer =
        SQLDriverConnectW(handle_.get(), nullptr, reinterpret_cast<SQLWCHAR*>(text.data()),
                          static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(answer)) {
        throw refusalOf(diagnosticsOf(SQL_HANDLE_DBC, handle_.get()), connectionText);
    }
}

std::string Link::catalog() const {
    std::array<char16_t, 256> name{};
    SQLINTEGER bytes = 0;
    if (!SQL_SUCCEEDED(SQLGetConnectAttrW(handle_.get(), SQL_ATTR_CURRENT_CATALOG, name.data(), sizeof name, &bytes))) {
        return {};
    }
    const auto length = std::min(static_cast<std::size_t>(bytes) / sizeof(char16_t), name.size() - 1);
    return toUtf8(std::u16string_view(name.data(), length));
}

Cursor Link::send(std::string_view statement) {
    return watch([&] { return Cursor(handle_.get(), std::string(statement)); });
}

sql::Value Link::ask(std::string_view statement) {
    return watch([&] {
        Cursor answer(handle_.get(), std::string(statement));
        sql::Row row;
        sql::Row others;
        if (answer.columns().empty() || !answer.next(row)) {
            return sql::Value();
        }
        while (answer.next(others)) {
        }
        return row[0];
    });
}

void Link::noteLoss(const sql::DbError& error) {
    lost_ = lost_ || error.details().sqlState.starts_with("08");
}

}  // namespace velmora::odbc
