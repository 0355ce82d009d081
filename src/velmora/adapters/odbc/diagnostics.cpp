#include "velmora/adapters/odbc/diagnostics.h"

#include <algorithm>
#include <array>

#include "velmora/adapters/odbc/utf16.h"

namespace velmora::odbc {

namespace {

struct NativeNumber {
    int native;
    long number;
};

/// Numbers of the server. Deadlock, lock time-out and syntax all arrive with the SQLSTATE 42000.
constexpr std::array nativeNumbers{
    NativeNumber{102, sql::provider::syntax},         NativeNumber{109, sql::provider::syntax},
    NativeNumber{110, sql::provider::syntax},         NativeNumber{156, sql::provider::syntax},
    NativeNumber{195, sql::provider::syntax},         NativeNumber{207, sql::provider::syntax},
    NativeNumber{208, sql::provider::missingTable},   NativeNumber{209, sql::provider::syntax},
    NativeNumber{220, sql::provider::conversion},     NativeNumber{229, sql::provider::failure},
    NativeNumber{230, sql::provider::failure},        NativeNumber{232, sql::provider::conversion},
    NativeNumber{262, sql::provider::failure},        NativeNumber{241, sql::provider::conversion},
    NativeNumber{242, sql::provider::conversion},     NativeNumber{245, sql::provider::conversion},
    NativeNumber{295, sql::provider::conversion},     NativeNumber{515, sql::provider::constraint},
    NativeNumber{544, sql::provider::constraint},     NativeNumber{547, sql::provider::constraint},
    NativeNumber{1205, sql::provider::timeout},       NativeNumber{1222, sql::provider::timeout},
    NativeNumber{2601, sql::provider::constraint},    NativeNumber{2627, sql::provider::constraint},
    NativeNumber{2628, sql::provider::truncation},    NativeNumber{3902, sql::provider::noTransaction},
    NativeNumber{3903, sql::provider::noTransaction}, NativeNumber{3701, sql::provider::missingTable},
    NativeNumber{4104, sql::provider::syntax},        NativeNumber{4902, sql::provider::missingTable},
    NativeNumber{8114, sql::provider::conversion},    NativeNumber{8115, sql::provider::conversion},
    NativeNumber{8134, sql::provider::conversion},    NativeNumber{8152, sql::provider::truncation},
};

/// Numbers of the server for a right that the login lacks: on an object, on a column, on a kind of statement.
constexpr std::array missingRights{229, 230, 262, 297, 300};

struct StateNumber {
    std::string_view prefix;  ///< of SQLSTATE
    long number;
};

/// The first row whose prefix fits counts.
constexpr std::array stateNumbers{
    StateNumber{"42S02", sql::provider::missingTable}, StateNumber{"42S", sql::provider::syntax},
    StateNumber{"42", sql::provider::syntax},          StateNumber{"37000", sql::provider::syntax},
    StateNumber{"23", sql::provider::constraint},      StateNumber{"22001", sql::provider::truncation},
    StateNumber{"22", sql::provider::conversion},      StateNumber{"40001", sql::provider::timeout},
    StateNumber{"HYT00", sql::provider::timeout},      StateNumber{"25000", sql::provider::noTransaction},
};

/// "[vendor][driver][server]words": the words.
std::string_view withoutOrigin(std::string_view text) {
    while (text.starts_with('[')) {
        const auto end = text.find(']');
        if (end == std::string_view::npos) {
            break;
        }
        text.remove_prefix(end + 1);
    }
    return text;
}

bool isWarning(const Diagnostic& diagnostic) {
    return diagnostic.state.starts_with("01");
}

std::string wordsOf(const Diagnostic& diagnostic) {
    if (diagnostic.native == native::deadlockVictim) {
        return "Otro usuario trabajaba con los mismos datos y el servidor ha deshecho lo de este. Vuelva a intentarlo.";
    }
    if (diagnostic.native == native::lockTimeout) {
        return "Otro usuario está usando los mismos datos y no termina. Vuelva a intentarlo.";
    }
    if (isTimeout(diagnostic.state)) {
        return "El servidor no ha respondido a tiempo. Vuelva a intentarlo.";
    }
    if (std::ranges::find(missingRights, diagnostic.native) != missingRights.end()) {
        return "El usuario de la base de datos no tiene permiso.\n" + diagnostic.text;
    }
    return diagnostic.text.empty() ? "Error del servidor sin descripción." : diagnostic.text;
}

}  // namespace

std::vector<Diagnostic> diagnosticsOf(SQLSMALLINT kind, SQLHANDLE handle) {
    std::vector<Diagnostic> all;
    std::u16string text(1024, u'\0');
    for (SQLSMALLINT record = 1;; ++record) {
        std::array<SQLWCHAR, 6> state{};
        SQLINTEGER number = 0;
        SQLSMALLINT length = 0;
        const auto ask = [&] {
            return SQLGetDiagRecW(kind, handle, record, state.data(), &number, reinterpret_cast<SQLWCHAR*>(text.data()),
                                  static_cast<SQLSMALLINT>(text.size()), &length);
        };
        SQLRETURN answer = ask();
        if (answer == SQL_SUCCESS_WITH_INFO && static_cast<std::size_t>(length) >= text.size()) {
            text.resize(static_cast<std::size_t>(length) + 1);
            answer = ask();
        }
        if (!SQL_SUCCEEDED(answer)) {
            return all;
        }
        const auto shown = std::min(static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0)), text.size());
        const std::string words = toUtf8(std::u16string_view(text).substr(0, shown));
        all.push_back({.state = toUtf8(std::u16string(state.begin(), state.begin() + 5)),
                       .native = static_cast<int>(number),
                       .text = std::string(withoutOrigin(words))});
    }
}

long providerNumber(const Diagnostic& diagnostic) {
    const auto* byNative = std::ranges::find(nativeNumbers, diagnostic.native, &NativeNumber::native);
    if (byNative != nativeNumbers.end()) {
        return byNative->number;
    }
    const auto* byState = std::ranges::find_if(
        stateNumbers, [&](const StateNumber& row) { return diagnostic.state.starts_with(row.prefix); });
    return byState == stateNumbers.end() ? sql::provider::failure : byState->number;
}

bool isLoss(std::string_view state) {
    return state.starts_with("08");
}

bool isTimeout(std::string_view state) {
    return state == "HYT00";
}

sql::DbError errorOf(const std::vector<Diagnostic>& diagnostics, std::string_view statement) {
    const auto loss = std::ranges::find_if(diagnostics, isLoss, &Diagnostic::state);
    auto told = loss != diagnostics.end() ? loss : std::ranges::find_if_not(diagnostics, isWarning);
    if (told == diagnostics.end()) {
        told = diagnostics.begin();
    }
    if (told == diagnostics.end()) {
        return {sql::provider::failure,
                "Error del controlador ODBC sin descripción.",
                {.statement = std::string(statement)}};
    }
    return {providerNumber(*told),
            wordsOf(*told),
            {.sqlState = told->state, .nativeCode = told->native, .statement = std::string(statement)}};
}

}  // namespace velmora::odbc
