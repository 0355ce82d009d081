#pragma once
// The field helper of a form: colours and masks of the field with the focus, the filter of numeric keys, the search
// window, rounding.

#include <string>
#include <string_view>
#include <vector>

#include "velmora/platform/screen/screen.h"
#include "velmora/platform/sql/connection.h"

namespace velmora::session {

/// A row as the search window returns it: its columns as text, null as an empty text, joined by character 1.
std::string joinedRow(const sql::Row& row);
/// Splits a joined row into its columns.
std::vector<std::string> columnsOf(std::string_view joinedRow);

class KestraUtil {
  public:
    KestraUtil(screen::Screen& screen, sql::Connection& connection) : screen_(screen), connection_(&connection) {}

    void Conexion(sql::Connection& connection) { connection_ = &connection; }
    void ColorFoco(double color) { colorFoco_ = static_cast<screen::Color>(color); }
    void ColorNormal(double color) { colorNormal_ = static_cast<screen::Color>(color); }

    /// On GotFocus: sets the colours of a field with the focus and selects all its text.
    void EntrarCampo(screen::TextBox& campo, std::string_view texto = "");

    /// On LostFocus: restores the colours; a non-empty mask formats the text. The mask `dd/mm/yyyy` also reads
    /// `ddmmyy`, `ddmmyyyy` and `d/m/y`; a text that is neither a date nor a number is left unchanged.
    void SalirCampo(screen::TextBox& campo, std::string_view texto = "");

    /// On KeyPress: accepts digits, one leading minus, editing keys and, unless `soloEnteros`, one decimal comma; a
    /// typed point becomes the comma; all other keys are discarded.
    void TeclaCampo(screen::TextBox& campo, screen::KeyPress& key, bool soloEnteros);

    /// Opens the search window. Returns the chosen row as joinedRow() does; an empty text when nothing was chosen.
    /// Widths in twips.
    std::string Buscar(std::string_view statement, std::string_view campo, std::string_view cabecera1,
                       std::string_view cabecera2, std::string_view titulo, int ancho1, int ancho2, bool bandera);

    /// Rounds half away from zero on the decimal value.
    double Redondear(double valor, int decimales) const;

  private:
    screen::Screen& screen_;
    sql::Connection* connection_;
    screen::Color colorFoco_ = screen::colors::white;
    screen::Color colorNormal_ = screen::colors::white;
};

}  // namespace velmora::session
