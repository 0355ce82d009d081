#pragma once
// The main form over stored proposals, for the tests of a load.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "velmora/data/product_types.h"

#include "support/proposal_workshop.h"

namespace velmora::proposal {

class LoadingTest : public ::testing::Test {
  protected:
    /// A stored proposal of a type; further columns as the statement names them.
    void store(int type, const std::string& columns = "", const std::string& values = "") {
        workshop.database->execute(
            "INSERT INTO DPI (DPI_Tipo,DPI_CodCliente,DPI_NomCliente,DPI_RefCli,DPI_Obser,DPI_Z,DPI_Pas,DPI_AC,"
            "DPI_Rodillo,DPI_Eje,DPI_Chav,DPI_Pri,DPI_DmPri,DPI_DmFon,DPI_DmCub,DPI_Alt,"
            "DPI_AnchoTotal,DPI_Llanta,DPI_AnchoCubo,DPI_IdParCubo,DPI_ArtDisco,DPI_ArtCubo,DPI_DisCortDM,"
            "DPI_DisCortAN,DPI_DisCortPESO,DPI_DisPVE,DPI_DisImporte,DPI_CosteCorteDisco,DPI_FijoSierra,DPI_CubCortDM,"
            "DPI_CubCortAN,DPI_CubCortPESO,DPI_CubPVE,DPI_CubImporte,DPI_ImpMat,DPI_ImpMO,DPI_ImpTS,DPI_ImpVA,"
            "DPI_ImpTP,DPI_Unidades,DPI_Importe,DPI_HERRAMIENTA,DPI_Acopla,DPI_EXTRA,DPI_ProTex,Dpi_Modulo" +
            columns + ") VALUES (" + std::to_string(type) +
            ",1001,N'TALLERES NORTE SL',N'R-1',N'Nota',17,12.7,7.75,8.51,25,8,2,69.12,60.61,40,7.1,77.7,11.1,33.3,2,11,"
            "12,201.5,12.25,3.14,1.4,15.5,4.44,2.5,55.5,44.5,1.23,1.5,9.87,25.37,10,1,2,40.87,3,122.61,N'H7',1,"
            "N'extra',N'prov',2.5" +
            values + ")");
    }
    bool load(bool bEditable = false) { return workshop.form().msCargarPresupuesto(1, bEditable); }
    std::vector<std::string> messages() { return workshop.screen.messageTexts(); }
    /// One proposal of every type with figures that no rule would work out; type 0 has number 1, and so on.
    void storeEveryType() {
        for (int type = 0; data::findProductType(type); ++type) {
            const bool rack = type == data::rack;
            const bool chain = data::productType(type).chainList;
            store(type, ",DPI_DmExt,DPI_IdParDisco,DPI_PDM_Tipo,DPI_PDM_Texto,DPI_PDM_x,DPI_PDM_b1,DPI_PDM_h1",
                  std::string(rack ? ",180,5" : ",180,1") + (chain ? ",1,N'ISO 1/2''''',6.6" : ",NULL,NULL,NULL") +
                      (chain || data::productType(type).shape == data::ProductShape::variable ? ",7.3,9.4"
                                                                                              : ",NULL,NULL"));
        }
        workshop.database->execute("UPDATE DPI SET DPI_DmInterno=0,DPI_CuboDmInterno=0");
        workshop.database->execute(
            "UPDATE DPI SET DPI_Alt=20,DPI_AC=9.9,DPI_Pas=12.7,DPI_ArtDisco=14 WHERE DPI_Tipo=13");
    }
    /// A stored row, column by column.
    std::vector<std::string> storedRow(int number) {
        const sql::Recordset row =
            workshop.database->execute("select * from DPI where DPI_ID=" + std::to_string(number));
        std::vector<std::string> values;
        for (std::size_t i = 0; i < row.columns().size(); ++i) {
            values.push_back(row.columns()[i].name + " " + (row[i].isNull() ? "NULL" : row[i].toText()));
        }
        return values;
    }
    static std::vector<std::string> changed(const std::vector<std::string>& before,
                                            const std::vector<std::string>& after) {
        std::vector<std::string> differences;
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (before[i] != after[i]) {
                differences.push_back(before[i] + " -> " + after[i]);
            }
        }
        return differences;
    }

    support::ProposalWorkshop workshop;
};

/// Columns of `store` that a type other than the rack needs: an exterior and a disc of the short list.
inline const std::string small = ",DPI_DmExt,DPI_IdParDisco";

}  // namespace velmora::proposal
