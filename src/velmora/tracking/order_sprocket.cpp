#include "velmora/tracking/order_sprocket.h"

#include <array>
#include <string_view>

#include "velmora/data/product_types.h"
#include "velmora/platform/session/row_writing.h"

namespace velmora::tracking {

using session::Tipo;

namespace {

struct CopiedColumn {
    std::string_view column;
    std::string_view from;  ///< of DPI
};

constexpr std::array copiedColumns{
    CopiedColumn{"Opi_Pas", "DPI_pas"},
    CopiedColumn{"Opi_Die", "DPI_Z"},
    CopiedColumn{"Opi_Rod", "DPI_rodillo"},
    CopiedColumn{"Opi_Anca", "DPI_ac"},
    CopiedColumn{"Opi_Eje", "DPI_Eje"},
    CopiedColumn{"Opi_Chav", "dpi_chav"},
    CopiedColumn{"Opi_Pri", "dpi_pri"},
    CopiedColumn{"Opi_DmPri", "DPI_DmPri"},
    CopiedColumn{"Opi_DmFon", "DPI_DmFon"},
    CopiedColumn{"Opi_DmExt", "DPI_DmExt"},
    CopiedColumn{"Opi_DmCub", "DPI_DmCub"},
    CopiedColumn{"Opi_Alt", "DPI_Alt"},
    CopiedColumn{"Opi_Ancto", "DPI_AnchoTotal"},
    CopiedColumn{"Opi_Llanta", "DPI_llanta"},
    CopiedColumn{"Opi_Anccu", "DPI_AnchoCubo"},
    CopiedColumn{"Opi_Disdm", "DPI_DisCortDM"},
    CopiedColumn{"Opi_DisGr", "DPI_DisCortAN"},
    CopiedColumn{"Opi_Cubdm", "DPI_CubCortDM"},
    CopiedColumn{"Opi_CubGr", "DPI_CubCortAN"},
    CopiedColumn{"Opi_PesoDis", "DPI_DisCortPESO"},
    CopiedColumn{"Opi_PesoCub", "DPI_CubCortPESO"},
};

}  // namespace

void addSprocketData(session::Session& session, const sql::Recordset& proposal, WorkOrder& order) {
    if (data::productType(proposal["DPI_tipo"].toLong()).shape == data::ProductShape::rack) {
        return;
    }
    session::FieldList& campos = beginRow(session, "OrdPiñones");
    campos.Add("Opi_OrdId", Tipo::wholeNumber, order.id);
    for (const CopiedColumn& each : copiedColumns) {
        campos.Add(each.column, Tipo::number, proposal[each.from]);
    }
    const session::RowWrite written = session::insertAddedFields(session);
    if (!written.stored) {
        // Kept K-147: the text speaks of material, although the row is that of the sprocket. Required as it is; it is
        // the source of the error.
        raise(sprocketRefused, "Error en la grabacion del registro de material en la orden\r\n" + written.error);
    }
    // Kept K-148: the new row is assumed to have the highest id; another client may have inserted a row between the two
    // statements. Required as it is; the statements are compared to the letter.
    order.sprocketId = session.Connection().execute("SELECT MAX(Opi_Id) FROM OrdPiñones")[0].toLong();
}

}  // namespace velmora::tracking
