#include "velmora/platform/sql/engines.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "velmora/platform/runtime/text.h"

namespace velmora::sql {

namespace {

bool isOfName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

/// In small letters; empty when no name stands before a colon. Messages tell a name and nothing else of a source,
/// which may hold a password.
std::string nameIn(std::string_view source) {
    const auto colon = source.find(':');
    if (colon == std::string_view::npos) {
        return {};
    }
    std::string name = runtime::LCase(source.substr(0, colon));
    return std::ranges::all_of(name, isOfName) ? name : std::string();
}

[[noreturn]] void refuse(std::string reason, const std::vector<std::string>& known) {
    std::string list;
    for (const std::string& name : known) {
        list += (list.empty() ? "" : ", ") + name;
    }
    throw DbError(provider::failure,
                  std::move(reason) + " Motores conocidos: " + (list.empty() ? "ninguno" : list) + ".",
                  {.sqlState = "IM002"});
}

}  // namespace

void Engines::add(std::string name, Open open) {
    if (engines_.contains(name)) {
        throw std::logic_error("engine registered twice: " + name);
    }
    engines_[std::move(name)] = std::move(open);
}

std::vector<std::string> Engines::names() const {
    std::vector<std::string> names;
    for (const auto& [name, open] : engines_) {
        names.push_back(name);
    }
    return names;
}

std::unique_ptr<Connection> Engines::open(std::string_view source) const {
    const std::string name = nameIn(source);
    if (name.empty()) {
        refuse("El origen de datos no dice el motor (MOTOR:DESTINO).", names());
    }
    const auto engine = engines_.find(name);
    if (engine == engines_.end()) {
        refuse("No hay ningún motor de datos '" + name + "'.", names());
    }
    return engine->second(std::string(source.substr(name.size() + 1)));
}

}  // namespace velmora::sql
