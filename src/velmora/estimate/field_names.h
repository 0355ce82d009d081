#pragma once
// Names for the indexes of the main form's control arrays, with caption and unit of each field. The numbers are part of
// the form (scripts and hosts address "Text1(15)"), so they stay visible here and nowhere else but in layout tables.
//
// Lengths and diameters are millimetres, weights kilograms, money euros.

namespace velmora::estimate {

/// Text1: toothing and measures of the piece.
namespace measure {
enum Index : int {
    pitch = 0,               ///< "Paso", mm; of a chain, or of a gear's module
    teeth = 1,               ///< "Z", whole
    roller = 2,              ///< "Ø Rodillo", mm
    pitchDiameter = 3,       ///< "Ø Primitivo", mm
    root = 4,                ///< "Ø Fondo", mm
    firstRim = 5,            ///< "Llanta (b1)", mm: one rim of a double or triple product
    height = 6,              ///< "H - Altura", mm: tooth height over the root
    bore = 7,                ///< "Eje", mm
    chainWidth = 8,          ///< "A.C.", mm
    rim = 9,                 ///< "Llanta", mm
    hubWidth = 10,           ///< "Ancho cubo", mm; of hub A where there are two
    gap = 11,                ///< "X Ancho Hueco", mm
    keyway = 12,             ///< "Chavetero de", whole mm
    setScrews = 13,          ///< "Nº Prisioneros", whole
    secondHubWidth = 14,     ///< "Ancho cubo B", mm
    exterior = 15,           ///< "Ø Exterior", mm
    hubDiameter = 16,        ///< "Ø Cubo A", mm
    totalWidth = 17,         ///< "Ancho Total", mm
    secondHubDiameter = 18,  ///< "Ø Cubo B", mm
    rackModule = 19,         ///< "Modulo", mm
    rackPitch = 20,          ///< "Paso", mm; calculated
    rackToothHeight = 21,    ///< "h", mm; calculated
    rackHeight = 22,         ///< "H", mm: the whole bar
    rackBody = 23,           ///< "A", mm: under the teeth; calculated
    rackLength = 24,         ///< "L", mm
    rackWidth = 25,          ///< "B", mm
};
}  // namespace measure

/// Text3: captions on the sketch, which repeat measures in words.
namespace caption {
enum Index : int {
    exterior = 0,
    hubDiameter = 1,
    rim = 2,
    hubWidth = 3,
    totalWidth = 4,
    totalOfTwoHubs = 5,
    hubWidthCopy = 6
};
}  // namespace caption

/// Text4: sizes and weights of the stock pieces that are cut.
namespace cut {
enum Index : int {
    discWidth = 0,      ///< disc, "Ancho", mm
    discDiameter = 1,   ///< disc, "Ø", mm
    hubDiameter = 2,    ///< hub, "Ø", mm
    hubLength = 3,      ///< hub, "Ancho", mm
    discWeight = 4,     ///< disc, "Peso", kg
    hubWeight = 5,      ///< hub, "Peso Valor", kg
    discInner = 6,      ///< disc, "Ø Interior", mm: tube stock
    hubInner = 7,       ///< hub, "Ø Interior", mm: tube stock
    barLength = 50,     ///< rack, "Largo", mm
    barWidth = 51,      ///< rack, "Ancho", mm
    barThickness = 52,  ///< rack, "Grosor", mm
    barWeight = 53,     ///< rack, "Peso Valor", kg
};
}  // namespace cut

/// txtPesu: the proposal's identity, its amounts and prices.
namespace money {
enum Index : int {
    customerCode = 0,        ///< "Codigo Cliente (F2)"
    customerName = 1,        ///< "Nombre Cliente"
    customerReference = 2,   ///< "Ref. Cliente"
    proposal = 3,            ///< "Propuesta": its number
    created = 4,             ///< "Creado", dd/mm/yyyy
    sundries = 5,            ///< "Varios", € a piece
    workOrder = 6,           ///< "Orden :": its number
    material = 7,            ///< "Importe Material", € a piece
    labour = 8,              ///< "Mano Obra", € a piece
    subcontracted = 9,       ///< "Subcontratados", € a piece
    piece = 10,              ///< "Total Pieza", €
    pieces = 11,             ///< "Nº de Piezas"
    lot = 12,                ///< "Importe Total", €
    accepted = 13,           ///< "Aceptado", dd/mm/yyyy
    sawCharge = 14,          ///< "Fijo Sierra", €
    hubCut = 15,             ///< hub, "Corte", €
    discCut = 16,            ///< disc, "Corte", €
    approximateWeight = 17,  ///< "Peso Aprox. del Piñon", kg
    discCost = 20,           ///< disc, "Precio Coste", €/kg
    discPrice = 21,          ///< disc, "Precio Venta", €/kg
    discAmount = 22,         ///< disc, "Importe", €
    hubCost = 23,            ///< hub, "Precio Coste", €/kg
    hubPrice = 24,           ///< hub, "Precio Venta", €/kg
    hubAmount = 25,          ///< hub, "Importe", €
    firstOfBar = 50,         ///< 50 to 53 are not shown; a bar's sizes and weight are Text4's of these indexes
    barCost = 54,            ///< rack, "Precio Coste", €/kg
    barCut = 55,             ///< rack, "Corte", €
    barPrice = 56,           ///< rack, "Precio Venta", €/kg
    barAmount = 57,          ///< rack, "Importe", €
};
}  // namespace money

/// txtPDM: the sketch of a double or two-chain product, mm.
namespace doubleSketch {
enum Index : int {
    exterior = 0,
    hubDiameter = 1,
    hubHeight = 2,
    totalWidth = 3,
    rim = 4,
    hubWidth = 5,
    firstRim = 6,
    gap = 7,
    secondRim = 8
};
}  // namespace doubleSketch

/// txtTriple: the sketch of a triple product, mm.
namespace tripleSketch {
enum Index : int {
    exterior = 0,
    hubDiameter = 1,
    hubHeight = 2,
    firstRim = 3,
    firstGap = 4,
    secondRim = 5,
    secondGap = 6,
    thirdRim = 7,
    hubWidth = 8,
    rim = 9,
    totalWidth = 10,
};
}  // namespace tripleSketch

/// txtDCV: the sketch of a product with two hubs of different widths, mm.
namespace variableSketch {
enum Index : int {
    totalWidth = 0,
    hubWidth = 1,
    rim = 2,
    secondHubWidth = 3,
    secondHubDiameter = 4,
    hubDiameter = 5,
    exterior = 6
};
}  // namespace variableSketch

/// txtCre: the sketch of a rack, mm.
namespace rackSketch {
enum Index : int { toothHeight = 0, height = 1, body = 2, length = 3, heightAtTheEnd = 4, width = 5 };
}  // namespace rackSketch

/// Label1: captions of Text1 that change with the product type.
namespace label {
enum Index : int {
    rim = 4,                 ///< of measure::rim
    firstRim = 10,           ///< of measure::firstRim
    roller = 11,             ///< of measure::roller
    hubWidth = 13,           ///< of measure::hubWidth
    chainWidth = 16,         ///< of measure::chainWidth; of the module for a gear
    totalWidth = 17,         ///< of measure::totalWidth
    hubDiameter = 20,        ///< of measure::hubDiameter
    gap = 34,                ///< of measure::gap
    secondHubWidth = 35,     ///< of measure::secondHubWidth
    secondHubDiameter = 37,  ///< of measure::secondHubDiameter
};
}  // namespace label

/// D: captions of the inner diameters of tube stock.
namespace innerLabel {
enum Index : int { disc = 4, hub = 5 };
}  // namespace innerLabel

}  // namespace velmora::estimate
