#include "velmora/adapters/sqlite/errors.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <utility>

#include <sqlite3.h>

#include "velmora/adapters/sqlite/database.h"
#include "velmora/adapters/sqlite/link.h"
#include "velmora/adapters/tsql/refusals.h"

namespace velmora::sqlite {

namespace {

using sql::DbError;
namespace provider = sql::provider;

[[noreturn]] void raise(long number, std::string description, std::string_view state, int native) {
    throw DbError(number, std::move(description), {.sqlState = std::string(state), .nativeCode = native});
}

/// What follows the last ": " of an engine's message: the name of the column or the constraint.
std::string_view subject(std::string_view message) {
    const auto colon = message.find(": ");
    return colon == std::string_view::npos ? message : message.substr(colon + 2);
}

std::string_view afterDot(std::string_view name) {
    const auto dot = name.rfind('.');
    return dot == std::string_view::npos ? name : name.substr(dot + 1);
}

struct Failure {
    int primaryCode;
    long number;
    std::string_view state;
    std::string_view description;
};

constexpr Failure failures[] = {
    {SQLITE_BUSY, provider::timeout, "HYT00", "La base de datos está ocupada por otro proceso. Inténtelo de nuevo."},
    {SQLITE_LOCKED, provider::timeout, "HYT00", "La tabla está ocupada por otra consulta."},
    {SQLITE_FULL, provider::failure, "HY000", "No queda espacio en el disco de la base de datos."},
    {SQLITE_READONLY, provider::failure, "HY000", "La base de datos es de solo lectura."},
    {SQLITE_NOTADB, provider::failure, "08001", "El fichero no es una base de datos."},
    {SQLITE_CANTOPEN, provider::failure, "08001", "No se puede abrir el fichero de la base de datos."},
    {SQLITE_CORRUPT, provider::failure, "HY000", "El fichero de la base de datos está dañado."},
    {SQLITE_IOERR, provider::failure, "HY000", "Error de lectura o escritura en el fichero de la base de datos."},
    {SQLITE_NOMEM, provider::failure, "HY001", "No queda memoria."},
    {SQLITE_INTERRUPT, cancelled, sql::cancelledState, sql::cancelledWords},
    {SQLITE_PERM, provider::failure, "42000", "Sin permiso sobre la base de datos."},
};

/// What the system has said of a failed read or write.
struct SystemFailure {
    int number;
    std::string_view description;
};

constexpr std::string_view fullDisk = "No queda espacio en el disco de la base de datos.";
constexpr std::string_view noRight = "El sistema no permite el acceso al fichero de la base de datos o a su carpeta.";

constexpr SystemFailure systemFailures[] = {
    {ENOSPC, fullDisk},
    {EDQUOT, fullDisk},
    {EFBIG, "El fichero de la base de datos ha llegado al tamaño máximo que permite el sistema."},
    {EACCES, noRight},
    {EPERM, noRight},
    {EROFS, "El disco de la base de datos es de solo lectura."},
    {ENOENT, "El fichero de la base de datos o su carpeta no existe."},
    {ENOTDIR, "El fichero de la base de datos o su carpeta no existe."},
    {EIO, "El disco de la base de datos da errores de lectura o escritura."},
};

/// Its words; none for a number without.
std::string_view wordsOf(int number) {
    const auto* known = std::ranges::find(systemFailures, number, &SystemFailure::number);
    return known == std::end(systemFailures) ? std::string_view() : known->description;
}

/// What the system answered to the last read, write or sync that it refused, of this file of the connection; 0:
/// nothing.
int lastErrorOf(sqlite3* database, std::string_view schema, int whichFile) {
    sqlite3_file* file = nullptr;
    const std::string name(schema);
    if (sqlite3_file_control(database, name.c_str(), whichFile, static_cast<void*>(&file)) != SQLITE_OK ||
        file == nullptr || file->pMethods == nullptr) {
        return 0;
    }
    int number = 0;
    file->pMethods->xFileControl(file, SQLITE_FCNTL_LAST_ERRNO, &number);
    return number;
}

/// The same of the first of its files that has one; what is written goes into the write-ahead files first.
int lastErrorOf(sqlite3* database) {
    for (const int whichFile : {SQLITE_FCNTL_JOURNAL_POINTER, SQLITE_FCNTL_FILE_POINTER}) {
        for (const std::string_view schema : {mainSchema, documentsSchema}) {
            if (const int number = lastErrorOf(database, schema, whichFile); number != 0) {
                return number;
            }
        }
    }
    return 0;
}

/// More than the engine says of these codes: what the system has said. The engine itself keeps it only for some steps
/// of a statement, not for the writes of a commit.
std::string_view systemWordsOf(int primaryCode, sqlite3* database) {
    switch (primaryCode) {
        case SQLITE_CANTOPEN:
            return wordsOf(sqlite3_system_errno(database));
        case SQLITE_IOERR: {
            const std::string_view words = wordsOf(lastErrorOf(database));
            return words.empty() ? wordsOf(sqlite3_system_errno(database)) : words;
        }
        case SQLITE_CORRUPT:  // also what the engine makes of a read that a broken disk refuses
            return lastErrorOf(database) == EIO ? wordsOf(EIO) : std::string_view();
        default:
            return {};
    }
}

std::string_view descriptionOf(const Failure& failure, sqlite3* database) {
    const std::string_view words =
        database == nullptr ? std::string_view() : systemWordsOf(failure.primaryCode, database);
    return words.empty() ? failure.description : words;
}

/// Check constraints are named after what they check: "conversion:COLUMN", "longitud:COLUMN".
[[noreturn]] void raiseCheck(std::string_view constraint, int code) {
    constexpr std::string_view length = "longitud:";
    const std::string column(constraint.substr(std::min(constraint.find(':') + 1, constraint.size())));
    if (constraint.substr(0, length.size()) == length) {
        raise(provider::truncation, "El texto no cabe en la columna '" + column + "'.", "22001", code);
    }
    raise(provider::conversion, "El valor no es del tipo de la columna '" + column + "'.", "22018", code);
}

[[noreturn]] void raiseConstraint(std::string_view message, int code) {
    const std::string_view about = subject(message);
    switch (code) {
        case SQLITE_CONSTRAINT_CHECK:
            raiseCheck(about, code);
        case SQLITE_CONSTRAINT_NOTNULL:
            raise(provider::constraint, "La columna '" + std::string(afterDot(about)) + "' no admite NULL.", "23000",
                  code);
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_ROWID:
            raise(provider::constraint,
                  "Clave duplicada: ya existe una fila con ese valor en " + std::string(about) + ".", "23000", code);
        default:
            raise(provider::constraint, "La fila incumple una restricción: " + std::string(about) + ".", "23000", code);
    }
}

}  // namespace

void throwEngineError(sqlite3* database, int code) {
    const std::string message = database ? sqlite3_errmsg(database) : sqlite3_errstr(code);
    const int extended = database && sqlite3_errcode(database) == code ? sqlite3_extended_errcode(database) : code;
    const int primary = extended & 0xff;
    if (primary == SQLITE_CONSTRAINT) {
        raiseConstraint(message, extended);
    }
    // The functions of the dialect (functions.cpp) refuse values with these two codes.
    if (primary == SQLITE_MISMATCH) {
        raise(provider::conversion, message, "22018", extended);
    }
    if (primary == SQLITE_TOOBIG) {
        raise(provider::truncation, message, "22001", extended);
    }
    const auto known = std::find_if(std::begin(failures), std::end(failures),
                                    [&](const Failure& f) { return f.primaryCode == primary; });
    if (known != std::end(failures)) {
        raise(known->number, std::string(descriptionOf(*known, database)), known->state, extended);
    }
    // Another process dropped it after the statement had been prepared.
    if (message.starts_with("no such table: ")) {
        tsql::throwMissingTable(afterDot(subject(message)));
    }
    raise(provider::syntax, "La base de datos rechaza la instrucción: " + message, "42000", extended);
}

void throwNotInPlace(const std::string& file, int systemError) {
    const std::string_view words = wordsOf(systemError);
    if (systemError != 0 && systemError != ENOENT && systemError != ENOTDIR && !words.empty()) {
        raise(provider::failure, "No se ha grabado nada. " + std::string(words) + "\n" + file, "HY000", SQLITE_IOERR);
    }
    raise(provider::failure,
          "No se ha grabado nada: el fichero de la base de datos se ha movido, borrado o sustituido mientras estaba "
          "abierto.\n" +
              file + "\nDevuélvalo a su sitio, o cierre el programa y ábralo de nuevo.",
          "HY000", SQLITE_READONLY_DBMOVED);
}

DbError withStatement(const DbError& error, std::string_view statement) {
    DbError::Details details = error.details();
    details.statement = std::string(statement);
    return DbError(error.number(), error.description(), std::move(details));
}

}  // namespace velmora::sqlite
