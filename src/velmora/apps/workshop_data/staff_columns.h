#pragma once
// The columns of sections, machines, operators and their rates; for tables.cpp.

#include <array>
#include <string_view>

#include "velmora/apps/workshop_data/tables.h"

namespace velmora::workshop_data {

// --- Sections ------------------------------------------------------------------------------------------------------

inline constexpr auto sectionColumns = std::to_array<Column>({
    {.name = "RSEC_ID",
     .caption = "Número",
     .explanation = "Número de la sección.",
     .kind = Kind::wholeNumber,
     .required = true,
     .least = 1,
     .width = 8},
    {.name = "RSEC_NOM",
     .caption = "Nombre",
     .explanation = "Como se lee en la mano de obra: Torno, Corte, Tallado…",
     .required = true},
});
inline constexpr auto sectionKey = std::to_array<std::string_view>({"RSEC_ID"});
inline constexpr auto sectionUses =
    std::to_array<Use>({{.column = "RSEC_ID", .table = "MAQ", .byColumn = "MAQ_SEC", .words = "máquinas"}});

inline constexpr Reference section{.table = "RSEC",
                                   .key = "RSEC_ID",
                                   .code = "RSEC_ID",
                                   .name = "RSEC_NOM",
                                   .one = "la sección",
                                   .search = "Buscar secciones",
                                   .codeCaption = "Número",
                                   .nameCaption = "Sección"};

// --- Machines ------------------------------------------------------------------------------------------------------

inline constexpr auto machineColumns = std::to_array<Column>({
    {.name = "MAQ_ID",
     .caption = "Número",
     .explanation = "El número que se teclea en la mano de obra.",
     .kind = Kind::wholeNumber,
     .required = true,
     .least = 1,
     .width = 8},
    {.name = "MAQ_NOM", .caption = "Nombre", .explanation = "Nombre de la máquina.", .required = true},
    {.name = "MAQ_SEC",
     .caption = "Sección",
     .explanation = "Número de su sección. La búsqueda de máquinas de la mano de obra no muestra las que no tienen.",
     .kind = Kind::reference,
     .reference = &section,
     .width = 8,
     .startsLine = true},
});
inline constexpr auto machineKey = std::to_array<std::string_view>({"MAQ_ID"});
inline constexpr auto machineUses = std::to_array<Use>({
    {.column = "MAQ_ID", .table = "OPE", .byColumn = "OPE_MAD", .words = "operarios"},
    {.column = "MAQ_ID", .table = "OBM", .byColumn = "OBM_MAQ", .words = "tarifas de operarios"},
    {.column = "MAQ_ID", .table = "MoDpi", .byColumn = "MoDpi_Maq", .words = "líneas de mano de obra"},
    {.column = "MAQ_ID", .table = "RUT", .byColumn = "RUT_Maq", .words = "rutas de órdenes"},
});

inline constexpr Reference machine{.table = "MAQ",
                                   .key = "MAQ_ID",
                                   .code = "MAQ_ID",
                                   .name = "MAQ_NOM",
                                   .one = "la máquina",
                                   .search = "Buscar máquinas",
                                   .codeCaption = "Número",
                                   .nameCaption = "Máquina"};

// --- Operators -----------------------------------------------------------------------------------------------------

// Three digits of an entry of the labour form hold the operator (K-103).
inline constexpr double lastOperator = 999;

inline constexpr auto operatorColumns = std::to_array<Column>({
    {.name = "OPE_ID",
     .caption = "Número",
     .explanation = "Número del operario, de 1 a 999.",
     .kind = Kind::wholeNumber,
     .required = true,
     .least = 1,
     .most = lastOperator,
     .width = 8},
    {.name = "OPE_NOM", .caption = "Nombre", .explanation = "Nombre del operario.", .required = true},
    {.name = "OPE_VENTA",
     .caption = "Precio de venta",
     .explanation = "Precio de venta de una hora en su máquina habitual, si esta no tiene una tarifa propia para él.",
     .kind = Kind::number,
     .required = true,
     .decimals = 2,
     .unit = "€/h",
     .width = 10,
     .startsLine = true},
    {.name = "OPE_MAD",
     .caption = "Máquina habitual",
     .explanation = "Número de la máquina en la que la mano de obra lo propone el primero.",
     .kind = Kind::reference,
     .reference = &machine,
     .width = 8},
});
inline constexpr auto operatorKey = std::to_array<std::string_view>({"OPE_ID"});
inline constexpr auto operatorUses = std::to_array<Use>({
    {.column = "OPE_ID", .table = "OBM", .byColumn = "OBM_OPE", .words = "tarifas por máquina"},
    {.column = "OPE_ID", .table = "MoDpi", .byColumn = "MoDpi_Ope", .words = "líneas de mano de obra"},
});

inline constexpr Reference worker{.table = "OPE",
                                  .key = "OPE_ID",
                                  .code = "OPE_ID",
                                  .name = "OPE_NOM",
                                  .one = "el operario",
                                  .search = "Buscar operarios",
                                  .codeCaption = "Número",
                                  .nameCaption = "Operario"};

// --- Rates of an operator on a machine -----------------------------------------------------------------------------

inline constexpr auto rateColumns = std::to_array<Column>({
    {.name = "OBM_OPE",
     .caption = "Operario",
     .explanation = "Número del operario.",
     .kind = Kind::reference,
     .required = true,
     .reference = &worker,
     .width = 8},
    {.name = "OBM_MAQ",
     .caption = "Máquina",
     .explanation = "Número de la máquina en la que puede trabajar.",
     .kind = Kind::reference,
     .required = true,
     .reference = &machine,
     .width = 8},
    {.name = "OBM_PTR",
     .caption = "Precio de venta",
     .explanation = "Precio de venta de una hora de este operario en esta máquina.",
     .kind = Kind::number,
     .required = true,
     .decimals = 2,
     .unit = "€/h",
     .width = 10,
     .startsLine = true},
});
inline constexpr auto rateKey = std::to_array<std::string_view>({"OBM_OPE", "OBM_MAQ"});

}  // namespace velmora::workshop_data
