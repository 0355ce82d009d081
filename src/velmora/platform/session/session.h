#pragma once
// The host's session: the open connection, a builder of write statements, the user, the settings.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/screen/control.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::session {

/// How a value is rendered in a write statement.
enum class Tipo {
    boolean = 0,      ///< 0 or 1
    wholeNumber = 1,  ///< half to even
    number = 2,       ///< Redondear to the field's decimals, with a point
    text = 3,         ///< N'…' with quotes doubled
    dateText = 4,     ///< convert(datetime,'dd/mm/yyyy',103)
    date = 5,         ///< a date value, ISO
    expression = 6,   ///< spliced in unchanged
};

/// The value of a field as given by the caller: a text in the locale's form, or a value. A text box gives its text.
class FieldValue {
  public:
    FieldValue(sql::Value value) : value_(std::move(value)) {}
    FieldValue(int value) : value_(value) {}
    FieldValue(double value) : value_(value) {}
    FieldValue(bool value) : value_(value) {}
    FieldValue(const char* text) : value_(text) {}
    FieldValue(std::string_view text) : value_(std::string(text)) {}
    FieldValue(const std::string& text) : value_(text) {}
    FieldValue(const screen::TextBox& box) : value_(box.text()) {}
    const sql::Value& value() const { return value_; }

  private:
    sql::Value value_;
};

struct Field {
    std::string nombre;
    Tipo tipo;
    sql::Value valor;
    int decimales;
};

/// The list of fields of the next write.
class FieldList {
  public:
    void Add(std::string_view nombre, Tipo tipo, const FieldValue& valor, int decimales = 2) {
        fields_.push_back(Field{std::string(nombre), tipo, valor.value(), decimales});
    }
    const std::vector<Field>& fields() const { return fields_; }
    void clear() { fields_.clear(); }

  private:
    std::vector<Field> fields_;
};

/// The members of the host's session (MyBd) that the program uses. Names are the host's.
class Session {
  public:
    virtual ~Session() = default;

    virtual sql::Connection& Connection() = 0;

    virtual void Tabla(std::string_view name) = 0;
    virtual void Modo(int mode) = 0;
    virtual FieldList& Campos() = 0;
    /// The WHERE clause of the next write, inserted unchanged.
    virtual void Donde(std::string_view clause) = 0;

    /// Runs the UPDATE or the INSERT built from table, fields and clause. A refusal by the builder or the database is
    /// reported as an error text and correcto = false, never as an exception. Campos is empty afterwards in every case.
    virtual void Actualizar(std::string& error, bool& correcto) = 0;
    virtual void Insertar(std::string& error, bool& correcto) = 0;

    /// False when the connection has been lost; `error` gets the reason.
    virtual bool ComprobarConexion(sql::Connection& connection, std::string& error) = 0;

    virtual std::int32_t IdUsuario() const = 0;
    /// A setting of the host by its name; null when there is none.
    virtual sql::Value Parametros(std::string_view name) const = 0;
};

}  // namespace velmora::session
