#include "velmora/adapters/com/host_session.h"

#include <utility>

#include "velmora/platform/runtime/errors.h"

namespace velmora::com {

namespace {

/// The number of the error for another list of arguments.
constexpr long wrongArguments = 450;

Variant smallNumber(int value) {
    return Variant::shortNumber(static_cast<std::int16_t>(value));
}

bool isTrue(const Variant& value) {
    return value.type() != VT_EMPTY && value.value().toBool();
}

/// The value behind an object: that of its default member, or of the object that this gives.
sql::Value valueBehind(Variant value) {
    constexpr int mostObjects = 3;
    for (int i = 0; i < mostObjects && value.isObject(); ++i) {
        value = objectIn(value).getOrDefault("Value");
    }
    return value.value();
}

/// The setting of a collection, or of a setting itself that was found by its name.
sql::Value settingIn(const LateObject& found, std::string_view name) {
    const Variant key = Variant::text(name);
    if (found.has("Item")) {
        return valueBehind(found.get("Item", {key}));
    }
    try {
        return valueBehind(found.getDefault({key}));
    } catch (const runtime::RuntimeError&) {
        return valueBehind(Variant::object(found.dispatch()));
    }
}

sql::Value settingOf(const Variant& answer, std::string_view name) {
    return answer.isObject() ? settingIn(objectIn(answer), name) : answer.value();
}

}  // namespace

HostSession::HostSession(LateObject host) : host_(std::move(host)), connection_(LateObject()) {
    if (!host_) {
        runtime::raise(runtime::objectNotSet);
    }
}

sql::Connection& HostSession::Connection() {
    connection_.follow(host_.getObject("Connection"));
    return connection_;
}

void HostSession::Tabla(std::string_view name) {
    host_.put("Tabla", Variant::text(name));
}

void HostSession::Modo(int mode) {
    if (mode == 0) {
        fields_.clear();
    }
    host_.put("Modo", smallNumber(mode));
}

void HostSession::handOver(const session::FieldList& fields) {
    const LateObject campos = host_.getObject("Campos");
    for (const session::Field& field : fields.fields()) {
        Variant resultado = Variant::boolean(true);
        campos.call("Add", {Variant::text(field.nombre), smallNumber(static_cast<int>(field.tipo)),
                            Variant::of(field.valor), smallNumber(field.decimales), Argument::byRef(resultado)});
    }
}

void HostSession::run(Write write, std::string& error, bool& correcto) {
    const session::FieldList fields = std::exchange(fields_, {});
    correcto = false;
    Variant told = Variant::text("");
    Variant done = Variant::boolean(false);
    try {
        if (write == Write::update) {
            host_.put("Donde", Variant::text(where_));
        }
        handOver(fields);
        if (write == Write::insert) {
            host_.call("Insertar", {Argument::byRef(told), Variant::omitted(), Argument::byRef(done)});
        } else {
            host_.call("Actualizar", {Argument::byRef(told), Argument::byRef(done)});
        }
        error = told.value().isNull() ? std::string() : told.value().toText();
        correcto = isTrue(done);
    } catch (const runtime::RuntimeError& refused) {
        error = refused.description();
        runtime::ErrorTrap ignored;
        ignored([&] { Modo(0); });  // fields that were handed over are not for the next write
    }
}

void HostSession::Actualizar(std::string& error, bool& correcto) {
    run(Write::update, error, correcto);
}

void HostSession::Insertar(std::string& error, bool& correcto) {
    run(Write::insert, error, correcto);
}

bool HostSession::ComprobarConexion(sql::Connection&, std::string& error) {
    Variant told = Variant::text("");
    Variant done = Variant::boolean(false);
    const Variant connection = Variant::object(host_.getObject("Connection").dispatch());
    Variant answer;
    try {
        answer = host_.call("ComprobarConexion", {connection, Argument::byRef(told), Argument::byRef(done)});
    } catch (const runtime::RuntimeError& refused) {
        // Chosen C-361: a host whose member takes two arguments gets two.
        if (refused.number() != wrongArguments) {
            throw;
        }
        answer = host_.call("ComprobarConexion", {connection, Argument::byRef(told)});
    }
    error = told.value().isNull() ? std::string() : told.value().toText();
    return isTrue(answer) || isTrue(done);
}

std::int32_t HostSession::IdUsuario() const {
    return host_.get("IdUsuario").value().toLong();
}

sql::Value HostSession::Parametros(std::string_view name) const {
    // Chosen C-362: a host may offer its settings as a property or a method with the name as argument, or as an object;
    // what it answers with an error counts as a setting that it does not have.
    try {
        return settingOf(host_.get("Parametros", {Variant::text(name)}), name);
    } catch (const runtime::RuntimeError&) {
        // The next way.
    }
    try {
        return settingIn(host_.getObject("Parametros"), name);
    } catch (const runtime::RuntimeError&) {
        return {};
    }
}

}  // namespace velmora::com
