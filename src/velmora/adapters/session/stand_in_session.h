#pragma once
// A session for programs without a host: an open connection, a user, and the settings that the forms read.

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "velmora/platform/session/session.h"

namespace velmora::adapters {

class StandInSession final : public session::Session {
  public:
    /// The connection must outlive the session. `par_decprecom` is 4 until set otherwise.
    explicit StandInSession(sql::Connection& connection, std::int32_t idUsuario = 1);

    sql::Connection& Connection() override { return connection_; }

    /// Naming a table, like mode 0, starts a new list of fields: fields of an abandoned write are dropped.
    void Tabla(std::string_view name) override;
    void Modo(int mode) override;
    session::FieldList& Campos() override { return fields_; }
    void Donde(std::string_view clause) override { where_ = clause; }

    void Actualizar(std::string& error, bool& correcto) override;
    void Insertar(std::string& error, bool& correcto) override;

    bool ComprobarConexion(sql::Connection& connection, std::string& error) override;

    std::int32_t IdUsuario() const override { return idUsuario_; }
    /// Names are compared without regard to case.
    sql::Value Parametros(std::string_view name) const override;
    void setParametro(std::string_view name, sql::Value value);

  private:
    enum class Write { insert, update };
    void run(Write write, std::string& error, bool& correcto);

    sql::Connection& connection_;
    std::int32_t idUsuario_;
    std::map<std::string, sql::Value, std::less<>> parametros_;  ///< by name in upper case
    std::string table_;
    std::string where_;
    session::FieldList fields_;
};

}  // namespace velmora::adapters
