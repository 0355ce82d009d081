#include "velmora/adapters/sqlite/functions.h"

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <sqlite3.h>

#include "velmora/adapters/sqlite/errors.h"
#include "velmora/adapters/tsql/conversions.h"
#include "velmora/adapters/tsql/pattern.h"
#include "velmora/platform/runtime/text.h"

namespace velmora::sqlite {

namespace {

using runtime::Date;

/// One call of an SQL function: its arguments and its result, which is null unless one is given.
class Call {
  public:
    Call(sqlite3_context* context, int count, sqlite3_value** arguments)
        : context_(context), count_(count), arguments_(arguments) {}

    int count() const { return count_; }
    bool anyNull() const {
        for (int i = 0; i < count_; ++i) {
            if (sqlite3_value_type(arguments_[i]) == SQLITE_NULL) {
                return true;
            }
        }
        return false;
    }
    std::string_view text(int i) const {
        const auto* characters = reinterpret_cast<const char*>(sqlite3_value_text(arguments_[i]));
        return characters ? std::string_view(characters, static_cast<std::size_t>(sqlite3_value_bytes(arguments_[i])))
                          : std::string_view();
    }
    std::int64_t whole(int i) const { return sqlite3_value_int64(arguments_[i]); }
    double number(int i) const { return sqlite3_value_double(arguments_[i]); }
    bool isZero(int i) const { return sqlite3_value_double(arguments_[i]) == 0; }
    std::optional<Date> date(int i) const { return tsql::dateFromIso(text(i)); }

    void give(std::string_view text) const {
        sqlite3_result_text64(context_, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    }
    void give(std::int64_t value) const { sqlite3_result_int64(context_, value); }
    void give(double value) const { sqlite3_result_double(context_, value); }
    void giveArgument(int i) const { sqlite3_result_value(context_, arguments_[i]); }

    /// `code` tells errors.cpp the kind of refusal: SQLITE_MISMATCH or SQLITE_TOOBIG.
    void refuse(const std::string& description, int code) const {
        sqlite3_result_error(context_, description.c_str(), static_cast<int>(description.size()));
        sqlite3_result_error_code(context_, code);
    }
    void refuseConversion(std::string_view to) const {
        refuse("El texto '" + std::string(text(0)) + "' no se puede convertir en " + std::string(to) + ".",
               SQLITE_MISMATCH);
    }

    /// What was made of an argument in an earlier row; the engine forgets it when the argument is no constant.
    template <typename Made>
    const Made* kept(int argument) const {
        return static_cast<const Made*>(sqlite3_get_auxdata(context_, argument));
    }
    template <typename Made>
    void keep(int argument, std::unique_ptr<Made> made) const {
        sqlite3_set_auxdata(context_, argument, made.release(), [](void* held) { delete static_cast<Made*>(held); });
    }

    template <typename State>
    State* state() const {
        return static_cast<State*>(sqlite3_user_data(context_));
    }

  private:
    sqlite3_context* context_;
    int count_;
    sqlite3_value** arguments_;
};

void getdate(const Call& call) {
    call.give(tsql::isoText((*call.state<Clock>())()));
}

void whole(const Call& call) {
    if (const auto value = tsql::wholeFromText(call.text(0))) {
        call.give(*value);
    } else {
        call.refuseConversion("int");
    }
}

void number(const Call& call) {
    if (const auto value = tsql::numberFromText(call.text(0))) {
        call.give(*value);
    } else {
        call.refuseConversion("float");
    }
}

void date(const Call& call) {
    if (const auto value = tsql::dateFromText(call.text(0))) {
        call.give(tsql::isoText(*value));
    } else {
        call.refuseConversion("datetime");
    }
}

void bit(const Call& call) {
    if (const auto value = tsql::bitFromText(call.text(0))) {
        call.give(std::int64_t{*value});
    } else {
        call.refuseConversion("bit");
    }
}

void textOfReal(const Call& call) {
    call.give(tsql::textFromReal(call.number(0)));
}

void textOfDecimal(const Call& call) {
    call.give(tsql::textFromDecimal(call.number(0), static_cast<int>(call.whole(1))));
}

void textOfDate(const Call& call) {
    const auto value = call.date(0);
    const auto text = value ? tsql::textFromDate(*value, call.whole(1)) : std::nullopt;
    if (text) {
        call.give(*text);
    } else {
        call.refuseConversion("nvarchar");
    }
}

void round(const Call& call) {
    call.give(tsql::roundedTo(call.number(0), call.whole(1)));
}

/// Argument: a divisor. The result is the argument; zero is refused.
void divisor(const Call& call) {
    if (call.isZero(0)) {
        call.refuse("División por cero.", SQLITE_MISMATCH);
    } else {
        call.giveArgument(0);
    }
}

/// Arguments: a text, its limit in UTF-16 units, the name of its column. A longer text is refused.
void fit(const Call& call) {
    if (runtime::Len(call.text(0)) > static_cast<std::size_t>(call.whole(1))) {
        call.refuse("El texto no cabe en la columna '" + std::string(call.text(2)) + "', que admite " +
                        std::to_string(call.whole(1)) + " caracteres.",
                    SQLITE_TOOBIG);
    } else {
        call.giveArgument(0);
    }
}

void len(const Call& call) {
    const std::string_view text = call.text(0);
    const auto last = text.find_last_not_of(' ');
    const std::string_view counted = text.substr(0, last == std::string_view::npos ? 0 : last + 1);
    call.give(static_cast<std::int64_t>(runtime::Len(counted)));
}

void refuseLength(const Call& call) {
    call.refuse("Longitud o posición de texto no válida.", SQLITE_MISMATCH);
}

void left(const Call& call) {
    if (call.whole(1) < 0) {
        return refuseLength(call);
    }
    call.give(runtime::Left(call.text(0), static_cast<std::size_t>(call.whole(1))));
}

void right(const Call& call) {
    if (call.whole(1) < 0) {
        return refuseLength(call);
    }
    call.give(runtime::Right(call.text(0), static_cast<std::size_t>(call.whole(1))));
}

void substring(const Call& call) {
    if (call.whole(1) < 1 || call.whole(2) < 0) {
        return refuseLength(call);
    }
    call.give(
        runtime::Mid(call.text(0), static_cast<std::size_t>(call.whole(1)), static_cast<std::size_t>(call.whole(2))));
}

void upper(const Call& call) {
    call.give(runtime::UCase(call.text(0)));
}
void lower(const Call& call) {
    call.give(runtime::LCase(call.text(0)));
}

void like(const Call& call) {
    const std::string_view escape = call.count() > 2 ? call.text(2) : std::string_view();
    if (const auto* known = call.kept<tsql::Pattern>(1)) {
        return call.give(std::int64_t{known->matches(call.text(0))});
    }
    auto pattern = std::make_unique<tsql::Pattern>(call.text(1), escape);
    call.give(std::int64_t{pattern->matches(call.text(0))});
    if (call.count() == 2) {
        call.keep(1, std::move(pattern));
    }
}

std::chrono::year_month_day calendarOf(const Date& date) {
    return std::chrono::floor<std::chrono::days>(date.at);
}

/// Counts the boundaries of a part that lie between two points in time: midnights for days.
void datediff(const Call& call) {
    using namespace std::chrono;
    const auto from = call.date(1);
    const auto to = call.date(2);
    if (!from || !to) {
        return call.refuse("Fecha no válida en DATEDIFF.", SQLITE_MISMATCH);
    }
    const auto count = [&]<typename Unit>(Unit) {
        return static_cast<std::int64_t>((floor<Unit>(to->at) - floor<Unit>(from->at)).count());
    };
    const auto monthsOf = [](const Date& date) {
        const year_month_day day = calendarOf(date);
        return std::int64_t{static_cast<int>(day.year())} * 12 + static_cast<unsigned>(day.month());
    };
    const std::string_view part = call.text(0);
    if (part == "day") {
        call.give(count(days{}));
    } else if (part == "hour") {
        call.give(count(hours{}));
    } else if (part == "minute") {
        call.give(count(minutes{}));
    } else if (part == "second") {
        call.give(count(seconds{}));
    } else if (part == "month") {
        call.give(monthsOf(*to) - monthsOf(*from));
    } else {
        call.give(std::int64_t{static_cast<int>(calendarOf(*to).year()) - static_cast<int>(calendarOf(*from).year())});
    }
}

/// Adds calendar months; a day that the resulting month lacks becomes its last day.
Date monthsLater(const Date& date, std::int64_t count) {
    using namespace std::chrono;
    const auto day = floor<days>(date.at);
    year_month_day calendar = year_month_day(day) + months{count};
    if (!calendar.ok()) {
        calendar = calendar.year() / calendar.month() / last;
    }
    return Date{sys_days(calendar) + (date.at - day)};
}

void dateadd(const Call& call) {
    using namespace std::chrono;
    const auto from = call.date(2);
    const std::int64_t number = call.whole(1);
    constexpr std::int64_t furthest = 300'000'000'000;  // seconds: beyond every year that a date can have
    if (!from || number > furthest || number < -furthest) {
        return call.refuse("Fecha no válida en DATEADD.", SQLITE_MISMATCH);
    }
    const std::string_view part = call.text(0);
    Date result = *from;
    if (part == "second") {
        result.at += seconds{number};
    } else if (part == "minute") {
        result.at += seconds{number * 60};
    } else if (part == "hour") {
        result.at += seconds{number * 3600};
    } else if (part == "day") {
        result.at += seconds{number * 86400};
    } else if (number > 120'000 || number < -120'000) {
        return call.refuse("Fecha no válida en DATEADD.", SQLITE_MISMATCH);
    } else {
        result = monthsLater(*from, part == "year" ? number * 12 : number);
    }
    const int year = static_cast<int>(calendarOf(result).year());
    if (year < 1753 || year > 9999) {
        return call.refuse("Fecha no válida en DATEADD.", SQLITE_MISMATCH);
    }
    call.give(tsql::isoText(result));
}

struct Function {
    const char* name;
    int arguments;
    void (*run)(const Call&);
};

constexpr auto functions = std::to_array<Function>({
    {"vm_whole", 1, whole},
    {"vm_number", 1, number},
    {"vm_date", 1, date},
    {"vm_bit", 1, bit},
    {"vm_text_of_real", 1, textOfReal},
    {"vm_text_of_decimal", 2, textOfDecimal},
    {"vm_text_of_date", 2, textOfDate},
    {"vm_round", 2, round},
    {"vm_divisor", 1, divisor},
    {"vm_fit", 3, fit},
    {"vm_len", 1, len},
    {"vm_left", 2, left},
    {"vm_right", 2, right},
    {"vm_substring", 3, substring},
    {"vm_upper", 1, upper},
    {"vm_lower", 1, lower},
    {"vm_like", 2, like},
    {"vm_like", 3, like},
    {"vm_datediff", 3, datediff},
    {"vm_dateadd", 3, dateadd},
});

/// Every function answers null for a null, and no exception passes through the engine.
void guarded(const Call& call, void (*run)(const Call&)) noexcept {
    try {
        if (!call.anyNull()) {
            run(call);
        }
    } catch (const std::exception& error) {
        call.refuse(error.what(), SQLITE_MISMATCH);
    }
}

void runFunction(sqlite3_context* context, int count, sqlite3_value** arguments) {
    const auto* function = static_cast<const Function*>(sqlite3_user_data(context));
    guarded(Call(context, count, arguments), function->run);
}

void runGetdate(sqlite3_context* context, int count, sqlite3_value** arguments) {
    guarded(Call(context, count, arguments), getdate);
}

void check(sqlite3* database, int code) {
    if (code != SQLITE_OK) {
        throwEngineError(database, code);
    }
}

}  // namespace

void registerFunctions(sqlite3* database, const Clock& clock) {
    constexpr int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS;
    for (const Function& function : functions) {
        check(database,
              sqlite3_create_function_v2(database, function.name, function.arguments, flags | SQLITE_DETERMINISTIC,
                                         const_cast<Function*>(&function), runFunction, nullptr, nullptr, nullptr));
    }
    // The engine deletes the clock with the connection, and also when the registration fails.
    check(database, sqlite3_create_function_v2(database, "getdate", 0, flags, new Clock(clock), runGetdate, nullptr,
                                               nullptr, [](void* held) { delete static_cast<Clock*>(held); }));
}

}  // namespace velmora::sqlite
