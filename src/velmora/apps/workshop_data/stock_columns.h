#pragma once
// The columns of saw prices and articles; for tables.cpp.

#include <array>
#include <cstdint>
#include <string_view>

#include "velmora/apps/workshop_data/tables.h"

namespace velmora::workshop_data {

// --- Saw prices ----------------------------------------------------------------------------------------------------

inline constexpr auto sawColumns = std::to_array<Column>({
    {.name = "mat_id",
     .caption = "Número",
     .explanation = "Número de la clase de material.",
     .kind = Kind::wholeNumber,
     .required = true,
     .least = 1,
     .width = 8},
    {.name = "mat_pcs",
     .caption = "Precio de corte",
     .explanation = "Precio de la sierra por milímetro de corte. Con 0 se cuenta 0,01.",
     .kind = Kind::number,
     .required = true,
     .decimals = 4,
     .unit = "€/mm",
     .width = 10},
});
inline constexpr auto sawKey = std::to_array<std::string_view>({"mat_id"});
inline constexpr auto sawUses = std::to_array<Use>({
    {.column = "mat_id", .table = "ART", .byColumn = "ART_Mat", .words = "artículos"},
    {.column = "mat_id", .table = "Mat", .byColumn = "Mat_Mat", .words = "materiales de órdenes"},
});

inline constexpr Reference sawPrice{.table = "materiales",
                                    .key = "mat_id",
                                    .code = "mat_id",
                                    .name = "mat_pcs",
                                    .one = "la clase de material",
                                    .search = "Buscar precios de corte",
                                    .codeCaption = "Número",
                                    .nameCaption = "Precio de corte (€/mm)"};

// --- Articles ------------------------------------------------------------------------------------------------------

inline constexpr std::int32_t plateFormula = 1;
inline constexpr auto formulas = std::to_array<Choice>({{0, "Por unidades"},
                                                        {1, "Pletina"},
                                                        {2, "Redondo"},
                                                        {3, "Disco"},
                                                        {4, "Tubo"},
                                                        {5, "Barra rectangular"},
                                                        {6, "Tubo con largo"}});
inline constexpr auto states = std::to_array<Choice>({{0, "En uso"}, {1, "Fuera de uso"}});

inline constexpr auto articleColumns = std::to_array<Column>({
    {.name = "ART_COD", .caption = "Código", .explanation = "Código del artículo.", .required = true, .width = 20},
    {.name = "ART_DES", .caption = "Descripción", .explanation = "Descripción del artículo.", .required = true},
    {.name = "ART_For",
     .caption = "Fórmula",
     .explanation = "Forma de la que se calcula el peso. En un archivo vale también su número, de 0 a 6.",
     .kind = Kind::choice,
     .required = true,
     .choices = formulas,
     .width = 18,
     .startsLine = true},
    {.name = "ART_Fac",
     .caption = "Factor",
     .explanation =
         "El peso en kg son las medidas en mm multiplicadas entre sí y por el factor, partido por un millón: "
         "6,165 para un redondo de acero, 7,85 para una pletina.",
     .kind = Kind::number,
     .required = true,
     .decimals = 4,
     .width = 10},
    {.name = "ART_Pco",
     .caption = "Precio de coste",
     .explanation = "Precio de coste de un kilogramo, o de una unidad.",
     .kind = Kind::number,
     .required = true,
     .decimals = 4,
     .unit = "€",
     .width = 10},
    {.name = "ART_Pve",
     .caption = "Precio de venta",
     .explanation = "Precio de venta de un kilogramo, o de una unidad.",
     .kind = Kind::number,
     .required = true,
     .decimals = 4,
     .unit = "€",
     .width = 10},
    {.name = "ART_Mat",
     .caption = "Clase de material",
     .explanation = "Número de la clase de material, de la que es el precio de corte. Sin ella se cuenta 0,01.",
     .kind = Kind::reference,
     .reference = &sawPrice,
     .width = 8,
     .startsLine = true},
    {.name = "ART_Corte",
     .caption = "Se corta",
     .explanation = "Al aceptar una propuesta se pregunta si el material se corta en el taller.",
     .kind = Kind::presence,
     .onNew = "Sí"},
    {.name = "ART_Estado",
     .caption = "Estado",
     .explanation = "Las búsquedas muestran solo los artículos en uso.",
     .kind = Kind::choice,
     .required = true,
     .onNew = "En uso",
     .choices = states,
     .width = 14},
});
inline constexpr auto articleKey = std::to_array<std::string_view>({"ART_COD"});
inline constexpr auto articleUses = std::to_array<Use>({
    {.column = "ART_ID", .table = "PARDPI", .byColumn = "PARDPI_ART", .words = "materiales de las propuestas"},
    {.column = "ART_ID", .table = "DPI", .byColumn = "DPI_ArtDisco", .words = "propuestas (disco)"},
    {.column = "ART_ID", .table = "DPI", .byColumn = "DPI_ArtCubo", .words = "propuestas (cubo)"},
    {.column = "ART_COD", .table = "LAC", .byColumn = "LAC_CODART", .words = "compras"},
    {.column = "ART_COD", .table = "Mat", .byColumn = "Mat_Art", .words = "materiales de órdenes"},
    {.column = "ART_COD", .table = "ORDEN", .byColumn = "ORDEN_ART", .words = "órdenes"},
});

inline constexpr Reference article{.table = "ART",
                                   .key = "ART_ID",
                                   .code = "ART_COD",
                                   .name = "ART_DES",
                                   .one = "el artículo",
                                   .search = "Buscar artículos",
                                   .codeCaption = "Código",
                                   .nameCaption = "Artículo",
                                   .detail = "ART_For"};

}  // namespace velmora::workshop_data
