#include "velmora/adapters/sqlite/collation.h"

#include <string>

#include <sqlite3.h>
#include <unicode/ucol.h>

#include "velmora/adapters/sqlite/emitters/storage.h"
#include "velmora/adapters/sqlite/errors.h"

namespace velmora::sqlite {

namespace {

/// Kept K-202: trailing blanks are ignored when texts are compared, as on the server, so a code typed with one is
/// found.
std::string_view withoutTrailingBlanks(std::string_view text) {
    const auto last = text.find_last_not_of(' ');
    return text.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

int compareForEngine(void* order, int lengthA, const void* a, int lengthB, const void* b) {
    return static_cast<SpanishOrder*>(order)->compare({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                                                      {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

void deleteOrder(void* order) {
    delete static_cast<SpanishOrder*>(order);
}

}  // namespace

struct SpanishOrder::Collator {
    UCollator* handle = nullptr;
    ~Collator() { ucol_close(handle); }
};

SpanishOrder::SpanishOrder() : collator_(std::make_unique<Collator>()) {
    UErrorCode status = U_ZERO_ERROR;
    collator_->handle = ucol_open("es", &status);
    if (U_SUCCESS(status)) {
        ucol_setAttribute(collator_->handle, UCOL_STRENGTH, UCOL_SECONDARY, &status);
        ucol_setAttribute(collator_->handle, UCOL_NORMALIZATION_MODE, UCOL_ON, &status);
    }
    if (U_FAILURE(status)) {
        throw sql::DbError(sql::provider::failure,
                           std::string("No hay orden alfabético español: ") + u_errorName(status));
    }
}

SpanishOrder::~SpanishOrder() = default;

int SpanishOrder::compare(std::string_view a, std::string_view b) const {
    a = withoutTrailingBlanks(a);
    b = withoutTrailingBlanks(b);
    if (a == b) {
        return 0;
    }
    UErrorCode status = U_ZERO_ERROR;
    const UCollationResult result = ucol_strcollUTF8(collator_->handle, a.data(), static_cast<int32_t>(a.size()),
                                                     b.data(), static_cast<int32_t>(b.size()), &status);
    return static_cast<int>(result);
}

void registerCollation(sqlite3* database) {
    auto order = std::make_unique<SpanishOrder>();
    const std::string name(collationName);
    const int code =
        sqlite3_create_collation_v2(database, name.c_str(), SQLITE_UTF8, order.get(), compareForEngine, deleteOrder);
    if (code != SQLITE_OK) {
        throwEngineError(database, code);
    }
    static_cast<void>(order.release());  // the engine deletes it with the connection
}

}  // namespace velmora::sqlite
