#pragma once
// The host's session, MyBd: an object called by the names of its members.

#include <cstdint>
#include <string>
#include <string_view>

#include "velmora/adapters/com/host_connection.h"
#include "velmora/adapters/com/late_object.h"
#include "velmora/platform/session/session.h"

namespace velmora::com {

/// A session that can give the host's own object back, for the host's components.
class HostedSession : public session::Session {
  public:
    virtual const LateObject& hostObject() const = 0;
};

/// Fields of a write are collected here and handed over when it runs, so that nothing of a write that was given up
/// reaches the host. Errors of a write count as its refusal, as Session has it; all others are the host's.
class HostSession final : public HostedSession {
  public:
    /// Error 91 for Nothing. Nothing is read or sent before the first use.
    explicit HostSession(LateObject host);

    const LateObject& hostObject() const override { return host_; }

    /// Reads the host's property each time and follows it when the host has connected anew.
    sql::Connection& Connection() override;

    void Tabla(std::string_view name) override;
    void Modo(int mode) override;
    session::FieldList& Campos() override { return fields_; }
    /// Handed over with an update; an insert leaves the host's clause alone.
    void Donde(std::string_view clause) override { where_ = clause; }
    void Actualizar(std::string& error, bool& correcto) override;
    void Insertar(std::string& error, bool& correcto) override;

    bool ComprobarConexion(sql::Connection& connection, std::string& error) override;
    std::int32_t IdUsuario() const override;
    sql::Value Parametros(std::string_view name) const override;

  private:
    enum class Write { insert, update };
    void run(Write write, std::string& error, bool& correcto);
    void handOver(const session::FieldList& fields);

    LateObject host_;
    HostConnection connection_;
    session::FieldList fields_;
    std::string where_;
};

}  // namespace velmora::com
