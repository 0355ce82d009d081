#pragma once
// The statements of the main form, to the letter.

#include <string>

namespace velmora::support::statements {

inline const std::string cutPrices =
    "Select PARDPI_ID,mat_pcs from materiales inner join art on materiales.mat_id= art.art_mat "
    "inner join PARDPI on art_id = PARDPI_ART where PARDPI_ID>0 ";
inline const std::string discs = "SELECT * FROM PARDPI where PARDPI_DISCO=1";
inline const std::string hubs = "SELECT * FROM PARDPI where PARDPI_DISCO=0";
inline const std::string racks = "SELECT * FROM PARDPI where PARDPI_CRE=1";

inline std::string material(const std::string& id) {
    return "SELECT PARDPI.*,ART.* FROM PARDPI INNER JOIN ART ON PARDPI_ART = ART_ID WHERE PARDPI_ID= " + id;
}
inline std::string history(const std::string& clause) {
    return "Select DPI_Id, DPI_Fecha,DPI_FAcepta,DPI_Orden,DPI_Unidades,DPI_ImpTP,DPI_CodCliente,"
           "DPI_Pas,DPI_ac,DPI_rodillo,DPI_Eje,dpi_protex,DPI_NomCliente,(select art_des from art where art_id = "
           "dpi_artdisco) as Material from DPI " +
           clause;
}

}  // namespace velmora::support::statements
