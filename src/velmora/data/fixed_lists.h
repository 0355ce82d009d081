#pragma once
// The other fixed lists, named after the controls that show them.

#include <array>
#include <string_view>

namespace velmora::data {

/// `cboHerramienta`: the tool of the shaft hole, stored by its text in DPI_HERRAMIENTA.
inline constexpr auto herramientas = std::to_array<std::string_view>({"Broca", "H7", "H5"});

/// `cboFiltroHistorico`; its position is not stored.
inline constexpr auto filtrosHistorico =
    std::to_array<std::string_view>({"Solo Aceptados", "Solo Pendientes", "Todos"});
enum FiltroHistorico { soloAceptados = 0, soloPendientes = 1, todos = 2 };

/// `cboDobles` of the gears' form: the family, stored by its position in ENG_Tipo.
inline constexpr auto familiasEngranaje = std::to_array<std::string_view>({"Engranajes", "Engranaje Disco"});

/// The entry of the tracking form before the product types.
inline constexpr std::string_view todosLosTipos = "Todos los tipos";

}  // namespace velmora::data
